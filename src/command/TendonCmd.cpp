#include "command/TendonCmd.h"

#include "command/StructureCmd.h"
#include "geometry/RefLine.h"
#include "geometry/Tendon.h"
#include "model/Structure.h"
#include "platform/Text.h"

#include <climits>
#include <cmath>
#include <memory>
#include <unordered_set>

namespace kelo {

namespace {

// Names are cut to what the listings and the store hold.
constexpr std::size_t kNameLength = 30;
// Offsets of the path are typed in millimetres and held in metres.
constexpr double kMm = 0.001;
// The store has no change code of its own for tendons: they are noted as the prestress groups
// that they become in section design.
constexpr int kCidPrestGroup = 311;
constexpr int kWrite = 5;
// An end to ranges of elements such as 1 1E9 that would only spend time on warnings.
constexpr double kMaxRangeCount = 1000000.0;

std::string NameOf(const std::string& text) { return CutName(Trim(text), kNameLength); }

} // namespace

CTendonCmd::CTendonCmd(CStructureCmd& cmd) : m_cmd(cmd) {
    auto reg = [this](int type, int (CTendonCmd::*handler)(std::string&, int),
                      int (CTendonCmd::*check)(double*, int)) {
        m_cmd.RegisterHandler(
            type, [this, handler](std::string& r, int d) { return (this->*handler)(r, d); },
            [this, check](double* v, int d) { return (this->*check)(v, d); });
    };
    reg(kTendon, &CTendonCmd::Tendon, &CTendonCmd::TendonDataCheck);
    reg(kTengroup, &CTendonCmd::Tengroup, &CTendonCmd::TengroupDataCheck);
    reg(kTengeo, &CTendonCmd::Tengeo, &CTendonCmd::TengeoDataCheck);
    reg(kTengeon, &CTendonCmd::Tengeon, &CTendonCmd::TengeonDataCheck);
    reg(kTengeol, &CTendonCmd::Tengeol, &CTendonCmd::TengeolDataCheck);
    reg(kTenloss, &CTendonCmd::Tenloss, &CTendonCmd::TenlossDataCheck);
    reg(kTenstress, &CTendonCmd::Tenstress, &CTendonCmd::TenstressDataCheck);
}

// ------------------------------------------------------------------------- shared steps

CStructure& CTendonCmd::Structure() const { return *m_cmd.GetStructure(); }

int CTendonCmd::ReadValues(int type, std::string& rest, double* values, int count,
                           std::string& text, int showDialog) {
    text.clear();
    if (m_cmd.CommandValues(rest, values, count, text, showDialog) < 0) return -2;
    const int check = m_cmd.DataCheck(type, values, showDialog);
    return check < -1 ? -2 : check;
}

bool CTendonCmd::ErrorsChecked() const { return m_cmd.GetCheckLevel() >= 1; }

bool CTendonCmd::WarningsChecked() const { return m_cmd.GetCheckLevel() >= 2; }

CTendon* CTendonCmd::FindTendon(const double* values, int showDialog) {
    CTendon* tendon = Structure().GetTendonPtr(FieldInt(values[0]));
    if (!tendon) m_cmd.Message(3048, showDialog, FieldInt(values[0]), values[0], nullptr);
    return tendon;
}

bool CTendonCmd::CheckValue(bool ok, const double* values, int index, int showDialog) {
    if (!ok) m_cmd.Message(3337, showDialog, index + 1, values[index], nullptr);
    return ok;
}

void CTendonCmd::NoteChange(CTendon& tendon) {
    tendon.SetUpdated(0);
    const double numbers[5] = {static_cast<double>(tendon.GetNo()), 0.0, 0.0, 0.0, 0.0};
    m_cmd.AddChange(kCidPrestGroup, numbers, kWrite);
}

// ------------------------------------------------------------------------- TENDON

int CTendonCmd::TendonDataCheck(double* values, int showDialog) {
    if (!ErrorsChecked()) return 0;
    const int no = FieldInt(values[0]);
    if (no < 1) {
        m_cmd.Message(3134, showDialog, no, values[0], nullptr);
        return -2;
    }
    const int type = FieldInt(values[1]);
    if (type != 0 && type != 1) {
        m_cmd.Message(3349, showDialog, type, values[1], nullptr);
        return -2;
    }
    CStructure& s = Structure();
    if (!s.GetPrestMatParPtr(FieldInt(values[2]))) {
        m_cmd.Message(3042, showDialog, FieldInt(values[2]), values[2], nullptr);
        return -2;
    }
    if (!s.GetPrestDesParPtr(FieldInt(values[3]))) {
        m_cmd.Message(3043, showDialog, FieldInt(values[3]), values[3], nullptr);
        return -2;
    }
    for (int i = 4; i <= 6; ++i)
        if (!CheckValue(values[i] >= 0.0, values, i, showDialog)) return -2;
    if (WarningsChecked() && s.GetTendonPtr(no)) {
        m_cmd.Message(2026, showDialog, no, values[0], nullptr);
        return -1;
    }
    return 0;
}

int CTendonCmd::Tendon(std::string& rest, int showDialog) {
    double v[9] = {1.0, 0.0, 1.0, 1.0, 0.0, 0.0, 0.0, 0.0};
    std::string text;
    const int check = ReadValues(kTendon, rest, v, 8, text, showDialog);
    if (check < -1) return check;
    auto tendon = std::make_unique<CTendon>(FieldInt(v[0]), NameOf(text));
    tendon->SetType(FieldInt(v[1]));
    tendon->SetMatParNo(FieldInt(v[2]));
    tendon->SetDesParNo(FieldInt(v[3]));
    tendon->SetArea(v[4]);
    tendon->SetDuctDiameter(v[5]);
    tendon->SetGroutStrength(v[6]);
    tendon->SetExternal(FieldInt(v[7]) != 0 ? 1 : 0);
    CTendon* added = Structure().AddTendon(std::move(tendon));
    NoteChange(*added);
    return check;
}

// ------------------------------------------------------------------------- TENGROUP

int CTendonCmd::TengroupDataCheck(double* values, int showDialog) {
    if (!ErrorsChecked()) return 0;
    CTendon* tendon = FindTendon(values, showDialog);
    if (!tendon) return -2;
    if (!CheckValue(FieldInt(values[1]) >= 1, values, 1, showDialog) ||
        !CheckValue(values[2] >= 0.0, values, 2, showDialog) ||
        !CheckValue(values[3] >= 0.0, values, 3, showDialog))
        return -2;
    const int connect = FieldInt(values[4]);
    if (connect == 0) return 0;
    CStructure& s = Structure();
    if (connect < 0 || !s.GetTendonPtr(connect)) {
        m_cmd.Message(3044, showDialog, connect, values[4], nullptr);
        return -2;
    }
    // The path of a connected tendon is read through the chain of its connections, which must
    // end: a chain that comes back to this tendon is refused.
    std::unordered_set<int> seen{tendon->GetNo()};
    for (const CTendon* t = s.GetTendonPtr(connect); t; t = s.GetTendonPtr(t->GetConnectTendon())) {
        if (!seen.insert(t->GetNo()).second) {
            m_cmd.Message(3004, showDialog, connect, values[4], nullptr);
            return -2;
        }
        if (t->GetConnectTendon() == 0) break;
    }
    return 0;
}

int CTendonCmd::Tengroup(std::string& rest, int showDialog) {
    double v[8] = {1.0, 1.0, 0.0, 0.0, 0.0, 0.0, 0.0};
    std::string text;
    const int check = ReadValues(kTengroup, rest, v, 7, text, showDialog);
    if (check < -1) return check;
    CTendon* tendon = Structure().GetTendonPtr(FieldInt(v[0]));
    if (!tendon) return -2;
    tendon->SetNoOfTendons(std::max(1, FieldInt(v[1])));
    tendon->SetSpaceLDir(v[2]);
    tendon->SetSpaceNDir(v[3]);
    tendon->SetConnectTendon(FieldInt(v[4]));
    tendon->SetLOffset(v[5]);
    tendon->SetNOffset(v[6]);
    NoteChange(*tendon);
    return check;
}

// ------------------------------------------------------------------------- TENGEO

int CTendonCmd::TengeoDataCheck(double* values, int showDialog) {
    if (!ErrorsChecked()) return 0;
    if (!FindTendon(values, showDialog)) return -2;
    const int geomType = FieldInt(values[1]);
    if (geomType < 0 || geomType > 2) {
        m_cmd.Message(3346, showDialog, geomType, values[1], nullptr);
        return -2;
    }
    const int line = FieldInt(values[2]);
    if (geomType != 0 && !Structure().GetRefLinePtr(line)) {
        m_cmd.Message(3010, showDialog, line, values[2], nullptr);
        return -2;
    }
    const int relative = FieldInt(values[3]);
    if (!CheckValue(relative >= 1 && relative <= 5, values, 3, showDialog)) return -2;
    return 0;
}

int CTendonCmd::Tengeo(std::string& rest, int showDialog) {
    double v[6] = {1.0, 0.0, 0.0, 1.0, -1.0};
    std::string text;
    const int check = ReadValues(kTengeo, rest, v, 5, text, showDialog);
    if (check < -1) return check;
    CTendon* tendon = Structure().GetTendonPtr(FieldInt(v[0]));
    if (!tendon) return -2;
    tendon->SetGeomType(FieldInt(v[1]));
    tendon->SetRefLineNo(FieldInt(v[2]));
    tendon->SetRelativeType(FieldInt(v[3]));
    tendon->SetRelPointNo(FieldInt(v[4]));
    NoteChange(*tendon);
    return check;
}

// ------------------------------------------------------------------------- TENGEON, TENGEOL

int CTendonCmd::PieceCheck(double* values, int showDialog) {
    // The range of elements is completed as every range is, before the level is looked at; for
    // stations and axes the first and last stand as they are.
    CStructure& s = Structure();
    const CTendon* tendon = s.GetTendonPtr(FieldInt(values[0]));
    const int geomType = tendon ? tendon->GetGeomType() : 0;
    int result = 0;
    if (geomType == 0) {
        for (int i = 2; i <= 4; ++i) values[i] = FieldInt(values[i]);
        result = m_cmd.StepCheck(2, values, showDialog);
        if (result < -1) return result;
        if ((values[3] - values[2]) / values[4] + 1.0 > kMaxRangeCount) {
            m_cmd.Message(3004, showDialog, 0, values[3], nullptr);
            return -2;
        }
    }
    if (!ErrorsChecked()) return 0;
    if (!tendon) {
        m_cmd.Message(3048, showDialog, FieldInt(values[0]), values[0], nullptr);
        return -2;
    }
    const int curve = FieldInt(values[1]);
    if (!IsValidCurveType(curve)) {
        m_cmd.Message(3347, showDialog, curve, values[1], nullptr);
        return -2;
    }
    // The joint of the two parabolas lies at 1 - P of the piece; the straight part of types 8
    // and 9 has a length.
    if (curve == 5 && !CheckValue(values[7] >= 0.0 && values[7] <= 1.0, values, 7, showDialog))
        return -2;
    if ((curve == 8 || curve == 9) && !CheckValue(values[8] >= 0.0, values, 8, showDialog))
        return -2;
    if (geomType == 1 && !CheckValue(values[3] > values[2], values, 3, showDialog)) return -2;
    if (geomType == 2) {
        const CRefLine* line = s.GetRefLinePtr(tendon->GetRefLineNo());
        for (int i = 2; i <= 3; ++i) {
            if (!line || !line->GetAxisPtr(FieldInt(values[i]))) {
                m_cmd.Message(3036, showDialog, FieldInt(values[i]), values[i], nullptr);
                return -2;
            }
        }
    }
    if (geomType == 0 && WarningsChecked()) {
        const int step = FieldInt(values[4]);
        for (long long no = FieldInt(values[2]);
             step != 0 && CStructureCmd::LessOrEqual(static_cast<int>(no), &values[2]);
             no += step) {
            if (s.GetElementPtr(static_cast<int>(no))) continue;
            m_cmd.Message(2027, showDialog, static_cast<int>(no), 0.0, nullptr);
            result = -1;
        }
    }
    return result;
}

int CTendonCmd::Piece(int type, int dir, std::string& rest, int showDialog) {
    double v[10] = {1.0, 4.0, 0.0, 0.0, 1.0, 0.0, 0.0, 0.0, 0.0};
    std::string text;
    const int check = ReadValues(type, rest, v, 9, text, showDialog);
    if (check < -1) return check;
    CTendon* tendon = Structure().GetTendonPtr(FieldInt(v[0]));
    if (!tendon) return -2;
    auto piece = std::make_unique<CTendonGeom>(FieldInt(v[1]), dir);
    // Both readings of first and last are kept, so that the piece stands whichever geometry
    // type the tendon is given later.
    piece->SetElements(FieldInt(v[2]), FieldInt(v[3]), FieldInt(v[4]));
    piece->SetStations(v[2], v[3]);
    piece->SetValues(v[5] * kMm, v[6] * kMm, v[7], v[8]);
    if (dir == 2)
        tendon->AddTendonGeomN(std::move(piece));
    else
        tendon->AddTendonGeomL(std::move(piece));
    NoteChange(*tendon);
    return check;
}

int CTendonCmd::TengeonDataCheck(double* values, int showDialog) {
    return PieceCheck(values, showDialog);
}

int CTendonCmd::TengeolDataCheck(double* values, int showDialog) {
    return PieceCheck(values, showDialog);
}

int CTendonCmd::Tengeon(std::string& rest, int showDialog) {
    return Piece(kTengeon, 2, rest, showDialog);
}

int CTendonCmd::Tengeol(std::string& rest, int showDialog) {
    return Piece(kTengeol, 1, rest, showDialog);
}

// ------------------------------------------------------------------------- TENLOSS

int CTendonCmd::TenlossDataCheck(double* values, int showDialog) {
    if (!ErrorsChecked()) return 0;
    const CTendon* tendon = FindTendon(values, showDialog);
    if (!tendon) return -2;
    // How the slip is read depends on the kind of the tendon: a slip in mm with its zone by the
    // friction curve, or a length in m over which it is taken off linearly.
    if (tendon->GetType() != 0 && tendon->GetType() != 1) {
        m_cmd.Message(3348, showDialog, tendon->GetType(), values[0], nullptr);
        return -2;
    }
    for (int i = 1; i <= 8; ++i)
        if (!CheckValue(values[i] >= 0.0, values, i, showDialog)) return -2;
    // A relaxation loss needs limits that span a range of stress.
    if (values[8] > 0.0 && !CheckValue(values[7] > values[6], values, 7, showDialog)) return -2;
    return 0;
}

int CTendonCmd::Tenloss(std::string& rest, int showDialog) {
    double v[10] = {1.0};
    std::string text;
    const int check = ReadValues(kTenloss, rest, v, 9, text, showDialog);
    if (check < -1) return check;
    CTendon* tendon = Structure().GetTendonPtr(FieldInt(v[0]));
    if (!tendon) return -2;
    tendon->SetLossParam(v[1], v[2], v[3], v[4], v[5], v[6], v[7], v[8]);
    NoteChange(*tendon);
    return check;
}

// ------------------------------------------------------------------------- TENSTRESS

int CTendonCmd::TenstressDataCheck(double* values, int showDialog) {
    if (!ErrorsChecked()) return 0;
    if (!FindTendon(values, showDialog)) return -2;
    // Jacking stresses are parts of the characteristic strength.
    for (int i = 1; i <= 2; ++i)
        if (!CheckValue(values[i] >= 0.0 && values[i] <= 100.0, values, i, showDialog)) return -2;
    const int code = FieldInt(values[3]);
    if (code != 1 && code != 2) {
        m_cmd.Message(3355, showDialog, code, values[3], nullptr);
        return -2;
    }
    return 0;
}

int CTendonCmd::Tenstress(std::string& rest, int showDialog) {
    double v[5] = {1.0, 0.0, 0.0, 1.0};
    std::string text;
    const int check = ReadValues(kTenstress, rest, v, 4, text, showDialog);
    if (check < -1) return check;
    CTendon* tendon = Structure().GetTendonPtr(FieldInt(v[0]));
    if (!tendon) return -2;
    tendon->SetStressParam(v[1], v[2], FieldInt(v[3]));
    NoteChange(*tendon);
    return check;
}

} // namespace kelo
