#include "geometry/Tendon.h"
#include "command/StructureCmd.h"
#include "model/Structure.h"
#include "platform/Text.h"

#include <gtest/gtest.h>

#include <cmath>
#include <memory>
#include <string>

using namespace kelo;

namespace {

// A straight beam along +X at z = 0 of n elements of length le; N is +Z. No prestressing steel
// set: E = 195000 MPa and fpk = 1670 MPa unless one is added.
struct Beam {
    Beam(int n, double le) : s(2), count(n), le(le) {
        for (int i = 0; i <= n; ++i) s.AddNode(std::make_unique<CNode>(i + 1, i * le, 0.0, 0.0));
        for (int i = 1; i <= n; ++i) s.AddElement(std::make_unique<CElement>(i, i, i + 1, 0, 0));
        s.UpdatePointers();
    }
    // A tendon of area 1000 mm² jacked at 75 % at the first end.
    CTendon* Tendon(int no = 1) {
        auto t = std::make_unique<CTendon>(no, "T");
        t->SetArea(1000.0);
        t->SetStressParam(75.0, 0.0, 1);
        return s.AddTendon(std::move(t));
    }
    // A piece over the elements first..last.
    static void AddN(CTendon* t, int type, int first, int last, double y0, double y1, double p) {
        auto g = std::make_unique<CTendonGeom>(type, 2);
        g->SetElements(first, last, 1);
        g->SetValues(y0, y1, p);
        t->AddTendonGeomN(std::move(g));
    }
    // Force at point i (0 to 10) of element e after the loss run.
    double P(const CTendon* t, int e, int i) const {
        return t->GetTendonElemResPtr(e)->GetSecResList()->At(static_cast<std::size_t>(i))->GetP();
    }
    CStructure s;
    int count;
    double le;
};

constexpr double kF75 = 1000.0 * 1670.0 * 75.0 / 100000.0; // kN
constexpr double kEA = 195000.0 * 1000.0 / 1000.0;         // kN (MPa·mm²/1000)

} // namespace

TEST(TendonLosses, ParabolaFrictionAngleLengthAndDeadEndForce) {
    // Parabola of sag e = 0.6 m over L = 30 m in 10 elements: two halves of type 5, level at the
    // middle. End slopes 4e/L, so the tangent turns through 2·atan(4e/L) ≈ 8e/L over the length.
    Beam b(10, 3.0);
    b.s.AddPrestMatPar(std::make_unique<CPrestMatPar>(1, "Y1860", 1860.0));
    CTendon* t = b.Tendon();
    t->SetArea(1800.0);
    Beam::AddN(t, 5, 1, 5, 0.0, -0.6, 1.0);
    Beam::AddN(t, 5, 6, 10, -0.6, 0.0, 0.0);
    t->SetLossParam(0.2, 0.001, 0.0, 0.0, 0.0, 0.0, 0.0, 0.0);
    ASSERT_EQ(t->Update(&b.s, 1), 1) << t->GetUpdateText();
    EXPECT_EQ(t->IsUpdate(), 1);

    const double L = 30.0, m = 4.0 * 0.6 / L;
    const double angle = 2.0 * std::atan(m);
    // Arc length of the parabola, (L/2)(√(1+m²) + asinh(m)/m). The chords of 0.3 m and the
    // offsets read at ξ = 1e-5 at each element start put the walk within 1e-5 m of it, and the
    // tangent there within 1e-6 rad.
    const double arc = L / 2.0 * (std::sqrt(1.0 + m * m) + std::asinh(m) / m);
    EXPECT_NEAR(t->GetTotalAngle(), angle, 1e-6);
    EXPECT_NEAR(t->GetTotalLength(), arc, 1e-5);
    const double F1 = 1800.0 * 1860.0 * 75.0 / 100000.0;
    EXPECT_NEAR(b.P(t, 1, 0), F1, 1e-9);
    EXPECT_NEAR(b.P(t, 10, 10), F1 * std::exp(-(0.2 * angle + 0.001 * arc)), 1e-6 * F1);
    // At the middle half the angle and half the length have been passed.
    EXPECT_NEAR(b.P(t, 5, 10), F1 * std::exp(-(0.2 * angle / 2 + 0.001 * arc / 2)), 1e-6 * F1);
    // The element rows for the tendon load: x/L, force, y, z, sag 4e·x(L - x)/L² at x = 1.5 m.
    double rows[11][6];
    int count = 0;
    ASSERT_EQ(t->GetTenElementData(1, &count, rows), 1);
    EXPECT_EQ(count, 11);
    EXPECT_NEAR(rows[5][0], 0.5, 1e-12);
    EXPECT_NEAR(rows[5][3], -4.0 * 0.6 * 1.5 * 28.5 / (L * L), 1e-6);
    EXPECT_EQ(rows[5][2], 0.0);
    EXPECT_EQ(t->GetTenElementData(11, &count, rows), 0);
    // A change of the loss data makes the tendon out of date.
    t->SetLossParam(0.19, 0.001, 0.0, 0.0, 0.0, 0.0, 0.0, 0.0);
    EXPECT_EQ(t->IsUpdate(), 0);
}

TEST(TendonLosses, StraightTendonKeepsTheJackingForceAndElongatesByFLOverEA) {
    Beam b(10, 3.0);
    CTendon* t = b.Tendon();
    Beam::AddN(t, 4, 1, 10, 0.2, 0.2, 0.0);
    auto lp = std::make_unique<CTendonGeom>(4, 1);
    lp->SetElements(1, 10, 1);
    lp->SetValues(0.1, 0.1, 0.0);
    t->AddTendonGeomL(std::move(lp));
    t->SetLossParam(0.2, 0.0, 0.0, 0.0, 0.0, 0.0, 0.0, 0.0);
    ASSERT_EQ(t->Update(&b.s, 2), 1);
    for (int e = 1; e <= 10; ++e)
        for (int i = 0; i <= 10; ++i) EXPECT_NEAR(b.P(t, e, i), kF75, 1e-9);
    EXPECT_NEAR(t->GetTotalAngle(), 0.0, 1e-12);
    EXPECT_NEAR(t->GetElongation1(), kF75 * 30.0 / kEA * 1000.0, 1e-9);
    EXPECT_EQ(t->GetElongation2(), 0.0);
    // Strain in per mille: 1252.5 kN on 1000 mm² at 195000 MPa.
    double strain = 0.0;
    EXPECT_EQ(t->CalcStrainByElement(4, 0.37, &b.s, &strain), 1);
    EXPECT_NEAR(strain, kF75 / kEA * 1000.0, 1e-9);
    // The tendon runs along -Y (local L) by 0.1 m and up by 0.2 m.
    double rows[11][6];
    int count = 0;
    t->GetTenElementData(3, &count, rows);
    EXPECT_NEAR(rows[10][2], 0.1, 1e-12);
    EXPECT_NEAR(rows[10][3], 0.2, 1e-12);
    const CTendonDesSecRes* r = t->GetTendonElemResPtr(3)->GetSecResList()->At(10);
    EXPECT_NEAR(r->GetCoord(0), 9.0, 1e-12);
    EXPECT_NEAR(r->GetCoord(1), -0.1, 1e-12);
    EXPECT_NEAR(r->GetCoord(2), 0.2, 1e-12);
    // The listing rows and totals.
    const std::string& list = t->GetUpdateText();
    EXPECT_NE(list.find("   33     3    10   1   0   0  1252.500  1.000  0.100  0.200\r\n"),
              std::string::npos);
    EXPECT_NE(list.find("Total length [m]          :    30.000\r\n"), std::string::npos);

    // Not stressed at all: no force anywhere.
    t->DeleteStressData();
    ASSERT_EQ(t->Update(&b.s), 1);
    for (int i = 0; i <= 10; ++i) EXPECT_EQ(b.P(t, 7, i), 0.0);
}

TEST(TendonLosses, AnchorSlipZoneAgainstTheClosedForms) {
    // Wobble only, k = 0.002/m, 6 mm slip, 60 m in 20 elements (points every 0.3 m). The work of
    // the lost force, F(1 - e^{-kl})²/k, equals slip·EA at the reach l; with the linear friction
    // loss p = F·k the reach is √(slip·EA/p), 2.2 % short here since kl ≈ 0.044 (3 % allowed).
    Beam b(20, 3.0);
    CTendon* t = b.Tendon();
    Beam::AddN(t, 4, 1, 20, 0.0, 0.0, 0.0);
    const double k = 0.002, slipWork = 0.006 * kEA;
    t->SetLossParam(0.2, k, 6.0, 0.0, 0.0, 0.0, 0.0, 0.0);
    ASSERT_EQ(t->Update(&b.s), 1);
    const double reach = -std::log(1.0 - std::sqrt(slipWork * k / kF75)) / k;
    const double linear = std::sqrt(slipWork / (kF75 * k));
    // The force at the anchor is F·e^{-2k·xs}, xs the first point past the reach.
    const double xs = -std::log(b.P(t, 1, 0) / kF75) / (2.0 * k);
    EXPECT_GE(xs, reach);
    EXPECT_LT(xs, reach + 0.3 + 1e-6);
    EXPECT_NEAR(xs / linear, 1.0, 0.03);
    // Past the reach the friction curve stands.
    EXPECT_NEAR(b.P(t, 10, 10), kF75 * std::exp(-k * 30.0), 1e-9);

    // 9 m only: the slip passes the far end; what is left of the work, spread over the length,
    // comes off every point too, the far end included.
    Beam shortBeam(3, 3.0);
    CTendon* s = shortBeam.Tendon();
    Beam::AddN(s, 4, 1, 3, 0.0, 0.0, 0.0);
    s->SetLossParam(0.2, k, 6.0, 0.0, 0.0, 0.0, 0.0, 0.0);
    ASSERT_EQ(s->Update(&shortBeam.s), 1);
    const double L = 9.0;
    const double rest = (slipWork - kF75 * std::pow(1.0 - std::exp(-k * L), 2) / k) / L;
    EXPECT_NEAR(shortBeam.P(s, 3, 10), kF75 * std::exp(-k * L) - rest, 1e-6 * kF75);
    EXPECT_NEAR(shortBeam.P(s, 1, 0), kF75 * std::exp(-2.0 * k * L) - rest, 1e-6 * kF75);
}

TEST(TendonLosses, TransmissionLengthOfAPretensionedTendon) {
    // Type 1: the force grows linearly from 0 at the end over 2 m.
    Beam b(10, 1.0);
    CTendon* t = b.Tendon();
    t->SetType(1);
    Beam::AddN(t, 4, 1, 10, 0.0, 0.0, 0.0);
    t->SetLossParam(0.0, 0.0, 2.0, 0.0, 0.0, 0.0, 0.0, 0.0);
    ASSERT_EQ(t->Update(&b.s), 1);
    EXPECT_NEAR(b.P(t, 1, 0), 0.0, 1e-9);
    EXPECT_NEAR(b.P(t, 1, 5), 0.25 * kF75, 1e-9);
    EXPECT_NEAR(b.P(t, 2, 5), 0.75 * kF75, 1e-9);
    EXPECT_NEAR(b.P(t, 3, 5), kF75, 1e-9);
    // The second end is not jacked: no slip there.
    EXPECT_NEAR(b.P(t, 10, 10), kF75, 1e-9);
}

TEST(TendonLosses, BothEndsJackedMeetWithAKinkAndShareTheElongation) {
    Beam b(10, 3.0);
    CTendon* t = b.Tendon();
    t->SetStressParam(75.0, 75.0, 1);
    Beam::AddN(t, 4, 1, 10, 0.0, 0.0, 0.0);
    const double k = 0.003, L = 30.0;
    t->SetLossParam(0.2, k, 0.0, 0.0, 0.0, 0.0, 0.0, 0.0);
    ASSERT_EQ(t->Update(&b.s), 1);
    // The larger of the two curves: e^{-kx} up to the middle, e^{-k(L - x)} after it.
    EXPECT_NEAR(b.P(t, 4, 0), kF75 * std::exp(-k * 9.0), 1e-9);
    EXPECT_NEAR(b.P(t, 7, 10), kF75 * std::exp(-k * 9.0), 1e-9);
    const double mid = b.P(t, 5, 10);
    EXPECT_NEAR(mid, kF75 * std::exp(-k * 15.0), 1e-9);
    EXPECT_GT(b.P(t, 5, 9), mid);
    EXPECT_GT(b.P(t, 6, 1), mid);
    // Stressed from end 1 first: its whole curve, then end 2 only where it stands higher. The
    // trapezoid sums of 0.3 m steps are within 1e-5 of the integrals.
    const double e1 = kF75 * (1.0 - std::exp(-k * L)) / (k * kEA) * 1000.0;
    const double e2 = kF75 * std::pow(1.0 - std::exp(-k * L / 2.0), 2) / (k * kEA) * 1000.0;
    EXPECT_NEAR(t->GetElongation1(), e1, 1e-5 * e1);
    EXPECT_NEAR(t->GetElongation2(), e2, 1e-5 * e1);
}

TEST(TendonLosses, ShrinkageCreepAndRelaxation) {
    CTendon r(1, "");
    // Relaxation nil up to 50 %, 2.5 % at 70 %, linear and without a cap above.
    r.SetLossParam(0.0, 0.0, 0.0, 0.0, 0.0, 50.0, 70.0, 2.5);
    EXPECT_EQ(r.CalcRelaxLoss(50.0), 0.0);
    EXPECT_NEAR(r.CalcRelaxLoss(60.0), 1.25, 1e-12);
    EXPECT_NEAR(r.CalcRelaxLoss(90.0), 5.0, 1e-12);
    r.SetLossParam(0.0, 0.0, 0.0, 0.0, 0.0, 50.0, 50.0, 2.5);
    EXPECT_EQ(r.CalcRelaxLoss(60.0), 0.0);
    r.SetLossParam(0.0, 0.0, 0.0, 0.0, 0.0, 50.0, 70.0, 0.0);
    EXPECT_EQ(r.CalcRelaxLoss(60.0), 0.0);

    // At 75 % relaxation takes (75 - 50)·2.5/20 = 3.125 %; shrinkage -0.3 and creep -0.5 per
    // mille take 0.3·EA and 0.5·EA per mille.
    Beam b(2, 5.0);
    CTendon* t = b.Tendon();
    Beam::AddN(t, 4, 1, 2, 0.0, 0.0, 0.0);
    t->SetLossParam(0.0, 0.0, 0.0, -0.3, -0.5, 50.0, 70.0, 2.5);
    ASSERT_EQ(t->Update(&b.s), 1);
    EXPECT_NEAR(b.P(t, 2, 4), kF75 * (1.0 - 0.03125) - 0.8e-3 * kEA, 1e-9);
}

TEST(TendonElemRes, ForceBetweenPointsKeepsItsInterpolation) {
    CTendonElemRes r(1);
    EXPECT_EQ(r.CalcTendonForce(0.5), 0.0);
    for (auto [x, p] : {std::pair{0.2, 100.0}, {0.5, 200.0}, {0.8, 300.0}})
        r.GetSecResList()->Add(std::make_unique<CTendonDesSecRes>(x, p, 0, 0, 0, 0, 0, 0));
    // Between 0.2 and 0.5 the line runs from the first force by the distance to the second
    // point: at 0.3, 100 + 0.2·100/0.3.
    EXPECT_NEAR(r.CalcTendonForce(0.3), 100.0 + 0.2 * 100.0 / 0.3, 1e-9);
    EXPECT_NEAR(r.CalcTendonForce(0.5), 200.0, 1e-12);
    // Just short of a point the force of the point before it.
    EXPECT_NEAR(r.CalcTendonForce(0.5 - 5e-6), 100.0, 1e-12);
    // Before the first point: the first force within 0.001, else the last; after the last: the
    // first.
    EXPECT_EQ(r.CalcTendonForce(0.1995), 100.0);
    EXPECT_EQ(r.CalcTendonForce(0.1), 300.0);
    EXPECT_EQ(r.CalcTendonForce(0.9), 100.0);
}

namespace {

// A level line along +X, stations 0 to 100, with a 1.0 × 2.0 m rectangle whose centre of gravity
// is on the line; the upper face marked 1, the lower one 2. Nodes on it every 10 m from 10.
struct LineModel {
    LineModel() : s(2) {
        s.CreateDefaultContents(2, 0);
        std::string t = "REFLINE 1\nRFLHORI 1 1 1 0 0 0 100 100 0\n";
        for (const char* st : {"0", "100"}) {
            const std::string at = std::string(" 1 ") + st + " ";
            t += "XSECT" + at + "GENERAL CONCR 1 1 1\n";
            t += "PT" + at + "1 1 -500 -2000\nPT" + at + "2 1 500 -2000\nPT" + at +
                 "3 1 500 0\nPT" + at + "4 1 -500 0\nPT" + at + "5 1 -500 -2000\n";
            t += "SECTFACE" + at + "1 2\nSECTFACE" + at + "2 2\nSECTFACE" + at + "3 1\nSECTFACE" +
                 at + "4 1\n";
        }
        std::string log;
        s.GetStructureCmd()->CommandConvert(&t, &log, 0);
        EXPECT_EQ(log, "");
        s.ReCalcAllRoadProfiles();
        s.ReCalcAllKeySections(0);
        for (int i = 1; i <= 5; ++i) {
            auto node = std::make_unique<CNode>(i, 10.0 * i, 0.0, 0.0);
            node->SetRefLineNo(1);
            node->SetRefLineConnect(1);
            node->SetStationNo(10.0 * i);
            s.AddNode(std::move(node));
        }
        for (int i = 1; i <= 3; ++i) s.AddElement(std::make_unique<CElement>(i, i, i + 1, 0, 0));
        s.UpdatePointers();
    }
    // Straight pieces by stations on line 1, 0.1 m above the lower face and 0.2 m across.
    CTendon* Tendon(int no, double to) {
        auto t = std::make_unique<CTendon>(no, "Cable");
        t->SetGeomType(1);
        t->SetRefLineNo(1);
        t->SetRelativeType(3);
        t->SetArea(1000.0);
        // A set that is not there: E = 195000 MPa, fpk = 1670 MPa.
        t->SetMatParNo(9);
        t->SetStressParam(75.0, 0.0, 1);
        for (int dir : {1, 2}) {
            auto g = std::make_unique<CTendonGeom>(4, dir);
            g->SetStations(10.0, to);
            g->SetValues(dir == 2 ? 0.1 : 0.2, dir == 2 ? 0.1 : 0.2, 0.0);
            dir == 2 ? t->AddTendonGeomN(std::move(g)) : t->AddTendonGeomL(std::move(g));
        }
        return s.AddTendon(std::move(t));
    }
    CStructure s;
};

} // namespace

TEST(TendonGeometry, ByStationsFromTheLowerFaceIntoASectionsTendonGroup) {
    LineModel m;
    CTendon* t = m.Tendon(1, 40.0);
    t->SetNoOfTendons(3);
    t->SetSpaceLDir(100.0);
    ASSERT_EQ(t->Update(&m.s), 1) << t->GetUpdateText();
    // Soffit 1 m under the line: the tendon at z = -0.9, and 0.2 m to the right of travel (-Y).
    const CTendonDesSecRes* r = t->GetTendonElemResPtr(2)->GetSecResList()->At(5);
    EXPECT_NEAR(r->GetCoord(0), 25.0, 1e-9);
    EXPECT_NEAR(r->GetCoord(1), -0.2, 1e-9);
    EXPECT_NEAR(r->GetCoord(2), -0.9, 1e-9);
    EXPECT_NEAR(t->GetTotalAngle(), 0.0, 1e-9);
    double strain = 0.0;
    EXPECT_EQ(t->CalcStrainByStation(25.0, &m.s, &strain), 1);
    EXPECT_NEAR(strain, kF75 / kEA * 1000.0, 1e-9);
    EXPECT_EQ(t->CalcStrainByStation(55.0, &m.s, &strain), 0);
    // Measured from the line instead: 0.1 m up and 0.2 m to the right of it.
    t->SetRelativeType(4);
    ASSERT_EQ(t->Update(&m.s), 1) << t->GetUpdateText();
    r = t->GetTendonElemResPtr(3)->GetSecResList()->At(2);
    EXPECT_NEAR(r->GetCoord(0), 32.0, 1e-9);
    EXPECT_NEAR(r->GetCoord(1), -0.2, 1e-9);
    EXPECT_NEAR(r->GetCoord(2), 0.1, 1e-9);
    EXPECT_NEAR(r->GetL(0), 0.2, 1e-9);
    t->SetRelativeType(3);
    ASSERT_EQ(t->Update(&m.s), 1);

    // A tendon following it 100 mm higher, with no pieces of its own.
    auto follower = std::make_unique<CTendon>(5, "Follower");
    follower->SetRelativeType(3);
    follower->SetArea(1000.0);
    follower->SetConnectTendon(1);
    follower->SetNOffset(100.0);
    CTendon* f = m.s.AddTendon(std::move(follower));
    ASSERT_EQ(f->Update(&m.s), 1) << f->GetUpdateText();
    EXPECT_NEAR(f->GetTendonElemResPtr(1)->GetSecResList()->At(3)->GetCoord(2), -0.8, 1e-9);

    // The group at station 20: three cables in a row 0.1 m apart about the tendon, which is 0.2 m
    // right of and 0.9 m under the centre of gravity.
    std::unique_ptr<CKeySection> sec = m.s.CreateKeySection(1, 1, 20.0, 4);
    ASSERT_TRUE(sec);
    std::string text;
    ASSERT_EQ(t->GenerateSectionPrest(&m.s, sec.get(), 0, 1, &text), 1);
    EXPECT_EQ(text, Format("Ten.: 1  %5.3f [o/oo] \r\n", kF75 / kEA * 1000.0));
    const CPrestGroup* g = sec->GetPrestGroupPtr(1);
    ASSERT_TRUE(g);
    EXPECT_EQ(g->GetTendonNo(), 1);
    ASSERT_EQ(g->GetPrestList()->GetCount(), 3u);
    const CPrest* c = g->GetPrestList()->At(2);
    EXPECT_EQ(c->GetName(), "T: 1.3");
    EXPECT_NEAR(c->GetX(), sec->GetCoGX() + 0.3, 1e-9);
    EXPECT_NEAR(c->GetY(), sec->GetCoGY() - 0.9, 1e-9);
    EXPECT_NEAR(g->GetEpssi(), kF75 / kEA, 1e-12);
}

TEST(TendonGeometry, ElementAgainstTheLineAndARingOfConnectionsAreRefused) {
    LineModel m;
    m.s.AddElement(std::make_unique<CElement>(4, 5, 4, 0, 0));
    m.s.UpdatePointers();
    CTendon* t = m.Tendon(2, 50.0);
    std::string errors;
    EXPECT_EQ(t->GenerateTendonGeom(&m.s, &errors), 0);
    EXPECT_EQ(errors, "ERROR: \r\nTendon no.:  2\r\nElement no.: 4\r\n"
                      "RefLine no.: 1  From station:    50.000  To station:    40.000\r\n"
                      "Element is defined in opposite direction of reference line!\r\n\r\n");
    EXPECT_EQ(t->GetTenElemGeomList()->GetCount(), 0u);
    // Up to station 40 the reversed element is not touched.
    CTendon* ok = m.Tendon(3, 40.0);
    EXPECT_EQ(ok->GenerateTendonGeom(&m.s, &errors), 1);
    EXPECT_EQ(ok->GetTenElemGeomList()->GetCount(), 3u);

    CTendon* a = m.Tendon(6, 40.0);
    CTendon* b = m.Tendon(7, 40.0);
    a->SetConnectTendon(7);
    a->SetLOffset(10.0);
    b->SetConnectTendon(6);
    b->SetLOffset(20.0);
    EXPECT_EQ(a->Update(&m.s), 0);
    EXPECT_NE(a->GetUpdateText().find("ring"), std::string::npos);
    // The offsets are summed once round the ring.
    double addL = 0.0, addN = 0.0;
    a->GetRelInfo(&m.s, &addL, &addN);
    EXPECT_NEAR(addL, 0.03, 1e-12);
}
