#include "frame/Element.h"

#include "model/Node.h"

#include <algorithm>
#include <cmath>
#include <memory>

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
      LatBucklingLengthNdir(other.LatBucklingLengthNdir), TorsionAD(other.TorsionAD),
      MemberPtr(other.MemberPtr), TransMatrix(other.TransMatrix),
      DesignSectionList(other.DesignSectionList), AxialList(other.AxialList),
      MassList(other.MassList) {}

void CElement::UpdateSectionList(const std::vector<double>& positions) {
    // Positions closer than this along the element (x/l) are one design section.
    constexpr double kSamePosition = 1e-6;
    std::vector<std::unique_ptr<CDesignSection>> sections;
    for (const CDesignSection* held : DesignSectionList)
        sections.push_back(std::make_unique<CDesignSection>(*held));
    for (const double x : positions) {
        const bool held = std::any_of(sections.begin(), sections.end(), [x](const auto& d) {
            return std::fabs(d->GetXoverL() - x) < kSamePosition;
        });
        if (held) continue;
        const int node = x < kSamePosition ? NodeNo1 : x > 1.0 - kSamePosition ? NodeNo2 : 0;
        auto section = std::make_unique<CDesignSection>(x, 0, node);
        if (NodeNo1Ptr && NodeNo2Ptr) {
            section->SetX(NodeNo1Ptr->GetX() + x * (NodeNo2Ptr->GetX() - NodeNo1Ptr->GetX()));
            section->SetY(NodeNo1Ptr->GetY() + x * (NodeNo2Ptr->GetY() - NodeNo1Ptr->GetY()));
            section->SetZ(NodeNo1Ptr->GetZ() + x * (NodeNo2Ptr->GetZ() - NodeNo1Ptr->GetZ()));
        }
        sections.push_back(std::move(section));
    }
    std::stable_sort(sections.begin(), sections.end(),
                     [](const auto& a, const auto& b) { return a->GetXoverL() < b->GetXoverL(); });
    DesignSectionList.RemoveAll();
    for (auto& section : sections) DesignSectionList.Add(std::move(section));
}

void CElement::AddWindArea(const double* values) {
    for (int i = 0; i < 9; ++i) SetWindArea(i, GetWindArea(i) + values[i]);
}

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
