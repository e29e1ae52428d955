#include "command/StructureCmd.h"
#include "frame/Element.h"
#include "model/Structure.h"

#include <gtest/gtest.h>

#include <cmath>
#include <memory>
#include <string>

using namespace kelo;

namespace {

// A project of NS-EN 1992 (default concrete C35/45, set 1) with two level lines: line 1 along +X
// from the origin, line 2 along +Y from (50, 0), both from station 0 to 100. On line 1 a solid
// rectangle 1.0 m wide, 2.0 m deep at station 0 and 4.0 m deep at station 100, hung from its top
// middle (point 3) on the line.
struct Frame {
    Frame() : s(2) {
        s.CreateDefaultContents(2, 0);
        Read("REFLINE 1\n"
             "RFLHORI 1 1 1 0 0 0 100 100 0\n"
             "REFLINE 2\n"
             "RFLHORI 2 1 1 0 50 0 100 50 100\n"
             "XSECT 1 0 GENERAL CONCR 1 1 1\n"
             "XSECT 1 100 GENERAL CONCR 1 1 1\n");
        for (const char* st : {"0", "100"}) {
            const std::string h = std::string(st) == "0" ? "-2000" : "-4000";
            Read(std::string("PT 1 ") + st + " 1 1 -500 " + h + "\n" + "PT 1 " + st + " 2 1 500 " +
                 h + "\n" + "PT 1 " + st + " 3 1 500 0\n" + "PT 1 " + st + " 4 1 -500 0\n" +
                 "PT 1 " + st + " 5 1 -500 " + h + "\n" + "CONN 1 " + st + " 2 3\n");
        }
        s.ReCalcAllRoadProfiles();
        s.ReCalcAllKeySections(0);
    }
    void Read(const std::string& text) {
        std::string t = text;
        s.GetStructureCmd()->CommandConvert(&t, &log, 0);
    }
    // A node on a line at a station, where the line puts it.
    void NodeOn(int no, int line, double station, double x, double y) {
        auto node = std::make_unique<CNode>(no, x, y, 0.0);
        node->SetRefLineNo(line);
        node->SetRefLineConnect(line > 0 ? 1 : 0);
        node->SetStationNo(station);
        s.AddNode(std::move(node));
    }
    CElement* Elem(int no, int n1, int n2) {
        CElement* e = s.AddElement(std::make_unique<CElement>(no, n1, n2, 0, 0));
        s.UpdatePointers();
        return e;
    }
    struct Connection {
        int result, line, via;
        double s1, s2;
    };
    Connection Find(const CElement* e) {
        Connection c{-1, -1, -1, -1.0, -1.0};
        c.result = e->FindReflineConnection(&s, &c.line, &c.s1, &c.s2, &c.via);
        return c;
    }
    CStructure s;
    std::string log;
};

// Area, inertia about the horizontal axis and St. Venant value of the drawn outline, which takes
// L + N for torsion, of the rectangle 1.0 × h.
double A(double h) { return h; }
double IL(double h) { return h * h * h / 12.0; }
double IN(double h) { return h / 12.0; }

} // namespace

TEST(FindReflineConnection, LinesAndStationsOfTheEnds) {
    Frame f;
    ASSERT_EQ(f.log, "");
    f.NodeOn(1, 1, 10.0, 10.0, 0.0);
    f.NodeOn(2, 1, 30.0, 30.0, 0.0);
    f.NodeOn(3, 2, 20.0, 50.0, 20.0);
    f.NodeOn(4, 0, 0.0, 0.0, 50.0);
    f.NodeOn(5, 0, 0.0, 5.0, 50.0);
    f.NodeOn(6, 2, 0.0, 50.0, 0.0);
    f.NodeOn(7, 1, 80.0, 80.0, 0.0);

    // Both ends on line 1.
    auto c = f.Find(f.Elem(1, 1, 2));
    EXPECT_EQ(c.result, 1);
    EXPECT_EQ(c.line, 1);
    EXPECT_EQ(c.s1, 10.0);
    EXPECT_EQ(c.s2, 30.0);
    EXPECT_EQ(c.via, 0);
    // Free nodes: no line.
    c = f.Find(f.Elem(2, 4, 5));
    EXPECT_EQ(c.line, 0);
    EXPECT_EQ(c.s1, 0.0);
    // From line 1 at station 30 to node 6 on line 2, 20 m on along +X: along line 1 only, so the
    // far end is 20 m further along it.
    c = f.Find(f.Elem(3, 2, 6));
    EXPECT_EQ(c.line, 1);
    EXPECT_EQ(c.s1, 30.0);
    EXPECT_NEAR(c.s2, 50.0, 1e-12);
    // From (80, 0) on line 1 back to (50, 0) on line 2: along line 1 against its direction.
    c = f.Find(f.Elem(4, 7, 6));
    EXPECT_NEAR(c.s2, 50.0, 1e-12);
    // From a free node to line 2 along +Y (the node 6 to node 3 runs along line 2): along line 2
    // only, measured back from its end.
    f.NodeOn(8, 0, 0.0, 50.0, 5.0);
    c = f.Find(f.Elem(5, 8, 3));
    EXPECT_EQ(c.line, 2);
    EXPECT_NEAR(c.s1, 5.0, 1e-12);
    EXPECT_EQ(c.s2, 20.0);
    // Along neither: the line of the first end, at its station; without it, the second's.
    c = f.Find(f.Elem(6, 1, 3));
    EXPECT_EQ(c.line, 1);
    EXPECT_EQ(c.s1, 10.0);
    EXPECT_EQ(c.s2, 10.0);
    f.NodeOn(9, 7, 0.0, 0.0, 0.0);
    c = f.Find(f.Elem(7, 9, 3));
    EXPECT_EQ(c.line, 2);
    EXPECT_EQ(c.s1, 20.0);

    // An element with a section of its own takes it, on the line of its first node.
    f.Read("SECTINS 1 1 30000 0.2 0.5 0.01 0.02 0.03\n");
    CElement* own = f.Elem(8, 1, 3);
    own->SetSectionNo(1);
    c = f.Find(own);
    EXPECT_EQ(c.via, 1);
    EXPECT_EQ(c.line, 1);
    EXPECT_EQ(c.s2, 10.0);

    // Without both nodes, or a temporary element of an analysis: none.
    EXPECT_EQ(f.Find(f.Elem(9, 1, 99)).result, 0);
    EXPECT_EQ(f.Find(f.Elem(-1, 1, 2)).result, 0);
}

TEST(CalcElementSectParam, OwnValuesOwnSectionOrTheMeanOfTheLinesSections) {
    Frame f;
    f.NodeOn(1, 1, 0.0, 0.0, 0.0);
    f.NodeOn(2, 1, 20.0, 20.0, 0.0);
    // The depth grows linearly: 2.0 m at 0, 2.4 m at 20. Mean of the two ends.
    const CElement* e = f.Elem(1, 1, 2);
    CElementSectParam p;
    ASSERT_EQ(e->CalcElementSectParam(&f.s, p), 1);
    EXPECT_NEAR(p.GetA(), 0.5 * (A(2.0) + A(2.4)), 1e-12);
    EXPECT_NEAR(p.GetIL(), 0.5 * (IL(2.0) + IL(2.4)), 1e-12);
    EXPECT_NEAR(p.GetIN(), 0.5 * (IN(2.0) + IN(2.4)), 1e-12);
    EXPECT_NEAR(p.GetIM(), 0.5 * (IL(2.0) + IN(2.0) + IL(2.4) + IN(2.4)), 1e-12);
    // C35/45 of NS-EN 1992: Ecm = 22000 (43/10)^0.3, whole MPa; ν 0.2; G = E/2.4.
    const double ecm = std::trunc(22000.0 * std::pow(4.3, 0.3));
    EXPECT_EQ(p.GetYoungsModulus(), ecm);
    EXPECT_EQ(p.GetPoisson(), 0.2);
    EXPECT_NEAR(p.GetShearModulus(), ecm / 2.4, 1e-9);
    // Notional size 2A/u in mm, the mean of both ends; the humidity of a section, 70 %; fck 35.
    EXPECT_NEAR(p.GetH0(), 0.5 * (2 * 2.0 / 6.0 + 2 * 2.4 / 6.8) * 1000.0, 1e-9);
    EXPECT_EQ(p.GetRH(), 70.0);
    EXPECT_EQ(p.GetFck(), 35.0);
    // The pointer form gives the same, and leaves out what isn't asked for.
    double a = 0, il = 0, im = 0, in = 0, ee = 0, nu = 0, g = 0, h0 = -1;
    ASSERT_EQ(e->CalcElementSectParam(&f.s, &a, &il, &im, &in, &ee, &nu, &g, &h0), 1);
    EXPECT_EQ(a, p.GetA());
    EXPECT_EQ(g, p.GetShearModulus());
    EXPECT_EQ(h0, p.GetH0());

    // Both ends at one station: one section serves.
    f.NodeOn(3, 1, 0.0, 0.0, 1.0);
    ASSERT_EQ(f.Elem(2, 1, 3)->CalcElementSectParam(&f.s, p), 1);
    EXPECT_NEAR(p.GetA(), 2.0, 1e-12);

    // A frame section of its own: its values as they stand, whatever its line.
    f.Read("SECTINS 4 1 35000 0.25 0.5 0.01 0.02 0.03\n");
    CElement* framed = f.Elem(3, 1, 2);
    framed->SetSectionNo(4);
    ASSERT_EQ(framed->CalcElementSectParam(&f.s, p), 1);
    EXPECT_EQ(p.GetA(), 0.5);
    EXPECT_EQ(p.GetIL(), 0.01);
    EXPECT_EQ(p.GetIM(), 0.02);
    EXPECT_EQ(p.GetIN(), 0.03);
    EXPECT_EQ(p.GetYoungsModulus(), 35000.0);
    EXPECT_EQ(p.GetShearModulus(), 35000.0 / 2.5);
    // Values given to the element come first; a copy of the element does not keep them.
    framed->SetOwnSectParam(CElementSectParam(1, 2, 3, 4, 5, 0.25, 6, 7, 8));
    ASSERT_EQ(framed->CalcElementSectParam(&f.s, p), 1);
    EXPECT_EQ(p.GetA(), 1.0);
    EXPECT_EQ(p.GetShearModulus(), 2.0);
    EXPECT_EQ(p.GetFck(), 8.0);
    const CElement copy(*framed);
    ASSERT_EQ(copy.CalcElementSectParam(&f.s, p), 1);
    EXPECT_EQ(p.GetA(), 0.5);

    // No section: free nodes, a station ahead of the line's sections, a section on a line.
    f.NodeOn(4, 0, 0.0, 0.0, 9.0);
    f.NodeOn(5, 0, 0.0, 1.0, 9.0);
    EXPECT_EQ(f.Elem(4, 4, 5)->CalcElementSectParam(&f.s, p), 0);
    f.NodeOn(6, 2, 10.0, 50.0, 10.0);
    f.NodeOn(7, 2, 20.0, 50.0, 20.0);
    EXPECT_EQ(f.Elem(5, 6, 7)->CalcElementSectParam(&f.s, p), 0);
    CElement* onLine = f.Elem(6, 1, 2);
    onLine->SetSectionPtr(f.s.GetKeySectionPtr(1, 0.0));
    EXPECT_EQ(onLine->CalcElementSectParam(&f.s, p), 0);
}

TEST(CreateKeySection, ByElementPositionOrByLineAndStation) {
    Frame f;
    f.NodeOn(1, 1, 0.0, 0.0, 0.0);
    f.NodeOn(2, 1, 20.0, 20.0, 0.0);
    f.Elem(1, 1, 2);
    // A quarter along element 1 is station 5: 2.1 m deep.
    const auto byElement = f.s.CreateKeySection(0, 1, 0.25);
    ASSERT_NE(byElement, nullptr);
    EXPECT_DOUBLE_EQ(byElement->GetStationNo(), 5.0);
    EXPECT_NEAR(byElement->GetSectionArea(), 2.1, 1e-12);
    const auto byStation = f.s.CreateKeySection(1, 1, 50.0);
    ASSERT_NE(byStation, nullptr);
    EXPECT_NEAR(byStation->GetSectionArea(), 3.0, 1e-12);
    // An element with a frame section gets a copy of it.
    f.Read("SECTINS 3 1 35000 0.2 0.7\n");
    CElement* framed = f.Elem(2, 1, 2);
    framed->SetSectionNo(3);
    const auto own = f.s.CreateKeySection(0, 2, 0.5);
    ASSERT_NE(own, nullptr);
    EXPECT_EQ(own->GetSectionArea(), 0.7);
    EXPECT_EQ(f.s.CreateKeySection(0, 99, 0.5), nullptr);
    EXPECT_EQ(f.s.CreateKeySection(1, 9, 5.0), nullptr);
    EXPECT_EQ(f.s.CreateKeySection(2, 1, 5.0), nullptr);

    // Temporary sections on every line, and away again.
    f.s.CreateTempSections();
    EXPECT_EQ(f.s.GetRefLinePtr(1)->GetKeySectionList().GetCount(), 2u + 19u);
    f.s.DeleteTempSections();
    EXPECT_EQ(f.s.GetRefLinePtr(1)->GetKeySectionList().GetCount(), 2u);
}
