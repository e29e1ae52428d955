#include "design/SectDesPar.h"

#include <cmath>

namespace kelo {

double CSectDesPar::GetGammaN() const {
    switch (SafClass) {
    case 2:
        return 1.1;
    case 3:
        return 1.2;
    default:
        return 1.0;
    }
}

const CSectDesPar::FieldRef* CSectDesPar::FieldAt(int field) {
    using C = CSectDesPar;
    static const FieldRef fields[kFieldCount] = {
        {&C::MatType, nullptr},       {nullptr, &C::LeX},
        {nullptr, &C::LeY},           {nullptr, &C::Le3},
        {nullptr, &C::Le4},           {nullptr, &C::CoFX},
        {nullptr, &C::CoFY},          {nullptr, &C::EccFX},
        {nullptr, &C::EccFY},         {nullptr, &C::CustTolX},
        {nullptr, &C::CustTolY},      {nullptr, &C::LambdaNmin},
        {nullptr, &C::LambdaNmax},    {nullptr, &C::Ka},
        {nullptr, &C::CreepFactor},   {nullptr, &C::Beta},
        {nullptr, &C::Kit},           {nullptr, &C::SrmMax},
        {&C::SafClass, nullptr},      {nullptr, &C::Fyw},
        {nullptr, &C::Theta},         {nullptr, &C::Rmx},
        {nullptr, &C::Rmy},           {nullptr, &C::Imperf},
        {&C::SecClass, nullptr},      {&C::ProdType, nullptr},
        {&C::BucklCurveX, nullptr},   {&C::BucklCurveY, nullptr},
        {&C::LatBucklCurve, nullptr}, {nullptr, &C::LatMomX},
        {nullptr, &C::LatMomY},
    };
    return field >= 1 && field <= kFieldCount ? &fields[field - 1] : nullptr;
}

double CSectDesPar::GetParam(int field) const {
    const FieldRef* f = FieldAt(field);
    if (!f) return -1.0;
    return f->IntMember ? this->*(f->IntMember) : this->*(f->DoubleMember);
}

int CSectDesPar::SetParam(int field, double v) {
    const FieldRef* f = FieldAt(field);
    if (!f) return 0;
    if (f->IntMember)
        this->*(f->IntMember) = static_cast<int>(v);
    else
        this->*(f->DoubleMember) = v;
    return 1;
}

int CSectDesPar::CompareParam(const CSectDesPar* other, int /*mode*/) const {
    if (!other) return 1;
    for (int i = 1; i <= kFieldCount; ++i)
        if (std::fabs(GetParam(i) - other->GetParam(i)) >= 1e-5) return 1;
    return 0;
}

} // namespace kelo
