#include "KeloRun.h"
#include "frame/Element.h"
#include "geometry/RefLine.h"
#include "model/Structure.h"

#include <gtest/gtest.h>

#include <cmath>
#include <memory>
#include <string>

using namespace kelo;
using namespace kelo::e2e;

namespace {

// The deck of examples/box_girder_deck.inp worked out by hand, in m. At a station s from 0 to 40:
// the road, and with it the deck, is B(s) = 12 + s/80 wide; the box is H(s) = 3 − s/20 + s²/1600
// deep (the parabola of the point laws, 3.0 at s = 0 and 2.0 at s = 40). The outline is the full
// width of the top slab (0.25 thick), the box of 6.0 below it, less the void of 5.0 between the
// webs from 0.25 below the road to 0.3 above the bottom, plus the circular segment of the soffit
// (radius 30 m on the chord of 6 m).
struct Deck {
    static constexpr double kR = 30.0, kChord = 6.0;
    double b, h;

    explicit Deck(double s) : b(12.0 + s / 80.0), h(3.0 - s / 20.0 + s * s / 1600.0) {}

    // Half the angle of the soffit's arc.
    static double Alpha() { return std::asin(kChord / 2.0 / kR); }
    // The true circular segment: R²(α − sin α cos α), its centre 4R sin³α / (3(2α − sin 2α)) from
    // the circle's centre, which lies R cos α above the chord, and its moment about the parallel
    // to the chord through the circle's centre, R⁴/4 (α − sin α cos α + 2 sin³α cos α).
    static double SegmentArea() {
        const double a = Alpha();
        return kR * kR * (a - std::sin(a) * std::cos(a));
    }
    // The program draws a bow as 18 chords: the inscribed polygon's segment is
    // R²/2 (18 sin(2α/18) − sin 2α).
    static double ChordSegmentArea() {
        const double w = 2.0 * Alpha();
        return kR * kR / 2.0 * (18.0 * std::sin(w / 18.0) - std::sin(w));
    }

    struct Part {
        double a, y, i;
    };
    Part Parts(int k) const {
        const double a = Alpha();
        switch (k) {
        case 0:
            return {0.25 * b, -0.125, b * std::pow(0.25, 3) / 12.0};
        case 1:
            return {6.0 * (h - 0.25), -(h + 0.25) / 2.0, 6.0 * std::pow(h - 0.25, 3) / 12.0};
        case 2:
            return {-5.0 * (h - 0.55), -(h - 0.05) / 2.0, -5.0 * std::pow(h - 0.55, 3) / 12.0};
        default: {
            const double d =
                4.0 * kR * std::pow(std::sin(a), 3) / (3.0 * (2 * a - std::sin(2 * a)));
            const double icc =
                std::pow(kR, 4) / 4.0 *
                (a - std::sin(a) * std::cos(a) + 2.0 * std::pow(std::sin(a), 3) * std::cos(a));
            const double area = SegmentArea();
            return {area, -h + kR * std::cos(a) - d, icc - area * d * d};
        }
        }
    }
    // A = 0.25 B + H + 1.25 + the segment; exact for the program's chords.
    double Area() const { return 0.25 * b + h + 1.25 + ChordSegmentArea(); }
    double CoGY() const {
        double a = 0.0, s = 0.0;
        for (int k = 0; k < 4; ++k) {
            a += Parts(k).a;
            s += Parts(k).a * Parts(k).y;
        }
        return s / a;
    }
    double IL() const {
        const double yc = CoGY();
        double i = 0.0;
        for (int k = 0; k < 4; ++k) {
            const Part p = Parts(k);
            i += p.i + p.a * (p.y - yc) * (p.y - yc);
        }
        return i;
    }
};

// The chords cut 0.0019 m² off the segment, 0.3 % of it, some 1.7 m below the centre of
// gravity: the centre moves by less than 0.5 mm and the moment of inertia by less than 0.1 %.
constexpr double kCoGTol = 0.5e-3;
constexpr double kInertiaRelTol = 1e-3;

struct ReadExample {
    ReadExample() : s(2) {
        s.CreateDefaultContents(2, 0);
        result = s.ReadCommandFile(SourcePath("examples/box_girder_deck.inp"), &log, 0);
    }
    CStructure s;
    std::string log;
    int result = -1;
};

} // namespace

TEST(BoxGirderExample, KeloReadsItWithoutMessages) {
    const RunResult r = RunKelo(SourcePath("examples/box_girder_deck.inp"), "box_girder_deck.inp");
    EXPECT_EQ(r.status, 0) << r.out;
    EXPECT_EQ(r.err, "");
}

TEST(BoxGirderExample, KeySectionPropertiesByHand) {
    ReadExample ex;
    ASSERT_EQ(ex.result, 0);
    EXPECT_EQ(ex.log, "");
    CRefLine* line = ex.s.GetRefLinePtr(1);
    ASSERT_NE(line, nullptr);
    ASSERT_EQ(line->GetKeySectionList().GetCount(), 3u);
    const CKeySection* support = line->GetKeySectionPtr(0.0);
    ASSERT_NE(support, nullptr);
    EXPECT_EQ(support->GetName(), "Support west");
    EXPECT_EQ(support->GetMatType(), 1);
    EXPECT_EQ(support->GetMatParNo(), 2);
    ASSERT_EQ(support->GetSectPointList().GetCount(), 17u);

    const Deck d(0.0);
    EXPECT_NEAR(support->GetSectionArea(), d.Area(), 1e-9);
    EXPECT_NEAR(support->GetCoGX(), 0.0, 1e-9);
    EXPECT_NEAR(support->GetCoGY(), d.CoGY(), kCoGTol);
    EXPECT_NEAR(support->GetMomInertL(), d.IL(), kInertiaRelTol * d.IL());
    // The deck's edge follows the road's edge point 3.1, 6.0 m out, and the soffit's radius point
    // stands at the bottom of the bow, R − √(R² − 9) below the chord.
    EXPECT_NEAR(support->GetSectPointPtr(12)->GetX(), 6.0, 1e-12);
    EXPECT_NEAR(support->GetSectPointPtr(2)->GetY(), -3.0 - (30.0 - std::sqrt(891.0)), 1e-9);

    // At mid-span: 2.0 m deep and 12.5 m wide.
    const CKeySection* span = line->GetKeySectionPtr(40.0);
    ASSERT_NE(span, nullptr);
    EXPECT_NEAR(span->GetSectionArea(), Deck(40.0).Area(), 1e-9);
    EXPECT_NEAR(span->GetSectPointPtr(11)->GetX(), 6.25, 1e-12);
}

TEST(BoxGirderExample, InterpolatedSectionsFollowThePointLawsAndTheRoad) {
    ReadExample ex;
    ASSERT_EQ(ex.result, 0);
    // The quarter and the middle of the 40 m between the west support and mid-span, on the arc:
    // H(10) = 2.5625, B(10) = 12.125; H(20) = 2.25, B(20) = 12.25.
    for (const double s : {10.0, 20.0}) {
        const std::unique_ptr<CKeySection> section = ex.s.CreateKeySection(1, 1, s, 4);
        ASSERT_NE(section, nullptr) << s;
        const Deck d(s);
        EXPECT_DOUBLE_EQ(section->GetStationNo(), s);
        EXPECT_NEAR(section->GetSectPointPtr(1)->GetY(), -d.h, 1e-12) << s;
        EXPECT_NEAR(section->GetSectPointPtr(4)->GetY(), -d.h + 0.3, 1e-12) << s;
        EXPECT_NEAR(section->GetSectPointPtr(12)->GetX(), d.b / 2.0, 1e-12) << s;
        EXPECT_NEAR(section->GetSectionArea(), d.Area(), 1e-9) << s;
        EXPECT_NEAR(section->GetCoGY(), d.CoGY(), kCoGTol) << s;
        EXPECT_NEAR(section->GetMomInertL(), d.IL(), kInertiaRelTol * d.IL()) << s;
    }
    // Past mid-span the parabola turns back down: 2.5625 m again at the quarter from the east.
    const std::unique_ptr<CKeySection> east = ex.s.CreateKeySection(1, 1, 70.0, 4);
    ASSERT_NE(east, nullptr);
    EXPECT_NEAR(east->GetSectPointPtr(17)->GetY(), -2.5625, 1e-12);
    // Beyond the last key section its points stay as they are.
    const std::unique_ptr<CKeySection> beyond = ex.s.CreateKeySection(1, 1, 85.0, 4);
    ASSERT_NE(beyond, nullptr);
    EXPECT_NEAR(beyond->GetSectPointPtr(1)->GetY(), -3.0, 1e-12);
}

TEST(BoxGirderExample, NodesStandAtTheCentreOfGravityAndElementsTakeTheMeanSection) {
    ReadExample ex;
    ASSERT_EQ(ex.result, 0);
    // The line rises 1 % from level 20.0 at station −10; it passes through the crown of the road,
    // and the nodes stand at the centre of gravity below it. Node 1 is at the end of the
    // straight, (10, 0).
    const CNode* n1 = ex.s.GetNodePtr(1);
    ASSERT_NE(n1, nullptr);
    EXPECT_NEAR(n1->GetX(), 10.0, 1e-9);
    EXPECT_NEAR(n1->GetY(), 0.0, 1e-9);
    EXPECT_NEAR(n1->GetZ(), 20.1 + Deck(0.0).CoGY(), kCoGTol);
    EXPECT_NEAR(n1->GetRefLineOffset(2), Deck(0.0).CoGY(), kCoGTol);
    // Node 5 at mid-span, 40 m round the arc of 400 m: the centre lies 400 m to the left of
    // (10, 0), so the node is at (10 + 400 sin 0.1, 400 (1 − cos 0.1)).
    const CNode* n5 = ex.s.GetNodePtr(5);
    ASSERT_NE(n5, nullptr);
    EXPECT_NEAR(n5->GetX(), 10.0 + 400.0 * std::sin(0.1), 1e-6);
    EXPECT_NEAR(n5->GetY(), 400.0 * (1.0 - std::cos(0.1)), 1e-6);
    EXPECT_NEAR(n5->GetZ(), 20.5 + Deck(40.0).CoGY(), kCoGTol);

    // Element 1 from station 0 to 10: the mean of the two sections' areas; the concrete C45/55
    // under NS-EN 1992: Ecm = 22000 (53/10)^0.3 MPa, cut to a whole MPa.
    const CElement* e1 = ex.s.GetElementPtr(1);
    ASSERT_NE(e1, nullptr);
    CElementSectParam p;
    ASSERT_EQ(e1->CalcElementSectParam(&ex.s, p), 1);
    EXPECT_NEAR(p.GetA(), 0.5 * (Deck(0.0).Area() + Deck(10.0).Area()), 1e-9);
    EXPECT_EQ(p.GetYoungsModulus(), std::trunc(22000.0 * std::pow(5.3, 0.3)));
    EXPECT_DOUBLE_EQ(p.GetPoisson(), 0.2);
    EXPECT_DOUBLE_EQ(p.GetFck(), 45.0);
}
