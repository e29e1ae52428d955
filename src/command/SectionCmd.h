#pragma once

#include <string>

namespace kelo {

class CStructureCmd;
class CStructure;
class CKeySection;

// The handlers of the material, design parameter and cross-section commands. Made by the
// interpreter, to which it hands its handlers and checks.
//
// Units as typed: strengths and moduli in MPa, densities in kg/m³, strains in per mille, crack
// widths, spacings and covers in mm; stations and offsets of a section from its line in m;
// dimensions and point coordinates of a section in mm (stored in m), except the stiffness values
// of types 1 and 20 to 22, which are stored as typed. A material or parameter value of
// -1e+101 or lower (the default of those marked "by code") is taken from the project's design
// code. "Parameter number" in message 3337 is the value's place on the line, the first value
// being 1.
//
// A section is addressed by its reference line and station (read to three decimals). XSECT and
// SECT make it or change its heading and keep its points; the other section commands need it.
// The points are resolved and the properties calculated once, at the end of a command file.
class CSectionCmd {
public:
    // Command numbers of the keyword table.
    static constexpr int kPoly = 5, kSectpt = 6, kPtfunc = 8, kMconcr = 22, kMsteel = 23,
                         kMreinf = 24, kMprest = 53, kDpsect = 56, kDpconcr = 57, kDpsteel = 58,
                         kDpreinf = 59, kDpprest = 60, kSectface = 103, kPanel = 108, kXsect = 130,
                         kConn = 131, kDim = 1001, kPt = 1002, kSect = 1004;

    explicit CSectionCmd(CStructureCmd& cmd);
    CSectionCmd(const CSectionCmd&) = delete;
    CSectionCmd& operator=(const CSectionCmd&) = delete;

    // ---- Materials
    // MCONCR: number, strength (45), density (2400 under NS3473_4, BBK94 and BS5400, else 2200),
    // by code: fcck, fcm, fctm, Ecm, Eck, epsc2, epscu, curve exponent n, modulus for stiffness;
    // thermal expansion (1e-5), age (70); name.
    int Mconcr(std::string& rest, int showDialog);
    int MconcrDataCheck(double* values, int showDialog);
    // MSTEEL: number (1), fy (225), E (210000), density (7850), fu (340), strain limit (12),
    // thermal expansion (1.2e-5), Poisson (0.3), modulus for stiffness (210000), hardening
    // modulus (0); name.
    int Msteel(std::string& rest, int showDialog);
    int MsteelDataCheck(double* values, int showDialog);
    // MREINF: number, fsk (500), E (200000), strain limit (10), class (3), curve (1), ft (520).
    int Mreinf(std::string& rest, int showDialog);
    int MreinfDataCheck(double* values, int showDialog);
    // MPREST, MTEND: number, fsk (1670), E (195000), strain limit (10), class (1), curve (1),
    // ft (1736.8).
    int Mprest(std::string& rest, int showDialog);
    int MprestDataCheck(double* values, int showDialog);

    // ---- Design parameter sets
    // DPCONCR: number, material factors of ULS, PLS, SLS (1.4, 1.2, 1), strain limits (3.5 each).
    int Dpconcr(std::string& rest, int showDialog);
    int DpconcrDataCheck(double* values, int showDialog);
    // DPSTEEL: number (1), ULS factor (1.15), the other factors (1), ULS strain limit (12), the
    // other strain limits (12).
    int Dpsteel(std::string& rest, int showDialog);
    int DpsteelDataCheck(double* values, int showDialog);
    // DPREINF and DPPREST, DPTEND: number, then by code the factors of ULS, PLS, SLS, K1, bond
    // coefficient, kt, wk max, srm max, cover, scale wk (0/1) and the strain limit of all limit
    // states.
    int Dpreinf(std::string& rest, int showDialog);
    int DpreinfDataCheck(double* values, int showDialog);
    int Dpprest(std::string& rest, int showDialog);
    int DpprestDataCheck(double* values, int showDialog);
    // DPSECT: number, material (CONCR), then by code the fields of the section set in order from
    // the buckling length about X to the creep factor (fourteen), and on to the last.
    int Dpsect(std::string& rest, int showDialog);
    int DpsectDataCheck(double* values, int showDialog);

    // ---- Sections
    // XSECT: line, station, type (13), material (CONCR), material set (1), design set (1),
    // section design set (1); name. Types 1 to 5 take E (the frame's) and Poisson instead.
    int Xsect(std::string& rest, int showDialog);
    int XsectDataCheck(double* values, int showDialog);
    // SECT: line, station, type (13), material (CONCR), material set (1), design set (1), section
    // design set (1), connection type (1), connection point (-1), dx, dy; name.
    int Sect_(std::string& rest, int showDialog);
    int Sect_DataCheck(double* values, int showDialog);
    // DIM: line, station, up to eight dimensions, as many as the type has.
    int Dim_(std::string& rest, int showDialog);
    int Dim_DataCheck(double* values, int showDialog);
    // PT: line, station, point, kind (1: a point at x, y; RAD: a bow of radius x), x, y.
    int Pt_(std::string& rest, int showDialog);
    int Pt_DataCheck(double* values, int showDialog);
    // SECTPT: line, station, polyline (0: the outline), point, type (0), dx, dy, and the ten
    // references of its definition.
    int Sectpt(std::string& rest, int showDialog);
    int SectptDataCheck(double* values, int showDialog);
    // POLY: line, station, polyline (1), closed (1), type (1).
    int Poly(std::string& rest, int showDialog);
    int PolyDataCheck(double* values, int showDialog);
    // PTFUNC: line, station, polyline (0), point, axis (1 X, 2 Y), law (1), a, b, c.
    int Ptfunc(std::string& rest, int showDialog);
    int PtfuncDataCheck(double* values, int showDialog);
    // SECTFACE: line, station, point, face connection code.
    int Sectface(std::string& rest, int showDialog);
    int SectfaceDataCheck(double* values, int showDialog);
    // CONN: line, station, kind (1: the section's origin, 2: a point), point, dx, dy: where the
    // line meets the section, (dx, dy) m to the right and up from the line.
    int Conn(std::string& rest, int showDialog);
    int ConnDataCheck(double* values, int showDialog);
    // PANEL: line, station, panel, polyline (1), point 1, point 2, thickness, closed (0).
    int Panel(std::string& rest, int showDialog);
    int PanelDataCheck(double* values, int showDialog);

    // How many dimensions DIM gives a section of a type; 0 for a type drawn point by point.
    static int DimensionCount(int type);
    // Section types that the commands make: stiffness, frame members, design rectangle and
    // circle, general solid and panel, miscellaneous, springs, and sections of elements.
    static bool IsValidSectionType(int type);

private:
    CStructure& Structure() const;
    int ValuesAndCheck(int type, const std::string& rest, double* values, int count,
                       std::string& text, int showDialog);
    // 3337 for a value that fails `ok`: x the value, n its place on the line (from 1).
    bool CheckValue(bool ok, const double* values, int index, int showDialog);
    // The section at (values[0], values[1]); 3015 when there is none.
    CKeySection* FindSection(const double* values, int showDialog);
    // The checks XSECT and SECT share: line, type, material and its sets, and the station
    // against the line's extent. kindMessage is the number for a wrong material kind.
    int SectionHeadCheck(const double* values, int kindMessage, int showDialog);
    // Makes the section at (line, station), or finds the one there, and gives it its type and
    // name. Null with 3010 when the line is missing.
    CKeySection* SectionFor(const double* values, const std::string& name, int showDialog);
    // Material checks shared by reinforcing and prestressing steel.
    int BarMatCheck(double* values, int showDialog);
    // Design sets of steel in concrete: values by code filled in, then checked.
    int BarDesCheck(double* values, int showDialog);
    void NoteSectionChange(const double* values, int code);

    CStructureCmd& m_cmd;
};

} // namespace kelo
