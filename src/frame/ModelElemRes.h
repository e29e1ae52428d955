#pragma once

#include "platform/Field.h"
#include "platform/Object.h"

namespace kelo {

// The properties of one element in one model as the last run on the model used them: section
// values (m2, m4), Young's modulus (MPa), the axial force of the geometric stiffness (kN) and the
// buckling lengths (m) about L and N, kept across runs so that a buckling run's lengths survive.
class CModelElemRes : public CObject {
public:
    CModelElemRes() = default;
    explicit CModelElemRes(int elementNo) : ElementNo(elementNo) {}

    void SetElementProperties(double area, double momInertL, double momInertM, double momInertN) {
        Area = area;
        MomInertL = momInertL;
        MomInertM = momInertM;
        MomInertN = momInertN;
    }
    void SetBucklingLengths(double l, double n) {
        BucklingLengthL = l;
        BucklingLengthN = n;
    }
    void SetLateralBucklingLengths(double l, double n) {
        LatBucklingLengthL = l;
        LatBucklingLengthN = n;
    }

    KELO_FIELD(int, ElementNo, 0)
    KELO_FIELD(double, Area, 0.0)
    KELO_FIELD(double, MomInertL, 0.0)
    KELO_FIELD(double, MomInertM, 0.0)
    KELO_FIELD(double, MomInertN, 0.0)
    KELO_FIELD(double, YoungsModulus, 0.0)
    KELO_FIELD(double, AxialForce, 0.0)
    KELO_FIELD(double, BucklingLengthL, 0.0)
    KELO_FIELD(double, BucklingLengthN, 0.0)
    KELO_FIELD(double, LatBucklingLengthL, 0.0)
    KELO_FIELD(double, LatBucklingLengthN, 0.0)
};

} // namespace kelo
