#pragma once

#include "platform/Field.h"
#include "platform/ObList.h"
#include "platform/Object.h"

#include <memory>
#include <string>

namespace kelo {

class CKeySection;
class CWorkSection;

// One prestressing cable of a tendon group: its place in the section (m) and what the design
// works out for it. Diameters, covers and spacings in mm; strains in per mille, stresses kN/m².
class CPrest : public CObject {
public:
    CPrest() = default;
    CPrest(int no, std::string name, double x, double y)
        : No(no), Name(std::move(name)), X(x), Y(y) {}
    int KeyNo() const { return No; }

    KELO_FIELD(int, No, 0)
    KELO_FIELD(std::string, Name, "")
    KELO_FIELD(double, X, 0.0)
    KELO_FIELD(double, Y, 0.0)
    KELO_FIELD(double, X2, 0.0)
    KELO_FIELD(double, Y2, 0.0)
    KELO_FIELD(double, Rotation, 0.0)
    KELO_FIELD(double, Diameter, 0.0)
    KELO_FIELD(double, DuctDiameter, 0.0)
    KELO_FIELD(double, BarsPrBundle, 1.0)
    KELO_FIELD(int, Selected, 0)
    KELO_FIELD(int, InOuterLayer, 0)
    KELO_FIELD(double, Cover, 0.0)
    KELO_FIELD(double, Spacing, 0.0)
    KELO_FIELD(double, Thickness, 0.0)
    KELO_FIELD(double, Eps, 0.0)
    KELO_FIELD(double, Sig, 0.0)
    KELO_FIELD(double, Wk, 0.0)
    KELO_FIELD(double, Srm, 0.0)
    KELO_FIELD(double, R, 0.0)
    KELO_FIELD(int, NoCrack, 0)
    // Strain (per mille) the cable takes on at prestress equilibrium, added to its own.
    KELO_FIELD(double, AddEpssi, 0.0)
};

// A section's tendon group: the cables of one tendon (or a laid-out group of cables) with their
// material, area and initial strain. It belongs to a key section or to a work section; the
// back-pointer of the other kind is null.
class CPrestGroup : public CObject {
public:
    CPrestGroup() = default;
    CPrestGroup(int no, std::string name) : No(no), Name(std::move(name)) {}
    int KeyNo() const { return No; }

    KELO_FIELD(int, No, 0)
    KELO_FIELD(std::string, Name, "")
    // 0: the tendon is post-tensioned and its group joins the post-tensioning steps of the
    // design; non-zero (pretensioned): the group is left out of them.
    KELO_FIELD(int, PrestType, 0)
    KELO_FIELD(int, Description, 0)
    KELO_FIELD(int, NumOfCables, 0)
    // Duct diameter (mm).
    KELO_FIELD(double, DuctDiam, 0.0)
    KELO_FIELD(int, PrestMatParNo, 1)
    KELO_FIELD(int, PrestDesParNo, 1)
    KELO_FIELD(int, Type, 1)
    // Steel area of one cable (mm²).
    KELO_FIELD(double, PrestArea, 0.0)
    KELO_FIELD(int, TendonNo, 0)
    KELO_ARRAY_FIELD(double, Inclination, 2)
    KELO_FIELD(double, CrackSpacing, 0.0)
    KELO_FIELD(int, PolyLineNo1, 0)
    KELO_FIELD(double, PointNo1, 0.0)
    KELO_FIELD(int, PolyLineNo2, 0)
    KELO_FIELD(double, PointNo2, 0.0)
    KELO_FIELD(int, PolyLineNo3, 0)
    KELO_FIELD(double, PointNo3, 0.0)
    KELO_FIELD(int, Direction, 0)
    // Length of the face and spacing of the cables along it (mm).
    KELO_FIELD(double, FaceLength, 0.0)
    KELO_FIELD(double, CableSpacing, 0.0)
    KELO_FIELD(double, EffThick, 0.0)
    KELO_FIELD(double, Rotation, 0.0)
    KELO_FIELD(double, Cover1, 0.0)
    KELO_FIELD(double, Cover2, 0.0)
    KELO_FIELD(double, LatCover1, 0.0)
    KELO_FIELD(double, LatCover2, 0.0)
    KELO_FIELD(double, StartSect, 0.0)
    KELO_FIELD(double, EndSect, 0.0)
    KELO_FIELD(double, X1, 0.0)
    KELO_FIELD(double, Y1, 0.0)
    KELO_FIELD(double, X2, 0.0)
    KELO_FIELD(double, Y2, 0.0)
    KELO_FIELD(int, FaceConnection, 0)
    KELO_FIELD(int, SectEdgeCode, 0)
    KELO_FIELD(int, LatLocCode, 0)
    KELO_FIELD(int, Selected, 0)
    // Initial strain of the cables, a plain ratio.
    KELO_FIELD(double, Epssi, 0.0)
    // Steel area (mm²), its second moments about the section axes and its centre (m).
    KELO_FIELD(double, As, 0.0)
    KELO_ARRAY_FIELD(double, Is, 2)
    KELO_ARRAY_FIELD(double, CoG, 2)
    KELO_FIELD(int, CrackFlag, 0)
    KELO_FIELD(CKeySection*, KeySectionPtr, nullptr)
    KELO_FIELD(CWorkSection*, WorkSectionPtr, nullptr)

public:
    COwnedList<CPrest>* GetPrestList() { return &PrestList; }
    const COwnedList<CPrest>* GetPrestList() const { return &PrestList; }
    CPrest* AddPrest(std::unique_ptr<CPrest> prest) { return PrestList.Add(std::move(prest)); }
    // Steel area (cables times PrestArea) and the centre of the cables.
    void CalculateAs();
    void CalculateCoG();

private:
    COwnedList<CPrest> PrestList;
};

} // namespace kelo
