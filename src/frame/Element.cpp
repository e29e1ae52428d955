#include "frame/Element.h"

namespace kelo {

// Copies numbers and owned lists; pointer caches are copied as they stand and are refreshed by
// the owner's pointer update.
CElement::CElement(const CElement& other)
    : CObject(other), No(other.No), Type(other.Type), LocAxisCode(other.LocAxisCode),
      NDirCode(other.NDirCode), NodeNo1(other.NodeNo1), NodeNo2(other.NodeNo2),
      NodeNo3(other.NodeNo3), NodeNo1Ptr(other.NodeNo1Ptr), NodeNo2Ptr(other.NodeNo2Ptr),
      NodeNo3Ptr(other.NodeNo3Ptr), SectionNo(other.SectionNo), SectionPtr(other.SectionPtr),
      Joint1(other.Joint1), Joint2(other.Joint2), Alpha(other.Alpha), Visible(other.Visible),
      Length(other.Length), BL(other.BL), Birth(other.Birth), PartCreep(other.PartCreep),
      WindArea(other.WindArea), BucklingData(other.BucklingData),
      BucklingLengthLdir(other.BucklingLengthLdir), BucklingLengthNdir(other.BucklingLengthNdir),
      LatBucklingLengthLdir(other.LatBucklingLengthLdir),
      LatBucklingLengthNdir(other.LatBucklingLengthNdir), MemberPtr(other.MemberPtr),
      TransMatrix(other.TransMatrix), DesignSectionList(other.DesignSectionList),
      AxialList(other.AxialList), MassList(other.MassList) {}

double CElement::CalcAxialForce() const {
    double sum = 0.0;
    for (const CAxial* a : AxialList) sum += a->GetAxialValue();
    return sum;
}

double CElement::CalcMLMoment() const {
    double sum = 0.0;
    for (const CAxial* a : AxialList) sum += a->GetMLValue();
    return sum;
}

double CElement::CalcMNMoment() const {
    double sum = 0.0;
    for (const CAxial* a : AxialList) sum += a->GetMNValue();
    return sum;
}

} // namespace kelo
