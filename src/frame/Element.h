#pragma once

#include "frame/ElementSectParam.h"
#include "platform/Field.h"
#include "platform/ObList.h"
#include "platform/Object.h"

#include <array>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace kelo {

class CNode;
class CKeySection;
class CStructure;
class CMember;
class CLoad;

// A point along an element where results are designed: position and the node whose
// displacement belongs to it.
class CDesignSection : public CObject {
public:
    CDesignSection() = default;
    CDesignSection(double xOverL, int isSteel, int nodeDisplace)
        : XoverL(xOverL), IsASteelSection(isSteel), NodeDisplace(nodeDisplace) {}
    KELO_FIELD(double, X, 0.0)
    KELO_FIELD(double, Y, 0.0)
    KELO_FIELD(double, Z, 0.0)
    KELO_FIELD(double, XoverL, 0.0)
    KELO_FIELD(int, IsASteelSection, 0)
    KELO_FIELD(int, NodeDisplace, 0)
};

// An axial force for geometric stiffness: 1 given, 2 from a pre-analysis, 3 from results.
class CAxial : public CObject {
public:
    CAxial() = default;
    KELO_FIELD(int, ElementNo, 0)
    KELO_FIELD(int, Type, 1)
    KELO_FIELD(double, AxialValue, 0.0)
    KELO_FIELD(double, MLValue, 0.0)
    KELO_FIELD(double, MNValue, 0.0)
    KELO_FIELD(int, LoadcaseNo, 0)
    KELO_FIELD(double, LoadcaseFac, 1.0)
    KELO_FIELD(class CElement*, ElemPtr, nullptr)
};

// A mass on an element (tons): type 1, 3, 4 or 5, direction 0..3, two values not negative.
class CMass : public CObject {
public:
    CMass() = default;
    CMass(int elementNo, int type, int direction, double m1, double m2)
        : ElementNo(elementNo), Type(type), Direction(direction), MassValues{m1, m2} {}
    KELO_FIELD(int, ElementNo, 0)
    KELO_FIELD(int, Type, 1)
    KELO_FIELD(int, Direction, 0)
    KELO_ARRAY_FIELD(double, MassValues, 2)
    KELO_FIELD(class CElement*, ElemPtr, nullptr)
};

// A beam or spring element of the frame. Negative numbers are temporary elements of an analysis.
class CElement : public CObject {
public:
    CElement() = default;
    CElement(int no, int node1, int node2, int node3, int section)
        : No(no), NodeNo1(node1), NodeNo2(node2), NodeNo3(node3), SectionNo(section) {}
    CElement(const CElement& other);
    CElement& operator=(const CElement&) = delete;

    int KeyNo() const { return No; }

    COwnedList<CDesignSection>& GetDesignSectionList() { return DesignSectionList; }
    const COwnedList<CDesignSection>& GetDesignSectionList() const { return DesignSectionList; }
    COwnedList<CAxial>& GetAxialList() { return AxialList; }
    const COwnedList<CAxial>& GetAxialList() const { return AxialList; }
    COwnedList<CMass>& GetMassList() { return MassList; }
    const COwnedList<CMass>& GetMassList() const { return MassList; }

    // Adds a design section at each position x/l (0 to 1) that the list does not hold yet, and
    // keeps the list in order along the element. A section at an end belongs to that end's node;
    // its coordinates are interpolated between the nodes when both are known.
    void UpdateSectionList(const std::vector<double>& positions);
    // Adds the nine values of one more wind area to the element's sums.
    void AddWindArea(const double* values);

    // ---- The element's section (see ElementSectParam.h)
    // The reference line and the stations of the element's ends that its section is made at.
    // Both nodes on one line: that line and their stations. On two lines: the line the element
    // runs along (its direction within 0.05 of the line's), measured out from the node on it by
    // the element's length. viaSection 1 when the element's own section on line 0 serves.
    // Answers 1, or 0 for an element without both nodes or of a negative number.
    int FindReflineConnection(CStructure* structure, int* refLineNo, double* station1,
                              double* station2, int* viaSection) const {
        return CElementSectParam::FindReflineConnection(*this, structure, refLineNo, station1,
                                                        station2, viaSection);
    }
    // A, IL, IM, IN (m², m⁴), E, G (MPa), ν, and where asked h0 (mm), RH (%), fck (MPa): values
    // given to the element if it holds any, else those of its own section, else the means of the
    // sections made on its line at its two ends. Answers 1, or 0 when there is no section.
    int CalcElementSectParam(CStructure* structure, double* a, double* il, double* im, double* in,
                             double* e, double* poisson, double* g, double* h0 = nullptr,
                             double* rh = nullptr, double* fck = nullptr) const {
        CElementSectParam v;
        if (!CalcElementSectParam(structure, v)) return 0;
        for (auto [out, value] : {std::pair{a, v.GetA()},
                                  {il, v.GetIL()},
                                  {im, v.GetIM()},
                                  {in, v.GetIN()},
                                  {e, v.GetYoungsModulus()},
                                  {poisson, v.GetPoisson()},
                                  {g, v.GetShearModulus()},
                                  {h0, v.GetH0()},
                                  {rh, v.GetRH()},
                                  {fck, v.GetFck()}})
            if (out) *out = value;
        return 1;
    }
    int CalcElementSectParam(CStructure* structure, CElementSectParam& out) const {
        return CElementSectParam::Calc(*this, structure, out);
    }
    // Section values given to the element directly, which take the place of its section's. A
    // copy of the element does not take them over.
    const CElementSectParam* GetOwnSectParam() const {
        return OwnSectParam ? &*OwnSectParam : nullptr;
    }
    void SetOwnSectParam(const CElementSectParam& values) { OwnSectParam = values; }
    void ClearOwnSectParam() { OwnSectParam.reset(); }

private:
    std::optional<CElementSectParam> OwnSectParam;

public:
    // Local axes in rows L, M, N against global X, Y, Z.
    double GetTransMatrix(int row, int col) const { return TransMatrix[row][col]; }
    void SetTransMatrix(int row, int col, double v) { TransMatrix[row][col] = v; }

    // Sums over the axial list: the axial force (kN, compression negative) and the moments about
    // L and N (kNm) that the geometric stiffness takes; 0 for an empty list.
    double CalcAxialForce() const;
    double CalcMLMoment() const;
    double CalcMNMoment() const;

    KELO_FIELD(int, No, 0)
    KELO_FIELD(int, Type, 1)
    KELO_FIELD(int, LocAxisCode, 3)
    KELO_FIELD(int, NDirCode, 3)
    KELO_FIELD(int, NodeNo1, 0)
    KELO_FIELD(int, NodeNo2, 0)
    KELO_FIELD(int, NodeNo3, 0)
    KELO_FIELD(CNode*, NodeNo1Ptr, nullptr)
    KELO_FIELD(CNode*, NodeNo2Ptr, nullptr)
    KELO_FIELD(CNode*, NodeNo3Ptr, nullptr)
    KELO_FIELD(int, SectionNo, 0)
public:
    CKeySection* GetSectionPtr() const { return SectionPtr; }
    // A spring section (MDEFSPR 20, MROTSPR 21, MSPRMTX 22) makes the element a spring of type 2, 3
    // or 4; any other section leaves the type as it is.
    void SetSectionPtr(CKeySection* section);

private:
    CKeySection* SectionPtr = nullptr;

    // Joint codes: up to six digits of 0 and 1, one per freedom, the highest first.
    KELO_FIELD(double, Joint1, 0.0)
    KELO_FIELD(double, Joint2, 0.0)
    KELO_FIELD(double, Alpha, 0.0)
    KELO_FIELD(int, Visible, 1)
    KELO_FIELD(double, Length, 0.0)
    KELO_FIELD(double, BL, 0.0)
    KELO_FIELD(double, Birth, 0.0)
    KELO_FIELD(double, PartCreep, 0.0)
    KELO_ARRAY_FIELD(double, WindArea, 9)
    KELO_ARRAY_FIELD(double, BucklingData, 5)
    KELO_FIELD(double, BucklingLengthLdir, 0.0)
    KELO_FIELD(double, BucklingLengthNdir, 0.0)
    KELO_FIELD(double, LatBucklingLengthLdir, 0.0)
    KELO_FIELD(double, LatBucklingLengthNdir, 0.0)
    // Torsion stiffness added to what the section gives the element.
    KELO_FIELD(double, TorsionAD, 0.0)
    KELO_FIELD(CMember*, MemberPtr, nullptr)

private:
    std::array<std::array<double, 3>, 3> TransMatrix{};
    COwnedList<CDesignSection> DesignSectionList;
    COwnedList<CAxial> AxialList;
    COwnedList<CMass> MassList;

    // ==== Analysis side: local axes, stiffness, end releases, element loads and the cached state
    // of a run. Local freedoms, node 1 then node 2: translation along L, M (axial), N, rotation
    // about L, M (torsion), N. Units m, kN, kNm; a section's Young's modulus in MPa.
public:
    // The cached section values, in this order: area A (m2), inertia IL, torsion constant IM,
    // inertia IN (m4), Young's modulus E (MPa), Poisson's ratio, axial force N (kN, tension
    // positive), notional size h0 (mm), relative humidity RH (%), fck (MPa).
    static constexpr int kSectParams = 10;

    // Node-to-node distance into Length; nothing while either end node is missing.
    void CalcElementLength();
    // Length and local axes; 0 when an end node is missing or the axes can't be had.
    int CalcElementProp(CStructure* structure);
    // Rows L, M, N of TransMatrix in global X, Y, Z, and Length, from the nodes and LocAxisCode:
    // 2 and 4 by the angle Alpha (degrees), 1 through node 3, 3 through NDirCode, 5 through the
    // line the element's column stands on. Entries of size 1e-5 or less are set to 0. Answers 1,
    // or 0 for a missing node, code 1 without node 3, code 5 with node 3 or without a column
    // line and its parent, an axis parallel to the N side point, no length, or another code.
    int MakeTransMatrix(CStructure* structure);
    // Stiffness in global axes into K. F is a load vector in local axes, condensed in place with
    // the end releases; it may be null. anType 3 (creep) takes E / (0.85 PartCreep + 1);
    // geomFlag 1 adds the geometric stiffness of the axial force. Answers 1, or 0 when the
    // section values can't be had, Type is outside 0 to 4, or a beam has no length.
    int MakeStiffMatrix(CStructure* structure, double K[12][12], double F[12], int anType,
                        int geomFlag);
    // Axes, stiffness and section values into the cache, then sets the update flag. Answers 1,
    // or 0 with the reason formatted into errMsg when it is given.
    int Update(CStructure* structure, int anType, int geomFlag, std::string* errMsg);
    // Section area (m2) at xOverL, Young's modulus (MPa) and Poisson's ratio: from the cache
    // while the update flag is set, else from the section, else from a section made on node 1's
    // reference line. Nothing found: -1.0 for the area, 0.0 for the others.
    double FindSectionArea(CStructure* structure, double xOverL);
    double FindYoungsModulus(CStructure* structure);
    double FindPoisson(CStructure* structure);

    // While the update flag is set the section values and the axial force come from the cache.
    int GetUpdateFlag() const { return UpdateFlag; }
    void ClearUpdateFlag() { UpdateFlag = 0; }
    // Puts kSectParams values into the cache and sets the update flag, as Update does.
    void SetSectParamCache(const double* values);
    double GetSectParamCache(int i) const;
    // The stiffness (global axes) and the load slot (local axes) that Update left.
    double GetStiffCache(int i, int j) const;
    double GetLoadCache(int i) const;

    // Restraint forces of one load on the element, forces opposing the load. xOverL -1000.0
    // gives the end forces, a position 0 to 1 the load's contribution to the section forces
    // there. mode 2: releases applied, global axes (assembly); 1: releases applied, local axes;
    // 3: the section contribution, local axes. Answers 1, or 0 when the load can't be worked out.
    int FixedEndForces(CStructure* structure, CLoad* load, double F[12], double xOverL, int mode,
                       int anType);
    // The formula of one load type: A, B, C, D are load values in the order the type reads them
    // and vec the six-vector of force and moment intensities in local axes. x at or under 0
    // gives the end forces, above 0 the section contribution at x (m) from node 1. Answers 1,
    // or 0 for an unknown type or a tendon that can't be found.
    int FixType(CStructure* structure, int type, double A, double B, double C, double D,
                const double* vec, double F[12], double x);
    // A force d[0..2] and a moment d[3..5] (local axes) at a (m) from node 1. For x above 0 the
    // contribution to the section at x, which flag 1 suppresses, answering 1; for x at or
    // under 0 the end forces, answering 0.
    int PointLoad(const double d[6], double a, double F[12], double x, int flag);
    // The loads of a tendon along the element from its rows of (position, force, y, z), y along
    // L and z along N (m), the rows evenly spaced over the length; each force is multiplied by
    // the number of tendons. Answers 1.
    int TendonLoads(const double (*rows)[6], int count, int noOfTendons, double F[12], double x,
                    int flag);
    // Lumped masses (tons) of a mass record at the translations (or, for type 5, rotations) of
    // the two nodes, in global axes. Answers 1, or 0 for an unknown mass type or no length.
    int FixedEndMass(CStructure* structure, CMass* mass, double m[12], int mode, int anType);
    // Wind speed (m/s) of a wind load at xOverL, height taken between the node Z coordinates.
    double CalcWindSpeed(double xOverL, CLoad* load) const;
    // The wind area values: N direction W[0..4], L direction W[5..9].
    void CalcWindArea(double W[10]) const;

private:
    // Section values from the cache while the update flag is set, else from the section
    // look-up with the axial force summed over the axial list.
    int ReadSectParam(CStructure* structure, double* values);
    // A section of node 1's reference line at the station xOverL of the way to node 2's; null
    // when there is none.
    std::unique_ptr<CKeySection> SectionOnRefLine(CStructure* structure, double xOverL) const;
    // Static condensation of the freedoms that Joint1 and Joint2 release, in local axes.
    void ApplyEndReleases(double K[12][12], double F[12]) const;

    int UpdateFlag = 0;
    // CalcAxialForce keeps its sum here, so that a const element can still refresh it.
    mutable std::array<double, kSectParams> SectParamCache{};
    std::array<std::array<double, 12>, 12> StiffCache{};
    std::array<double, 12> LoadCache{};
};

} // namespace kelo
