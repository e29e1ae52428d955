#include "command/SectionCmd.h"

#include "command/StructureCmd.h"
#include "design/DefaultSets.h"
#include "geometry/RefLine.h"
#include "model/Structure.h"
#include "platform/Text.h"

#include <cmath>
#include <cstdlib>
#include <memory>

namespace kelo {

namespace {

// Names of materials, sets and sections are cut to what the listings and the store hold.
constexpr std::size_t kNameLength = 30;
// Stations closer than this (m) are the same, as everywhere in the geometry.
constexpr double kSameStation = 1e-5;
// Millimetres as typed to metres as stored; MPa to kN/m²; per mille to a plain ratio.
constexpr double kMm = 0.001;
constexpr double kMPa = 1000.0;
constexpr double kPerMille = 0.001;
// Change codes of the project store, and its write action. The store has no codes of its own
// for the steel sets; they are noted with those of concrete.
constexpr int kCidConcrMat = 110, kCidReinfMat = 120, kCidPrestMat = 130, kCidConcrDes = 140,
              kCidReinfDes = 150, kCidPrestDes = 160, kCidSectDes = 170, kCidKeySection = 306,
              kCidPolyLine = 308, kCidSectPoint = 309;
constexpr int kWrite = 5;
// A field that the user left empty where the default depends on other fields.
constexpr double kUnset = kValueByCode;

std::string NameOf(const std::string& text) { return CutName(Trim(text), kNameLength); }

// A station as the commands address sections: to three decimals.
double KeyStation(double station) { return std::strtod(Format("%.3lf", station).c_str(), nullptr); }

bool IsFrameMember(int type) { return type >= 1 && type <= 5; }

// Section points are typed in mm; a section of a frame member draws its picture in mm, all
// others hold metres.
double PointScale(const CKeySection& section) {
    const int type = section.GetType();
    return (type >= 1 && type <= 5) || (type >= 20 && type <= 22) ? 1.0 : kMm;
}

// The density of a concrete by the design code, as the code's own default concrete has it.
double DefaultDensity(int concrCode) {
    return concrCode == 102 || concrCode == 103 || concrCode == 104 ? 2400.0 : 2200.0;
}

// The point of that number on polyline `polyLine` (0: the outline).
CSectPoint* PointOf(const CKeySection& section, int polyLine, double no) {
    return section.GetSectPointPtr(polyLine, no);
}

} // namespace

CSectionCmd::CSectionCmd(CStructureCmd& cmd) : m_cmd(cmd) {
    auto reg = [this](int type, int (CSectionCmd::*handler)(std::string&, int),
                      int (CSectionCmd::*check)(double*, int)) {
        m_cmd.RegisterHandler(
            type, [this, handler](std::string& r, int d) { return (this->*handler)(r, d); },
            [this, check](double* v, int d) { return (this->*check)(v, d); });
    };
    reg(kMconcr, &CSectionCmd::Mconcr, &CSectionCmd::MconcrDataCheck);
    reg(kMsteel, &CSectionCmd::Msteel, &CSectionCmd::MsteelDataCheck);
    reg(kMreinf, &CSectionCmd::Mreinf, &CSectionCmd::MreinfDataCheck);
    reg(kMprest, &CSectionCmd::Mprest, &CSectionCmd::MprestDataCheck);
    reg(kDpconcr, &CSectionCmd::Dpconcr, &CSectionCmd::DpconcrDataCheck);
    reg(kDpsteel, &CSectionCmd::Dpsteel, &CSectionCmd::DpsteelDataCheck);
    reg(kDpreinf, &CSectionCmd::Dpreinf, &CSectionCmd::DpreinfDataCheck);
    reg(kDpprest, &CSectionCmd::Dpprest, &CSectionCmd::DpprestDataCheck);
    reg(kDpsect, &CSectionCmd::Dpsect, &CSectionCmd::DpsectDataCheck);
    reg(kXsect, &CSectionCmd::Xsect, &CSectionCmd::XsectDataCheck);
    reg(kSect, &CSectionCmd::Sect_, &CSectionCmd::Sect_DataCheck);
    reg(kDim, &CSectionCmd::Dim_, &CSectionCmd::Dim_DataCheck);
    reg(kPt, &CSectionCmd::Pt_, &CSectionCmd::Pt_DataCheck);
    reg(kSectpt, &CSectionCmd::Sectpt, &CSectionCmd::SectptDataCheck);
    reg(kPoly, &CSectionCmd::Poly, &CSectionCmd::PolyDataCheck);
    reg(kPtfunc, &CSectionCmd::Ptfunc, &CSectionCmd::PtfuncDataCheck);
    reg(kSectface, &CSectionCmd::Sectface, &CSectionCmd::SectfaceDataCheck);
    reg(kConn, &CSectionCmd::Conn, &CSectionCmd::ConnDataCheck);
    reg(kPanel, &CSectionCmd::Panel, &CSectionCmd::PanelDataCheck);
}

// ------------------------------------------------------------------------- shared steps

CStructure& CSectionCmd::Structure() const { return *m_cmd.GetStructure(); }

int CSectionCmd::ValuesAndCheck(int type, const std::string& rest, double* values, int count,
                                std::string& text, int showDialog) {
    if (m_cmd.CommandValues(rest, values, count, text, showDialog) < 0) return -2;
    const int check = m_cmd.DataCheck(type, values, showDialog);
    return check < -1 ? -2 : check;
}

bool CSectionCmd::CheckValue(bool ok, const double* values, int index, int showDialog) {
    if (!ok) m_cmd.Message(3337, showDialog, index + 1, values[index], nullptr);
    return ok;
}

CKeySection* CSectionCmd::FindSection(const double* values, int showDialog) {
    CKeySection* section = Structure().GetKeySectionPtr(FieldInt(values[0]), values[1]);
    if (!section) m_cmd.Message(3015, showDialog, FieldInt(values[0]), values[1], nullptr);
    return section;
}

void CSectionCmd::NoteSectionChange(const double* values, int code) {
    const double numbers[5] = {values[0], values[1], 0.0, 0.0, 0.0};
    m_cmd.AddChange(code, numbers, kWrite);
}

int CSectionCmd::DimensionCount(int type) {
    switch (type) {
    case 1:
    case 4:
    case 5:
        return 4;
    case 2:
    case 3:
    case 12:
        return 2;
    case 11:
        return 6;
    case 20:
    case 21:
        return 3;
    case 22:
        return 1;
    default:
        return type >= 1000 && type <= 1005 ? 8 : 0;
    }
}

bool CSectionCmd::IsValidSectionType(int type) {
    return (type >= 1 && type <= 5) || (type >= 11 && type <= 15) || (type >= 20 && type <= 22) ||
           type == 100;
}

// ------------------------------------------------------------------------- MCONCR

int CSectionCmd::MconcrDataCheck(double* values, int showDialog) {
    if (m_cmd.GetCheckLevel() < 1) return 0;
    if (FieldInt(values[0]) < 1) {
        m_cmd.Message(3130, showDialog, FieldInt(values[0]), values[0], nullptr);
        return -2;
    }
    bool ok = CheckValue(values[1] > 0.0, values, 1, showDialog) &&
              CheckValue(values[2] > 0.0, values, 2, showDialog);
    for (int i = 3; ok && i < 12; ++i)
        ok = CheckValue(IsValueByCode(values[i]) || values[i] > 0.0, values, i, showDialog);
    ok = ok && CheckValue(values[12] >= 0.0, values, 12, showDialog) &&
         CheckValue(values[13] > 0.0, values, 13, showDialog);
    return ok ? 0 : -2;
}

int CSectionCmd::Mconcr(std::string& rest, int showDialog) {
    CStructure& s = Structure();
    const int code = s.GetConcrCode();
    double v[16] = {0.0, 45.0, DefaultDensity(code)};
    for (int i = 3; i < 12; ++i) v[i] = kValueByCode;
    v[12] = 1e-5;
    v[13] = 70.0;
    std::string text;
    const int check = ValuesAndCheck(kMconcr, rest, v, 14, text, showDialog);
    if (check < -1) return check;
    // The strength is the one the code names (cube strength under NS 3473, cylinder strength
    // under NS-EN 1992 and AASHTO); the code derives the rest, and what is typed overrides it.
    auto mat = std::make_unique<CConcrMatPar>(FieldInt(v[0]), NameOf(text), v[1], 0, v[2], code,
                                              &s.GetMessageSink());
    mat->SetStructure(&s);
    mat->SetRho(v[2]);
    auto given = [&](int i) { return !IsValueByCode(v[i]); };
    if (given(3)) mat->SetFcck(v[3] * kMPa);
    if (given(4)) mat->SetFcn(v[4] * kMPa);
    if (given(5)) mat->SetFtn(v[5] * kMPa);
    if (given(6)) mat->SetEcn(v[6] * kMPa);
    if (given(7)) mat->SetEck(v[7] * kMPa);
    if (given(8)) mat->SetEpsco(v[8] * kPerMille);
    if (given(9)) mat->SetEpscu(v[9] * kPerMille);
    if (given(10)) mat->SetM(v[10]);
    if (given(11)) mat->SetYoungsModulus(v[11] * kMPa);
    mat->SetAlpha(v[12]);
    mat->SetAge(v[13]);
    s.AddConcrMatPar(std::move(mat));
    const double numbers[5] = {v[0], 0.0, 0.0, 0.0, 0.0};
    m_cmd.AddChange(kCidConcrMat, numbers, kWrite);
    return check;
}

// ------------------------------------------------------------------------- MSTEEL

int CSectionCmd::MsteelDataCheck(double* values, int showDialog) {
    if (m_cmd.GetCheckLevel() < 1) return 0;
    if (FieldInt(values[0]) < 1) {
        m_cmd.Message(3130, showDialog, FieldInt(values[0]), values[0], nullptr);
        return -2;
    }
    const bool ok = CheckValue(values[1] > 0.0, values, 1, showDialog) &&
                    CheckValue(values[2] > 0.0, values, 2, showDialog) &&
                    CheckValue(values[3] > 0.0, values, 3, showDialog) &&
                    CheckValue(values[4] > 0.0, values, 4, showDialog) &&
                    CheckValue(values[5] > 0.0, values, 5, showDialog) &&
                    CheckValue(values[6] >= 0.0, values, 6, showDialog) &&
                    CheckValue(values[7] >= 0.0 && values[7] < 0.5, values, 7, showDialog) &&
                    CheckValue(values[8] > 0.0, values, 8, showDialog) &&
                    CheckValue(values[9] >= 0.0, values, 9, showDialog);
    return ok ? 0 : -2;
}

int CSectionCmd::Msteel(std::string& rest, int showDialog) {
    double v[11] = {1.0, 225.0, 210000.0, 7850.0, 340.0, 12.0, 1.2e-5, 0.3, 210000.0, 0.0};
    std::string text;
    const int check = ValuesAndCheck(kMsteel, rest, v, 10, text, showDialog);
    if (check < -1) return check;
    auto mat = std::make_unique<CSteelMatPar>(FieldInt(v[0]), NameOf(text), 0);
    mat->SetFy(v[1] * kMPa);
    mat->SetEs(v[2] * kMPa);
    mat->SetRho(v[3]);
    mat->SetFb(v[4] * kMPa);
    mat->SetEpssu(v[5] * kPerMille);
    mat->SetAlpha(v[6]);
    mat->SetPoissonRatio(v[7]);
    mat->SetYoungsModulus(v[8] * kMPa);
    mat->SetEy(v[9] * kMPa);
    Structure().AddSteelMatPar(std::move(mat));
    const double numbers[5] = {v[0], 0.0, 0.0, 0.0, 0.0};
    m_cmd.AddChange(kCidConcrMat, numbers, kWrite);
    return check;
}

// ------------------------------------------------------------------------- MREINF, MPREST

int CSectionCmd::BarMatCheck(double* values, int showDialog) {
    if (m_cmd.GetCheckLevel() < 1) return 0;
    if (FieldInt(values[0]) < 1) {
        m_cmd.Message(3130, showDialog, FieldInt(values[0]), values[0], nullptr);
        return -2;
    }
    const int cls = FieldInt(values[4]), curve = FieldInt(values[5]);
    const bool ok = CheckValue(values[1] > 0.0, values, 1, showDialog) &&
                    CheckValue(values[2] > 0.0, values, 2, showDialog) &&
                    CheckValue(values[3] > 0.0, values, 3, showDialog) &&
                    CheckValue(cls >= 1 && cls <= 3, values, 4, showDialog) &&
                    CheckValue(curve == 1 || curve == 2, values, 5, showDialog) &&
                    CheckValue(values[6] > 0.0, values, 6, showDialog);
    return ok ? 0 : -2;
}

int CSectionCmd::MreinfDataCheck(double* values, int showDialog) {
    return BarMatCheck(values, showDialog);
}

int CSectionCmd::Mreinf(std::string& rest, int showDialog) {
    double v[8] = {0.0, 500.0, 200000.0, 10.0, 3.0, 1.0, 520.0};
    std::string text;
    const int check = ValuesAndCheck(kMreinf, rest, v, 7, text, showDialog);
    if (check < -1) return check;
    auto mat = std::make_unique<CReinfMatPar>(FieldInt(v[0]), NameOf(text), v[1], FieldInt(v[4]),
                                              FieldInt(v[5]), v[6]);
    mat->SetEsk(v[2] * kMPa);
    mat->SetEpssu(v[3] * kPerMille);
    mat->SetStructure(&Structure());
    Structure().AddReinfMatPar(std::move(mat));
    const double numbers[5] = {v[0], 0.0, 0.0, 0.0, 0.0};
    m_cmd.AddChange(kCidReinfMat, numbers, kWrite);
    return check;
}

int CSectionCmd::MprestDataCheck(double* values, int showDialog) {
    return BarMatCheck(values, showDialog);
}

int CSectionCmd::Mprest(std::string& rest, int showDialog) {
    double v[8] = {0.0, 1670.0, 195000.0, 10.0, 1.0, 1.0, 1736.8};
    std::string text;
    const int check = ValuesAndCheck(kMprest, rest, v, 7, text, showDialog);
    if (check < -1) return check;
    auto mat = std::make_unique<CPrestMatPar>(FieldInt(v[0]), NameOf(text), v[1], FieldInt(v[4]),
                                              FieldInt(v[5]), v[6]);
    mat->SetEsk(v[2] * kMPa);
    mat->SetEpssu(v[3] * kPerMille);
    mat->SetStructure(&Structure());
    Structure().AddPrestMatPar(std::move(mat));
    const double numbers[5] = {v[0], 0.0, 0.0, 0.0, 0.0};
    m_cmd.AddChange(kCidPrestMat, numbers, kWrite);
    return check;
}

// ------------------------------------------------------------------------- DPCONCR, DPSTEEL

int CSectionCmd::DpconcrDataCheck(double* values, int showDialog) {
    if (m_cmd.GetCheckLevel() < 1) return 0;
    if (FieldInt(values[0]) < 1) {
        m_cmd.Message(3131, showDialog, FieldInt(values[0]), values[0], nullptr);
        return -2;
    }
    bool ok = true;
    for (int i = 1; ok && i <= 6; ++i) ok = CheckValue(values[i] > 0.0, values, i, showDialog);
    return ok ? 0 : -2;
}

int CSectionCmd::Dpconcr(std::string& rest, int showDialog) {
    double v[8] = {0.0, 1.4, 1.2, 1.0, 3.5, 3.5, 3.5};
    std::string text;
    const int check = ValuesAndCheck(kDpconcr, rest, v, 7, text, showDialog);
    if (check < -1) return check;
    auto des = std::make_unique<CConcrDesPar>(FieldInt(v[0]), NameOf(text));
    for (int ls = 1; ls <= 3; ++ls) {
        des->SetParam(ls, v[ls]);
        des->SetEpslim(ls, v[3 + ls] * kPerMille);
    }
    Structure().AddConcrDesPar(std::move(des));
    const double numbers[5] = {v[0], 0.0, 0.0, 0.0, 0.0};
    m_cmd.AddChange(kCidConcrDes, numbers, kWrite);
    return check;
}

int CSectionCmd::DpsteelDataCheck(double* values, int showDialog) {
    if (m_cmd.GetCheckLevel() < 1) return 0;
    if (FieldInt(values[0]) < 1) {
        m_cmd.Message(3131, showDialog, FieldInt(values[0]), values[0], nullptr);
        return -2;
    }
    bool ok = true;
    for (int i = 1; ok && i <= 4; ++i) ok = CheckValue(values[i] > 0.0, values, i, showDialog);
    return ok ? 0 : -2;
}

int CSectionCmd::Dpsteel(std::string& rest, int showDialog) {
    double v[6] = {1.0, 1.15, 1.0, 12.0, 12.0};
    std::string text;
    const int check = ValuesAndCheck(kDpsteel, rest, v, 5, text, showDialog);
    if (check < -1) return check;
    auto des = std::make_unique<CSteelDesPar>(FieldInt(v[0]), NameOf(text));
    // Index 1 the ultimate factor, 2 to 4 the others; the strain limits of the same states.
    des->SetGamma(1, v[1]);
    for (int i = 2; i <= 4; ++i) des->SetGamma(i, v[2]);
    des->SetEpslim(1, v[3] * kPerMille);
    for (int ls = 2; ls <= 4; ++ls) des->SetEpslim(ls, v[4] * kPerMille);
    Structure().AddSteelDesPar(std::move(des));
    const double numbers[5] = {v[0], 0.0, 0.0, 0.0, 0.0};
    m_cmd.AddChange(kCidConcrDes, numbers, kWrite);
    return check;
}

// ------------------------------------------------------------------------- DPREINF, DPPREST

namespace {

// The values of a set of steel in concrete by its place: the eleven values after the number,
// those left to the code taken from its default set. The strain limit is typed in per mille and
// held as a ratio.
void FillBarDes(double* v, int concrCode, double (*byCode)(int, int)) {
    for (int field = 1; field <= 11; ++field) {
        if (IsValueByCode(v[field]))
            v[field] = byCode(concrCode, field);
        else if (field == 11)
            v[field] *= kPerMille;
    }
}

template <class Set> std::unique_ptr<Set> MakeBarDes(const double* v, const std::string& name) {
    auto des = std::make_unique<Set>(FieldInt(v[0]), name);
    for (int field = 1; field <= 10; ++field) des->SetParam(field, v[field]);
    for (int ls = 1; ls <= 3; ++ls) des->SetEpslim(ls, v[11]);
    return des;
}

} // namespace

int CSectionCmd::BarDesCheck(double* values, int showDialog) {
    if (m_cmd.GetCheckLevel() < 1) return 0;
    if (FieldInt(values[0]) < 1) {
        m_cmd.Message(3131, showDialog, FieldInt(values[0]), values[0], nullptr);
        return -2;
    }
    bool ok = true;
    for (int i = 1; ok && i <= 3; ++i) ok = CheckValue(values[i] > 0.0, values, i, showDialog);
    for (int i = 4; ok && i <= 9; ++i) ok = CheckValue(values[i] >= 0.0, values, i, showDialog);
    ok = ok &&
         CheckValue(FieldInt(values[10]) == 0 || FieldInt(values[10]) == 1, values, 10,
                    showDialog) &&
         CheckValue(values[11] > 0.0, values, 11, showDialog);
    return ok ? 0 : -2;
}

int CSectionCmd::DpreinfDataCheck(double* values, int showDialog) {
    return BarDesCheck(values, showDialog);
}

int CSectionCmd::Dpreinf(std::string& rest, int showDialog) {
    double v[13] = {0.0};
    for (int i = 1; i <= 11; ++i) v[i] = kValueByCode;
    std::string text;
    if (m_cmd.CommandValues(rest, v, 12, text, showDialog) < 0) return -2;
    FillBarDes(v, Structure().GetConcrCode(), &DefaultReinfDesValue);
    const int check = m_cmd.DataCheck(kDpreinf, v, showDialog);
    if (check < -1) return -2;
    Structure().AddReinfDesPar(MakeBarDes<CReinfDesPar>(v, NameOf(text)));
    const double numbers[5] = {v[0], 0.0, 0.0, 0.0, 0.0};
    m_cmd.AddChange(kCidReinfDes, numbers, kWrite);
    return check;
}

int CSectionCmd::DpprestDataCheck(double* values, int showDialog) {
    return BarDesCheck(values, showDialog);
}

int CSectionCmd::Dpprest(std::string& rest, int showDialog) {
    double v[13] = {0.0};
    for (int i = 1; i <= 11; ++i) v[i] = kValueByCode;
    std::string text;
    if (m_cmd.CommandValues(rest, v, 12, text, showDialog) < 0) return -2;
    FillBarDes(v, Structure().GetConcrCode(), &DefaultPrestDesValue);
    const int check = m_cmd.DataCheck(kDpprest, v, showDialog);
    if (check < -1) return -2;
    Structure().AddPrestDesPar(MakeBarDes<CPrestDesPar>(v, NameOf(text)));
    const double numbers[5] = {v[0], 0.0, 0.0, 0.0, 0.0};
    m_cmd.AddChange(kCidPrestDes, numbers, kWrite);
    return check;
}

// ------------------------------------------------------------------------- DPSECT

int CSectionCmd::DpsectDataCheck(double* values, int showDialog) {
    if (m_cmd.GetCheckLevel() < 1) return 0;
    if (FieldInt(values[0]) < 1) {
        m_cmd.Message(3131, showDialog, FieldInt(values[0]), values[0], nullptr);
        return -2;
    }
    // values[k] is field k of the set: 1 the material, 2 to 5 the buckling lengths, 12 and 13
    // the slenderness limits, 15 the creep factor, 19 the safety class.
    const int material = FieldInt(values[1]), safety = FieldInt(values[19]);
    bool ok = CheckValue(material == 1 || material == 2, values, 1, showDialog);
    for (int i = 2; ok && i <= 5; ++i) ok = CheckValue(values[i] >= 0.0, values, i, showDialog);
    ok = ok && CheckValue(values[13] >= values[12], values, 13, showDialog) &&
         CheckValue(values[15] >= 0.0, values, 15, showDialog) &&
         CheckValue(safety >= 1 && safety <= 3, values, 19, showDialog);
    return ok ? 0 : -2;
}

int CSectionCmd::Dpsect(std::string& rest, int showDialog) {
    constexpr int kFields = CSectDesPar::kFieldCount;
    double v[kFields + 2] = {0.0, 1.0};
    for (int field = 2; field <= kFields; ++field) v[field] = kValueByCode;
    std::string text;
    if (m_cmd.CommandValues(rest, v, kFields + 1, text, showDialog) < 0) return -2;
    const int code = Structure().GetConcrCode();
    for (int field = 2; field <= kFields; ++field)
        if (IsValueByCode(v[field])) v[field] = DefaultSectDesValue(code, field);
    const int check = m_cmd.DataCheck(kDpsect, v, showDialog);
    if (check < -1) return -2;
    auto des = std::make_unique<CSectDesPar>(FieldInt(v[0]), NameOf(text));
    for (int field = 1; field <= kFields; ++field) des->SetParam(field, v[field]);
    Structure().AddSectDesPar(std::move(des));
    const double numbers[5] = {v[0], 0.0, 0.0, 0.0, 0.0};
    m_cmd.AddChange(kCidSectDes, numbers, kWrite);
    return check;
}

// ------------------------------------------------------------------------- XSECT, SECT

int CSectionCmd::SectionHeadCheck(const double* values, int kindMessage, int showDialog) {
    CStructure& s = Structure();
    const int lineNo = FieldInt(values[0]), type = FieldInt(values[2]);
    CRefLine* line = s.GetRefLinePtr(lineNo);
    if (!line) {
        m_cmd.Message(3010, showDialog, lineNo, values[0], nullptr);
        return -2;
    }
    if (!IsValidSectionType(type)) {
        m_cmd.Message(3356, showDialog, type, values[2], nullptr);
        return -2;
    }
    const int kind = FieldInt(values[3]);
    if (kind < 0 || kind > 2) {
        m_cmd.Message(kindMessage, showDialog, kind, values[3], nullptr);
        return -2;
    }
    const int mat = FieldInt(values[4]), des = FieldInt(values[5]), sectDes = FieldInt(values[6]);
    if (kind == 1 && !s.GetConcrMatParPtr(mat)) {
        m_cmd.Message(3045, showDialog, mat, values[4], nullptr);
        return -2;
    }
    if (kind == 1 && !s.GetConcrDesParPtr(des)) {
        m_cmd.Message(3046, showDialog, des, values[5], nullptr);
        return -2;
    }
    if (kind == 2 && !s.GetSteelMatParPtr(mat)) {
        m_cmd.Message(3050, showDialog, mat, values[4], nullptr);
        return -2;
    }
    if (kind == 2 && !s.GetSteelDesParPtr(des)) {
        m_cmd.Message(3051, showDialog, des, values[5], nullptr);
        return -2;
    }
    if (kind != 0 && !s.GetSectDesParPtr(sectDes)) {
        m_cmd.Message(3047, showDialog, sectDes, values[6], nullptr);
        return -2;
    }
    // A station off the line is no error: the line's geometry may still come.
    if (m_cmd.GetCheckLevel() >= 2 && lineNo > 0 && line->AnyGeometry()) {
        const double station = values[1];
        if (station < line->GetStationStart() - kSameStation ||
            station > line->GetStationEnd() + kSameStation) {
            m_cmd.Message(2104, showDialog, lineNo, station, nullptr);
            return -1;
        }
    }
    return 0;
}

CKeySection* CSectionCmd::SectionFor(const double* values, const std::string& name,
                                     int showDialog) {
    CStructure& s = Structure();
    const int lineNo = FieldInt(values[0]);
    CRefLine* line = s.GetRefLinePtr(lineNo);
    if (!line) {
        m_cmd.Message(3010, showDialog, lineNo, values[0], nullptr);
        return nullptr;
    }
    const double station = KeyStation(values[1]);
    CKeySection* section = line->GetKeySectionPtr(station);
    if (!section) {
        // Sections on line 0 are numbered by their station, as the frame sections are.
        const int no = lineNo == 0 ? FieldInt(station) : 0;
        section = line->AddKeySection(std::make_unique<CKeySection>(no, name, station));
    } else if (!name.empty()) {
        section->SetName(name);
    }
    section->SetRefLineNo(lineNo);
    section->SetType(FieldInt(values[2]));
    section->SetOriginalType(FieldInt(values[2]));
    return section;
}

int CSectionCmd::XsectDataCheck(double* values, int showDialog) {
    if (m_cmd.GetCheckLevel() < 1) return 0;
    if (IsFrameMember(FieldInt(values[2]))) {
        // A frame member carries its own stiffness in place of a material: E in the material's
        // place and Poisson's ratio in the set's.
        double head[7] = {values[0], values[1], values[2], 0.0, 0.0, 0.0, 0.0};
        const int result = SectionHeadCheck(head, 3351, showDialog);
        if (result < -1) return result;
        for (int i = 3; i <= 4; ++i) {
            const bool ok = i == 3 ? values[i] > 0.0 : values[i] >= 0.0 && values[i] < 0.5;
            if (!ok) {
                m_cmd.Message(3350, showDialog, 0, values[i], nullptr);
                return -2;
            }
        }
        return result;
    }
    return SectionHeadCheck(values, 3351, showDialog);
}

int CSectionCmd::Xsect(std::string& rest, int showDialog) {
    CStructure& s = Structure();
    double v[8] = {0.0, 0.0, 13.0, kUnset, kUnset, kUnset, kUnset};
    std::string text;
    if (m_cmd.CommandValues(rest, v, 7, text, showDialog) < 0) return -2;
    const bool member = IsFrameMember(FieldInt(v[2]));
    if (member) {
        if (IsValueByCode(v[3])) v[3] = s.GetFrameYModulus();
        if (IsValueByCode(v[4])) v[4] = s.GetFramePoisson();
    } else {
        if (IsValueByCode(v[3])) v[3] = 1.0;
        for (int i = 4; i <= 6; ++i)
            if (IsValueByCode(v[i])) v[i] = 1.0;
    }
    const int check = m_cmd.DataCheck(kXsect, v, showDialog);
    if (check < -1) return -2;
    CKeySection* section = SectionFor(v, NameOf(text), showDialog);
    if (!section) return -2;
    if (member) {
        section->SetMatType(0);
        section->SetMatParNo(0);
        section->SetDesParNo(0);
        section->SetSectDesParNo(0);
        section->SetYoungsModulus(v[3]);
        section->SetPoisson(v[4]);
    } else {
        section->SetMatType(FieldInt(v[3]));
        section->SetMatParNo(FieldInt(v[4]));
        section->SetDesParNo(FieldInt(v[5]));
        section->SetSectDesParNo(FieldInt(v[6]));
        section->SetYoungsModulus(0.0);
        section->SetPoisson(0.0);
    }
    NoteSectionChange(v, kCidKeySection);
    return check;
}

int CSectionCmd::Sect_DataCheck(double* values, int showDialog) {
    if (m_cmd.GetCheckLevel() < 1) return 0;
    const int result = SectionHeadCheck(values, 3344, showDialog);
    if (result < -1) return result;
    const int connect = FieldInt(values[7]);
    if (connect < 0 || connect > 4) {
        m_cmd.Message(3345, showDialog, connect, values[7], nullptr);
        return -2;
    }
    return result;
}

int CSectionCmd::Sect_(std::string& rest, int showDialog) {
    CStructure& s = Structure();
    double v[12] = {0.0, 0.0, 13.0, 1.0, 1.0, 1.0, 1.0, 1.0, -1.0, 0.0, 0.0};
    std::string text;
    const int check = ValuesAndCheck(kSect, rest, v, 11, text, showDialog);
    if (check < -1) return check;
    CKeySection* section = SectionFor(v, NameOf(text), showDialog);
    if (!section) return -2;
    section->SetMatType(FieldInt(v[3]));
    section->SetMatParNo(FieldInt(v[4]));
    section->SetDesParNo(FieldInt(v[5]));
    section->SetSectDesParNo(FieldInt(v[6]));
    // A frame member typed this way takes the frame's stiffness.
    const bool member = IsFrameMember(FieldInt(v[2]));
    section->SetYoungsModulus(member ? s.GetFrameYModulus() : 0.0);
    section->SetPoisson(member ? s.GetFramePoisson() : 0.0);
    section->SetConnectType(FieldInt(v[7]));
    section->SetConnectSectPointNo(FieldInt(v[8]));
    section->SetDeltaX(v[9]);
    section->SetDeltaY(v[10]);
    NoteSectionChange(v, kCidKeySection);
    return check;
}

// ------------------------------------------------------------------------- DIM

int CSectionCmd::Dim_DataCheck(double* values, int showDialog) {
    if (m_cmd.GetCheckLevel() < 1) return 0;
    const CKeySection* section = FindSection(values, showDialog);
    if (!section) return -2;
    const int type = section->GetType();
    const int count = DimensionCount(type);
    if (count == 0) {
        m_cmd.Message(3055, showDialog, type, 0.0, nullptr);
        return -2;
    }
    // Outlines need a size; stiffness values and walls may be 0.
    const bool outline = (type >= 2 && type <= 5) || type == 11 || type == 12;
    for (int i = 0; i < count; ++i) {
        const double d = values[2 + i];
        if (d < 0.0 || (outline && i == 0 && d <= 0.0) ||
            (outline && i == 1 && type != 2 && type != 12 && d <= 0.0)) {
            m_cmd.Message(3106, showDialog, i + 1, d, nullptr);
            return -2;
        }
    }
    return 0;
}

int CSectionCmd::Dim_(std::string& rest, int showDialog) {
    double v[11] = {0.0};
    std::string text;
    const int check = ValuesAndCheck(kDim, rest, v, 10, text, showDialog);
    if (check < -1) return check;
    CKeySection* section = FindSection(v, showDialog);
    if (!section) return -2;
    const int type = section->GetType();
    const double scale = type >= 2 && type <= 5 ? kMm : 1.0;
    for (int i = 0; i < DimensionCount(type); ++i) section->SetSpecParam(i, v[2 + i] * scale);
    NoteSectionChange(v, kCidKeySection);
    return check;
}

// ------------------------------------------------------------------------- PT, SECTPT

int CSectionCmd::Pt_DataCheck(double* values, int showDialog) {
    if (m_cmd.GetCheckLevel() < 1) return 0;
    const CKeySection* section = FindSection(values, showDialog);
    if (!section) return -2;
    if (!(values[2] > 0.0)) {
        m_cmd.Message(3128, showDialog, FieldInt(values[2]), values[2], nullptr);
        return -2;
    }
    const int kind = FieldInt(values[3]);
    if (kind != 0 && kind != 1 && kind != -1) {
        m_cmd.Message(3332, showDialog, kind, values[3], nullptr);
        return -2;
    }
    if (m_cmd.GetCheckLevel() >= 2 && section->GetSectPointPtr(values[2])) {
        m_cmd.Message(2023, showDialog, FieldInt(values[2]), values[2], nullptr);
        return -1;
    }
    return 0;
}

int CSectionCmd::Pt_(std::string& rest, int showDialog) {
    double v[7] = {0.0, 0.0, 0.0, 1.0, 0.0, 0.0};
    std::string text;
    const int check = ValuesAndCheck(kPt, rest, v, 6, text, showDialog);
    if (check < -1) return check;
    CKeySection* section = FindSection(v, showDialog);
    if (!section) return -2;
    const double scale = PointScale(*section);
    const CSectPoint point = FieldInt(v[3]) == -1 ? CSectPoint(v[2], -1, v[4] * scale, 0.0)
                                                  : CSectPoint(v[2], 0, v[4] * scale, v[5] * scale);
    // A number that is there already is given anew in its place in the outline.
    if (CSectPoint* held = section->GetSectPointPtr(v[2]))
        *held = point;
    else
        section->AddSectPoint(std::make_unique<CSectPoint>(point));
    NoteSectionChange(v, kCidSectPoint);
    return check;
}

int CSectionCmd::SectptDataCheck(double* values, int showDialog) {
    if (m_cmd.GetCheckLevel() < 1) return 0;
    const CKeySection* section = FindSection(values, showDialog);
    if (!section) return -2;
    const int polyLine = FieldInt(values[2]);
    if (!(values[3] > 0.0)) {
        m_cmd.Message(3128, showDialog, FieldInt(values[3]), values[3], nullptr);
        return -2;
    }
    const int type = FieldInt(values[4]);
    if (type < -1 || type > 8) {
        m_cmd.Message(3332, showDialog, type, values[4], nullptr);
        return -2;
    }
    if (polyLine < 0 || (polyLine > 0 && !section->GetPolyLinePtr(polyLine))) {
        m_cmd.Message(3333, showDialog, FieldInt(values[3]), values[3], nullptr);
        return -2;
    }
    if (m_cmd.GetCheckLevel() >= 2 && PointOf(*section, polyLine, values[3])) {
        m_cmd.Message(2023, showDialog, FieldInt(values[3]), values[3], nullptr);
        return -1;
    }
    return 0;
}

int CSectionCmd::Sectpt(std::string& rest, int showDialog) {
    double v[18] = {0.0};
    std::string text;
    const int check = ValuesAndCheck(kSectpt, rest, v, 17, text, showDialog);
    if (check < -1) return check;
    CKeySection* section = FindSection(v, showDialog);
    if (!section) return -2;
    const int polyLine = FieldInt(v[2]);
    CPolyLine* line = polyLine > 0 ? section->GetPolyLinePtr(polyLine) : nullptr;
    if (polyLine != 0 && !line) {
        m_cmd.Message(3333, showDialog, FieldInt(v[3]), v[3], nullptr);
        return -2;
    }
    const double scale = PointScale(*section);
    auto point = std::make_unique<CSectPoint>(v[3], FieldInt(v[4]), v[5] * scale, v[6] * scale);
    point->SetGeomData(v + 7);
    point->SetPLine(polyLine);
    if (CSectPoint* held = PointOf(*section, polyLine, v[3]))
        *held = *point;
    else if (line)
        line->AddSectPoint(std::move(point));
    else
        section->AddSectPoint(std::move(point));
    NoteSectionChange(v, kCidSectPoint);
    return check;
}

// ------------------------------------------------------------------------- POLY

int CSectionCmd::PolyDataCheck(double* values, int showDialog) {
    if (m_cmd.GetCheckLevel() < 1) return 0;
    if (!FindSection(values, showDialog)) return -2;
    const int no = FieldInt(values[2]), closed = FieldInt(values[3]), type = FieldInt(values[4]);
    // Polyline 0 is the outline itself.
    if (no < 1 || (closed != 0 && closed != 1)) {
        m_cmd.Message(3004, showDialog, no, values[2], nullptr);
        return -2;
    }
    if (type < 0 || type > 4) {
        m_cmd.Message(3330, showDialog, type, values[4], nullptr);
        return -2;
    }
    return 0;
}

int CSectionCmd::Poly(std::string& rest, int showDialog) {
    double v[6] = {0.0, 0.0, 1.0, 1.0, 1.0};
    std::string text;
    const int check = ValuesAndCheck(kPoly, rest, v, 5, text, showDialog);
    if (check < -1) return check;
    CKeySection* section = FindSection(v, showDialog);
    if (!section) return -2;
    const int no = FieldInt(v[2]), closed = FieldInt(v[3]), type = FieldInt(v[4]);
    // A polyline given again keeps its points.
    if (CPolyLine* line = section->GetPolyLinePtr(no)) {
        line->SetClosed(closed);
        line->SetType(type);
    } else {
        section->AddPolyLine(std::make_unique<CPolyLine>(no, type, closed));
    }
    NoteSectionChange(v, kCidPolyLine);
    return check;
}

// ------------------------------------------------------------------------- PTFUNC

int CSectionCmd::PtfuncDataCheck(double* values, int showDialog) {
    if (m_cmd.GetCheckLevel() < 1) return 0;
    const CKeySection* section = FindSection(values, showDialog);
    if (!section) return -2;
    if (!PointOf(*section, FieldInt(values[2]), values[3])) {
        m_cmd.Message(3333, showDialog, FieldInt(values[3]), values[3], nullptr);
        return -2;
    }
    const int axis = FieldInt(values[4]), law = FieldInt(values[5]);
    // The power law divides the distance by b.
    const bool ok = CheckValue(axis == 1 || axis == 2, values, 4, showDialog) &&
                    CheckValue(law >= 0 && law <= 3, values, 5, showDialog) &&
                    CheckValue(law != 3 || values[7] != 0.0, values, 7, showDialog);
    return ok ? 0 : -2;
}

int CSectionCmd::Ptfunc(std::string& rest, int showDialog) {
    double v[10] = {0.0, 0.0, 0.0, 0.0, 1.0, 1.0};
    std::string text;
    const int check = ValuesAndCheck(kPtfunc, rest, v, 9, text, showDialog);
    if (check < -1) return check;
    CKeySection* section = FindSection(v, showDialog);
    if (!section) return -2;
    CSectPoint* point = PointOf(*section, FieldInt(v[2]), v[3]);
    if (!point) {
        m_cmd.Message(3333, showDialog, FieldInt(v[3]), v[3], nullptr);
        return -2;
    }
    const int axis = FieldInt(v[4]), law = FieldInt(v[5]);
    // The factors are in mm of offset, as the offsets are typed: a, b, c of the cubic law (per
    // m³, m², m of station), c of the linear law, and the amplitude a of the power law, whose b
    // is a station distance (m) and c an exponent.
    const double scale = PointScale(*section);
    double data[3] = {v[6], v[7], v[8]};
    if (law == 1 || law == 2) data[2] *= scale;
    if (law == 2) data[1] *= scale;
    if (law == 2 || law == 3) data[0] *= scale;
    point->SetParaType(axis, law);
    point->SetParaData(axis, law, data);
    NoteSectionChange(v, kCidSectPoint);
    return check;
}

// ------------------------------------------------------------------------- SECTFACE

int CSectionCmd::SectfaceDataCheck(double* values, int showDialog) {
    if (m_cmd.GetCheckLevel() < 1) return 0;
    const CKeySection* section = FindSection(values, showDialog);
    if (!section) return -2;
    if (!section->GetSectPointPtr(values[2])) {
        m_cmd.Message(3052, showDialog, FieldInt(values[2]), values[2], nullptr);
        return -2;
    }
    if (FieldInt(values[3]) < 0) {
        m_cmd.Message(3331, showDialog, FieldInt(values[3]), values[3], nullptr);
        return -2;
    }
    return 0;
}

int CSectionCmd::Sectface(std::string& rest, int showDialog) {
    double v[5] = {0.0};
    std::string text;
    const int check = ValuesAndCheck(kSectface, rest, v, 4, text, showDialog);
    if (check < -1) return check;
    CKeySection* section = FindSection(v, showDialog);
    if (!section) return -2;
    CSectPoint* point = section->GetSectPointPtr(v[2]);
    if (!point) {
        m_cmd.Message(3052, showDialog, FieldInt(v[2]), v[2], nullptr);
        return -2;
    }
    point->SetFaceConnection(FieldInt(v[3]));
    NoteSectionChange(v, kCidSectPoint);
    return check;
}

// ------------------------------------------------------------------------- CONN

int CSectionCmd::ConnDataCheck(double* values, int showDialog) {
    if (m_cmd.GetCheckLevel() < 1) return 0;
    const int kind = FieldInt(values[2]);
    if (kind != 1 && kind != 2) {
        m_cmd.Message(3353, showDialog, kind, values[2], nullptr);
        return -2;
    }
    const CKeySection* section = FindSection(values, showDialog);
    if (!section) return -2;
    if (kind == 2) {
        if (values[3] < 0.0) {
            m_cmd.Message(3352, showDialog, FieldInt(values[3]), values[3], nullptr);
            return -2;
        }
        if (!section->GetSectPointPtr(FieldInt(values[3]))) {
            m_cmd.Message(3052, showDialog, FieldInt(values[3]), values[3], nullptr);
            return -2;
        }
    }
    return 0;
}

int CSectionCmd::Conn(std::string& rest, int showDialog) {
    double v[7] = {0.0, 0.0, 1.0, -1.0, 0.0, 0.0};
    std::string text;
    const int check = ValuesAndCheck(kConn, rest, v, 6, text, showDialog);
    if (check < -1) return check;
    CKeySection* section = FindSection(v, showDialog);
    if (!section) return -2;
    // Kind 1 puts the section's origin, kind 2 its point, at (dx, dy) from the line.
    if (FieldInt(v[2]) == 2) {
        section->SetConnectType(4);
        section->SetConnectSectPointNo(FieldInt(v[3]));
    } else {
        section->SetConnectType(0);
        section->SetConnectSectPointNo(-1);
    }
    section->SetDeltaX(v[4]);
    section->SetDeltaY(v[5]);
    NoteSectionChange(v, kCidKeySection);
    return check;
}

// ------------------------------------------------------------------------- PANEL

int CSectionCmd::PanelDataCheck(double* values, int showDialog) {
    if (m_cmd.GetCheckLevel() < 1) return 0;
    const CKeySection* section = FindSection(values, showDialog);
    if (!section) return -2;
    const int closed = FieldInt(values[7]);
    if (FieldInt(values[2]) < 1 || !(values[6] > 0.0) || (closed != 0 && closed != 1)) {
        m_cmd.Message(3602, showDialog, FieldInt(values[2]), values[2], nullptr);
        return -2;
    }
    for (int i = 4; i <= 5; ++i) {
        if (!PointOf(*section, FieldInt(values[3]), values[i])) {
            m_cmd.Message(3052, showDialog, FieldInt(values[i]), values[i], nullptr);
            return -2;
        }
    }
    return 0;
}

int CSectionCmd::Panel(std::string& rest, int showDialog) {
    double v[9] = {0.0, 0.0, 0.0, 1.0, 0.0, 0.0, 0.0, 0.0};
    std::string text;
    const int check = ValuesAndCheck(kPanel, rest, v, 8, text, showDialog);
    if (check < -1) return check;
    CKeySection* section = FindSection(v, showDialog);
    if (!section) return -2;
    auto panel = std::make_unique<CLineElem>(FieldInt(v[2]), FieldInt(v[3]), v[4], v[5],
                                             v[6] * PointScale(*section), FieldInt(v[7]));
    panel->SetMatParNo(section->GetMatParNo());
    panel->SetDesParNo(section->GetDesParNo());
    section->AddLineElem(std::move(panel));
    NoteSectionChange(v, kCidKeySection);
    return check;
}

} // namespace kelo
