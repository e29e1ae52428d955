#include "design/SteelMatPar.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <iterator>

namespace kelo {

namespace {

struct Grade {
    int Code;
    double Fb;
    double Fy;
};

const Grade kGrades[] = {
    {10101, 370000, 235000}, {10102, 440000, 275000}, {10103, 520000, 355000},
    {10201, 360000, 235000}, {10202, 430000, 275000}, {10203, 510000, 355000},
    {10301, 390000, 275000}, {10302, 490000, 355000}, {10303, 540000, 420000},
    {10304, 570000, 460000}, {10401, 380000, 275000}, {10402, 470000, 355000},
    {10403, 520000, 420000}, {10404, 550000, 460000},
};

} // namespace

CSteelMatPar::CSteelMatPar(int no, const std::string& name, int gradeCode) : No(no), Name(name) {
    const Grade* g = std::find_if(std::begin(kGrades), std::end(kGrades),
                                  [gradeCode](const Grade& x) { return x.Code == gradeCode; });
    Fb = g != std::end(kGrades) ? g->Fb : 370000.0;
    Fy = g != std::end(kGrades) ? g->Fy : 235000.0;
}

void CSteelMatPar::SetYoungsModulus(double v) {
    YoungsModulus = v;
    ShearModulus = 0.5 * YoungsModulus / (1.0 + PoissonRatio);
}

void CSteelMatPar::SetPoissonRatio(double v) {
    PoissonRatio = v;
    ShearModulus = 0.5 * YoungsModulus / (1.0 + PoissonRatio);
}

int CSteelMatPar::CompareParam(const CSteelMatPar* other, int /*mode*/) const {
    if (!other) return 1;
    const double mine[] = {Fb,           Fy,           Es,     Ey, Rho, Epssu, Alpha, YoungsModulus,
                           PoissonRatio, ShearModulus, Reserve};
    const double theirs[] = {
        other->Fb,           other->Fy,           other->Es,     other->Ey,
        other->Rho,          other->Epssu,        other->Alpha,  other->YoungsModulus,
        other->PoissonRatio, other->ShearModulus, other->Reserve};
    for (std::size_t i = 0; i < std::size(mine); ++i)
        if (std::fabs(mine[i] - theirs[i]) >= 1e-5) return 1;
    return CalcOption != other->CalcOption ? 1 : 0;
}

} // namespace kelo
