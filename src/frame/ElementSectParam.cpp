#include "frame/ElementSectParam.h"

#include "frame/Element.h"
#include "geometry/RefLine.h"
#include "model/Structure.h"

#include <cmath>
#include <memory>

namespace kelo {

namespace {

// Stations closer than this (m) are one: a single section serves both ends.
constexpr double kSameStation = 1e-5;
// An element runs along a line when its direction is within this of the line's (cosine).
constexpr double kAlongTolerance = 0.05;

const CNode* NodeOf(CNode* cached, int no, const CStructure& s) {
    return cached ? cached : s.GetNodePtr(no);
}

// The element's own section: the frame section of its number on line 0, or the one its pointer
// was given when it has no number.
const CKeySection* OwnSection(const CElement& e, const CStructure& s) {
    if (e.GetSectionNo() > 0) return s.GetKeySectionPtr(0, e.GetSectionNo());
    return e.GetSectionPtr();
}

// Young's modulus (MPa) and Poisson's ratio of a section: its own when it was given them (a frame
// section), else those of its material set.
void Stiffness(const CKeySection& section, const CStructure& s, double& e, double& poisson) {
    e = section.GetYoungsModulus();
    poisson = section.GetPoisson();
    double matE = 0.0, matPoisson = 0.0;
    if (section.GetMatType() == 2) {
        if (const CSteelMatPar* steel = s.GetSteelMatParPtr(section.GetMatParNo())) {
            matE = steel->GetYoungsModulus() / 1000.0;
            matPoisson = steel->GetPoissonRatio();
        }
    } else if (const CConcrMatPar* concrete = s.GetConcrMatParPtr(section.GetMatParNo())) {
        matE = concrete->GetYoungsModulus() / 1000.0;
        matPoisson = concrete->GetPoissonRatio();
    }
    if (e <= 0.0) e = matE;
    if (poisson <= 0.0) poisson = matPoisson;
}

CElementSectParam FromSection(const CKeySection& section, const CStructure& s) {
    double e = 0.0, poisson = 0.0;
    Stiffness(section, s, e, poisson);
    // The section's own cylinder strength, else that of its concrete or of the first concrete.
    double fck = section.GetFcck() / 1000.0;
    if (fck <= 0.0) {
        const int no = section.GetMatParNo() > 0 ? section.GetMatParNo() : 1;
        if (const CConcrMatPar* concrete = s.GetConcrMatParPtr(no))
            fck = concrete->GetFcck() / 1000.0;
    }
    return CElementSectParam(section.GetAc(), section.GetMomInertL(), section.GetMomInertM(),
                             section.GetMomInertN(), e, poisson,
                             section.GetEffectivThicness() * 1000.0, section.GetRH(), fck);
}

} // namespace

CElementSectParam::CElementSectParam(double a, double il, double im, double in, double e,
                                     double poisson, double h0, double rh, double fck)
    : A(a), IL(il), IM(im), IN(in), YoungsModulus(e), Poisson(poisson),
      ShearModulus(e / (2.0 * (1.0 + poisson))), H0(h0), RH(rh), Fck(fck) {}

int CElementSectParam::FindReflineConnection(const CElement& element, CStructure* structure,
                                             int* refLineNo, double* station1, double* station2,
                                             int* viaSection) {
    if (viaSection) *viaSection = 0;
    if (!structure) return 0;
    const CStructure& s = *structure;
    const CNode* n1 = NodeOf(element.GetNodeNo1Ptr(), element.GetNodeNo1(), s);
    const CNode* n2 = NodeOf(element.GetNodeNo2Ptr(), element.GetNodeNo2(), s);
    if (!n1 || !n2 || element.GetNo() < 0) return 0;
    auto answer = [&](int line, double a, double b) {
        if (refLineNo) *refLineNo = line;
        if (station1) *station1 = a;
        if (station2) *station2 = b;
        return 1;
    };
    const int r1 = n1->GetRefLineNo(), r2 = n2->GetRefLineNo();
    const double st1 = n1->GetStationNo(), st2 = n2->GetStationNo();

    const CKeySection* own = OwnSection(element, s);
    if (own && own->GetRefLineNo() == 0) {
        if (viaSection) *viaSection = 1;
        return answer(r1, st1, r1 == r2 ? st2 : st1);
    }
    if (r1 == 0 && r2 == 0 && own) return answer(0, own->GetStationNo(), own->GetStationNo());
    // Line 0 holds sections only; it has no course to follow.
    CRefLine* l1 = r1 > 0 ? s.GetRefLinePtr(r1) : nullptr;
    CRefLine* l2 = r2 > 0 ? s.GetRefLinePtr(r2) : nullptr;
    if ((r1 == 0 && r2 == 0) || (!l1 && !l2)) return answer(0, 0.0, 0.0);
    if (r1 == r2) return answer(r1, st1, st2);

    // Nodes on two lines: the element belongs to the line it runs along.
    const double d[3] = {n2->GetX() - n1->GetX(), n2->GetY() - n1->GetY(), n2->GetZ() - n1->GetZ()};
    const double length = std::sqrt(d[0] * d[0] + d[1] * d[1] + d[2] * d[2]);
    auto cosine = [&](CRefLine* line, double station) {
        double dir[3] = {0.0, 0.0, 0.0};
        if (!line || length <= 0.0 || !line->CalcDirByStation(station, dir)) return 0.0;
        return (d[0] * dir[0] + d[1] * dir[1] + d[2] * dir[2]) / length;
    };
    const double c1 = cosine(l1, st1), c2 = cosine(l2, st2);
    const bool along1 = std::fabs(c1) + kAlongTolerance > 1.0;
    const bool along2 = std::fabs(c2) + kAlongTolerance > 1.0;
    if (along1 && !along2) return answer(r1, st1, c1 * length + st1);
    if (along2 && !along1) return answer(r2, st2 - c2 * length, st2);
    if (along1 && along2) return answer(r1, st1, st1);
    if (!l1) return answer(r2, st2, st2);
    return answer(r1, st1, st1);
}

int CElementSectParam::Calc(const CElement& element, CStructure* structure,
                            CElementSectParam& out) {
    if (const CElementSectParam* own = element.GetOwnSectParam()) {
        out = *own;
        return 1;
    }
    if (!structure) return 0;
    CStructure& s = *structure;
    if (const CKeySection* section = OwnSection(element, s)) {
        if (section->GetRefLineNo() != 0) return 0;
        out = FromSection(*section, s);
        return 1;
    }
    int lineNo = 0, via = 0;
    double s1 = 0.0, s2 = 0.0;
    if (!FindReflineConnection(element, structure, &lineNo, &s1, &s2, &via) || via) return 0;
    CRefLine* line = s.GetRefLinePtr(lineNo);
    if (!line) return 0;
    const SectionEnv env = SectionEnv::OfProject(structure, lineNo);
    const std::unique_ptr<CKeySection> first = line->CreateKeySection(s1, 1, &env);
    if (!first) return 0;
    std::unique_ptr<CKeySection> second;
    if (std::fabs(s2 - s1) > kSameStation) {
        second = line->CreateKeySection(s2, 1, &env);
        if (!second) return 0;
    }
    const CElementSectParam a = FromSection(*first, s);
    const CElementSectParam b = second ? FromSection(*second, s) : a;
    // The stiffness of a haunched element is taken as that of its mean section; the material
    // and the climate are those of its first end.
    out = a;
    out.SetA(0.5 * (a.GetA() + b.GetA()));
    out.SetIL(0.5 * (a.GetIL() + b.GetIL()));
    out.SetIM(0.5 * (a.GetIM() + b.GetIM()));
    out.SetIN(0.5 * (a.GetIN() + b.GetIN()));
    out.SetH0(0.5 * (a.GetH0() + b.GetH0()));
    return 1;
}

} // namespace kelo
