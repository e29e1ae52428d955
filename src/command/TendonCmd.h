#pragma once

#include <string>

namespace kelo {

class CStructure;
class CStructureCmd;
class CTendon;

// The handlers of the prestressing tendon commands. Made by the interpreter, to which it hands its
// handlers and checks.
//
// Units as typed: the area of one tendon in mm², the duct diameter, bundle spacings and offsets
// from a connected tendon in mm, the grout strength in MPa; path offsets in mm (stored in m),
// stations and straight lengths in m; friction per radian, wobble per metre; anchor slip in mm
// for a post-tensioned tendon (type 0) and as a length in m for a pre-tensioned one (type 1);
// shrinkage and creep strains in per mille; relaxation limits, relaxation loss and jacking
// stresses in percent of the characteristic strength.
//
// TENDON makes the tendon, anew when the number exists (its path, losses and stressing go with
// the old one); the other commands change a tendon that exists. Every change marks the tendon as
// not up to date, so that its geometry and losses are worked out again before it is used.
class CTendonCmd {
public:
    // Command numbers of the keyword table.
    static constexpr int kTendon = 110, kTengroup = 111, kTengeo = 112, kTengeon = 113,
                         kTengeol = 114, kTenloss = 115, kTenstress = 116;

    explicit CTendonCmd(CStructureCmd& cmd);
    CTendonCmd(const CTendonCmd&) = delete;
    CTendonCmd& operator=(const CTendonCmd&) = delete;

    // TENDON: number (1), type (0 POST, 1 PRE), material set (1), design set (1), area of one
    // tendon (0), duct diameter (0), grout strength (0), external (0); name.
    int Tendon(std::string& rest, int showDialog);
    int TendonDataCheck(double* values, int showDialog);
    // TENGROUP: tendon (1), tendons in the bundle (1), spacing along L (0), spacing along N (0),
    // connected tendon (0), L offset (0), N offset (0) from the connected tendon.
    int Tengroup(std::string& rest, int showDialog);
    int TengroupDataCheck(double* values, int showDialog);
    // TENGEO: tendon (1), geometry type (0 by elements, 1 by stations, 2 by axes), reference
    // line (0), relative type (1), relative point (-1).
    int Tengeo(std::string& rest, int showDialog);
    int TengeoDataCheck(double* values, int showDialog);
    // TENGEON, TENGEOL: tendon (1), curve type (4), first, last, step (1), start offset, end
    // offset, P (0), S (0). First and last are elements (geometry type 0), stations (1) or axes
    // (2). Each line appends one piece to the path in N (TENGEON) or L (TENGEOL).
    int Tengeon(std::string& rest, int showDialog);
    int TengeonDataCheck(double* values, int showDialog);
    int Tengeol(std::string& rest, int showDialog);
    int TengeolDataCheck(double* values, int showDialog);
    // TENLOSS: tendon (1), friction, wobble, anchor slip, shrinkage, creep, relaxation lower
    // limit, upper limit, relaxation loss at the upper limit.
    int Tenloss(std::string& rest, int showDialog);
    int TenlossDataCheck(double* values, int showDialog);
    // TENSTRESS: tendon (1), jacking stress at end 1 (0), at end 2 (0), stressing code (1: end 1
    // first, 2: end 2 first).
    int Tenstress(std::string& rest, int showDialog);
    int TenstressDataCheck(double* values, int showDialog);

    // Curve types of a path piece that the geometry knows.
    static bool IsValidCurveType(int type) { return type >= 1 && type <= 9; }

private:
    CStructure& Structure() const;
    int ReadValues(int type, std::string& rest, double* values, int count, std::string& text,
                   int showDialog);
    // True when errors are to be looked for; false at check level 0.
    bool ErrorsChecked() const;
    bool WarningsChecked() const;
    // The tendon of values[0]; message 3048 when there is none.
    CTendon* FindTendon(const double* values, int showDialog);
    // 3337 for a value that fails `ok`: x the value, n its place on the line (from 1).
    bool CheckValue(bool ok, const double* values, int index, int showDialog);
    // The shared check and body of TENGEON (dir 2) and TENGEOL (dir 1).
    int PieceCheck(double* values, int showDialog);
    int Piece(int type, int dir, std::string& rest, int showDialog);
    // Marks the tendon for new geometry and losses and notes the change.
    void NoteChange(CTendon& tendon);

    CStructureCmd& m_cmd;
};

} // namespace kelo
