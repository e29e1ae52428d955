// Prestressing tendons run through kelo and read again through the library: the forces along a
// tendon after friction and anchor slip against their closed forms, and the tendon as a load on
// the frame against hand calculations of the equivalent loads.
//
// Units m, kN, kNm. Beams run along X with local N along +Z, so vertical bending is about L
// (inertia IL) and ML is negative for hogging. The prestressing steel of the small beams is
// MPREST 2: fsk 1600 MPa, E 200000 MPa; a tendon of 1000 mm2 jacked to 62.5 % carries
// F = 1000 mm2 x 1600 MPa x 0.625 = 1000 kN.
//
// The tendon is walked in ten steps an element (h = 0.2 m for the elements of 2 m here): its turn
// is summed from the tangents of the path, exactly, and its length from the chords, which fall
// short of the arc by y''^2 h^2 / 24 of it (below 1e-7 here). The frame feels the tendon as point
// forces at the ends of the chords, each chord carrying the force along its own direction. That
// is where the tolerances below come from.

#include "KeloRun.h"

#include "geometry/Tendon.h"
#include "model/Displace.h"
#include "model/Structure.h"
#include "platform/TextFile.h"
#include "store/MemResBase.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <memory>
#include <string>

using namespace kelo;
using namespace kelo::e2e;

namespace {

// A command file of a test, run by kelo and read again by the library.
struct Model {
    Model() = default;
    Model(const std::string& name, const std::string& text) : file(name + ".inp") {
        CTextWriter w;
        w.Open("source_" + file, false);
        w.Write(text);
        w.Close();
        Load("source_" + file);
    }
    // An example of the source tree.
    static Model Example(const std::string& example) {
        Model m;
        m.file = example;
        m.Load(SourcePath("examples/" + example));
        return m;
    }
    void Load(const std::string& source) {
        run = RunKelo(source, file);
        s = std::make_unique<CStructure>(2);
        s->CreateDefaultContents(2, 0);
        s->SetDocumentPath(file);
        s->ReadCommandFile(file, &log, 0);
    }
    std::array<double, 6> Disp(int node, int lc) const {
        CDisplace d;
        EXPECT_EQ(s->GetResBasePtr()->NodeDisplaceInBase(0, 0, 0, node, 1, lc, &d), 1);
        return {d.Get(0), d.Get(1), d.Get(2), d.Get(3), d.Get(4), d.Get(5)};
    }
    std::array<double, 6> Reaction(int node, int lc) const {
        std::array<double, 6> r{};
        EXPECT_EQ(s->GetResBasePtr()->NodeReactionInBase(0, 0, 0, node, 1, lc, r.data()), 1);
        return r;
    }
    std::array<double, 6> Force(int element, double x, int lc) const {
        std::array<double, 6> f{};
        int a = 0, b = 0;
        EXPECT_EQ(
            s->GetResBasePtr()->SectionForceInBase(0, 0, 0, element, x, 1, lc, a, b, f.data()), 1)
            << "element " << element << " x/l " << x;
        return f;
    }
    // Force of one cable of a tendon at x/L of an element, from the loss walk.
    double TendonForce(int tendon, int element, double xi) const {
        const CTendon* t = s->GetTendonPtr(tendon);
        EXPECT_NE(t, nullptr);
        const CTendonElemRes* r = t ? t->GetTendonElemResPtr(element) : nullptr;
        EXPECT_NE(r, nullptr) << "tendon " << tendon << " element " << element;
        return r ? r->CalcTendonForce(xi) : 0.0;
    }
    void ExpectCompleted() const {
        EXPECT_EQ(run.status, 0) << run.out << run.err;
        EXPECT_EQ(Count(run.out, "Status: Completed"), 1) << run.out;
        EXPECT_EQ(Count(run.out, "Status: Failed!! "), 0) << run.out;
        EXPECT_EQ(Count(log, "Status: Completed"), 1) << log;
    }
    std::string file;
    RunResult run;
    std::unique_ptr<CStructure> s;
    std::string log;
};

// A simply supported beam of L = 20 m in ten elements of 2 m, supported at nodes 1 and 11,
// E = 30000 MPa, A = 1 m2, IL = 0.1 m4; and tendon 1 of 1000 mm2 on a parabola through 0 at the
// ends and e = -0.4 m at mid-span: a type 6 piece from 0 at the slope -0.08 (= 2 x -0.4 / 10)
// level at mid-span, then a type 7 piece from there up to 0 at the slope 0.08.
const std::string kSimpleBeam = "NODE 1 11 1 0 0 0 2 0 0\n"
                                "ELEM 1 10 1 1 2 1\n"
                                "SECTINS 1 1 30000 0.2 1.0 0.1 0.1 0.1\n"
                                "ELSPINS 1 10 1 1 3 ZDIR\n"
                                "DESGINS 1 10 1 0 0.5 1\n"
                                "BOUNDINS 1 1 1 1 1 1 1 0 0\n"
                                "BOUNDINS 11 11 1 0 1 1 1 0 0\n"
                                "MPREST 2 1600 200000 35 1 1 1800\n"
                                "TENDON 1 POST 2 1 1000 60\n"
                                "TENGEON 1 6 1 5 1 0 -400 -0.08\n"
                                "TENGEON 1 7 6 10 1 -400 0 0.08\n";

constexpr double kF = 1000.0;   // jacking force, kN
constexpr double kE = 3e7;      // kN/m2
constexpr double kI = 0.1;      // m4
constexpr double kStep = 0.2;   // chord of the walk, m
constexpr double kCurv = 0.008; // y'' = 8 e / L^2 of the parabola, 1/m

} // namespace

// Without losses the tendon of 1000 kN acts on the determinate beam as its equivalent loads: the
// upward load w = 8 P e / L^2 = 8 kN/m with the downward pull P 4e/L of each anchor, which the
// supports never see. Hand values:
// - reactions 0 (the loads are in equilibrium among themselves);
// - camber at mid-span 5 w L^4 / (384 EI) = 5 x 8 x 20^4 / (384 x 3e6) = 5.5556e-3 m up; the
//   chords shift the moment diagram from the parabola by at most y'' h^2 / 8, h^2 / L^2 = 1e-4
//   of e, and the force works on the lever with its horizontal part P cos(theta), the slope
//   theta at most 0.08 (1 - cos = 0.32 %) near the ends where the lever is small: tolerance
//   0.1 %;
// - moment in the concrete at mid-span P e = -400 kNm (hogging), its axial force -P: the chords
//   there slope 0.0008, cos of which is 1 within 1e-6; tolerance 0.1 %.
TEST(Prestress, ParabolicTendonInASimpleBeamActsAsItsEquivalentLoad) {
    const Model m("prestress_simple", kSimpleBeam + "TENSTRESS 1 62.5 62.5\n"
                                                    "LOAD 1 15 1 10 1 0 1 \"Tendon\"\n"
                                                    "SOLVE 1\n");
    m.ExpectCompleted();
    const double w = 8.0 * kF * 0.4 / (20.0 * 20.0);
    const double camber = 5.0 * w * std::pow(20.0, 4) / (384.0 * kE * kI);
    EXPECT_NEAR(m.Disp(6, 1)[2], camber, 1e-3 * camber);
    for (const int node : {1, 11})
        EXPECT_NEAR(m.Reaction(node, 1)[2], 0.0, 1e-6 * kF) << "node " << node;
    const auto mid = m.Force(5, 1.0, 1);
    EXPECT_NEAR(mid[3], -kF * 0.4, 1e-3 * kF * 0.4);
    EXPECT_NEAR(mid[1], -kF, 1e-3 * kF);
    // A quarter of the way, x = 5 m: e = -0.4 (1 - (1 - 2x/L)^2) = -0.3 m. The section lies in
    // the chord from 5 to 5.2 m, of slope y'(5.1) = -0.08 + 0.008 x 5.1 = -0.0392, whose force
    // works on the lever with P cos(atan 0.0392): M = -299.770 kNm. Tolerance 1e-4 of it.
    const double quarter = -kF * std::cos(std::atan(0.0392)) * 0.3;
    EXPECT_NEAR(m.Force(3, 0.5, 1)[3], quarter, 1e-4 * std::fabs(quarter));
}

// Jacked at end 1 only, friction mu = 0.2 per radian and wobble k = 0.002 per m, no slip: the
// force at the dead end is F exp(-(mu alpha + k s)) with the whole turn alpha = 2 atan(0.08) =
// 0.159662 rad and the developed length s = (1/y'') [u sqrt(1 + u^2) / 2 + asinh(u) / 2] from
// u = -0.08 to 0.08 = 20.02131 m: 930.55 kN. At mid-span, half of each: F exp(-(mu atan(0.08) +
// k s / 2)) = 964.65 kN. Tolerance 1e-6 F: the turn is exact and the chords' length is short by
// 1e-7 of it.
TEST(Prestress, FrictionAlongTheTendonToTheDeadEnd) {
    const Model m("prestress_friction", kSimpleBeam + "TENLOSS 1 0.2 0.002\n"
                                                      "TENSTRESS 1 62.5 0\n"
                                                      "LOAD 1 15 1 10 1 0 1 \"Tendon\"\n"
                                                      "SOLVE 1\n");
    m.ExpectCompleted();
    const double mu = 0.2, k = 0.002;
    const double u = 0.08;
    const double s = (u * std::sqrt(1.0 + u * u) + std::asinh(u)) / kCurv;
    const double tol = 1e-6 * kF;
    EXPECT_NEAR(m.TendonForce(1, 1, 0.0), kF, 1e-6 * kF);
    EXPECT_NEAR(m.TendonForce(1, 10, 1.0), kF * std::exp(-(mu * 2.0 * std::atan(u) + k * s)), tol);
    EXPECT_NEAR(m.TendonForce(1, 5, 1.0), kF * std::exp(-(mu * std::atan(u) + k * s / 2.0)), tol);
    // The force that reaches the frame: the concrete at the dead end carries the tendon's force
    // along its last chord, of slope y'(L - h/2) = 0.0792, as compression.
    const double dead = m.TendonForce(1, 10, 1.0);
    EXPECT_NEAR(m.Force(10, 1.0, 1)[1], -dead * std::cos(std::atan(0.0792)), 1e-6 * dead);
}

// Anchor slip of 3 mm at the jacked end with mu = 0.2 and k = 0.002. Along the parabola the turn
// grows as y'' x, so the friction force is F exp(-beta x) with beta = mu y'' + k = 0.0036 /m. The
// slip is taken up where the force curve, mirrored about its level at the end of the zone,
// encloses slip E A with the curve before slip: (F / beta) (1 - exp(-beta xs))^2 = slip E A, so
// xs = -ln(1 - sqrt(slip E A beta / F)) / beta = 13.22 m (slip E A = 0.003 m x 200000 MPa x
// 1000 mm2 = 600 kNm). Tendon 2, the same without slip, gives the curve before slip; the last
// point that lost force lies less than a step before xs. The turn grows as y''/(1 + y'^2) rather
// than y'': beta is within 0.7 % and xs within 0.4 % (0.05 m) of the closed form.
TEST(Prestress, AnchorSlipZoneAgainstItsClosedForm) {
    const Model m("prestress_slip", kSimpleBeam + "TENLOSS 1 0.2 0.002 3\n"
                                                  "TENSTRESS 1 62.5 0\n"
                                                  "TENDON 2 POST 2 1 1000 60\n"
                                                  "TENGEON 2 6 1 5 1 0 -400 -0.08\n"
                                                  "TENGEON 2 7 6 10 1 -400 0 0.08\n"
                                                  "TENLOSS 2 0.2 0.002 0\n"
                                                  "TENSTRESS 2 62.5 0\n"
                                                  "LOAD 1 15 1 10 1 0 1 \"Tendon with slip\"\n"
                                                  "SOLVE 1\n");
    m.ExpectCompleted();
    const double beta = 0.2 * kCurv + 0.002;
    const double W = 0.003 * 200000.0 * 1000.0 * 0.001;
    const double xs = -std::log(1.0 - std::sqrt(W * beta / kF)) / beta;
    ASSERT_NEAR(xs, 13.22, 0.01);

    const CTendon* slipped = m.s->GetTendonPtr(1);
    CTendon* plain = m.s->GetTendonPtr(2);
    ASSERT_NE(slipped, nullptr);
    ASSERT_NE(plain, nullptr);
    // Tendon 2 loads nothing: its losses are asked for here.
    ASSERT_EQ(plain->Update(m.s.get()), 1);
    double lastLoss = -1.0;
    int points = 0;
    for (int e = 1; e <= 10; ++e) {
        const CTendonElemRes* a = slipped->GetTendonElemResPtr(e);
        const CTendonElemRes* b = plain->GetTendonElemResPtr(e);
        ASSERT_NE(a, nullptr);
        ASSERT_NE(b, nullptr);
        ASSERT_EQ(a->GetSecResList()->GetCount(), b->GetSecResList()->GetCount());
        for (std::size_t i = 0; i < a->GetSecResList()->GetCount(); ++i) {
            const CTendonDesSecRes* p = a->GetSecResList()->At(i);
            const double loss = b->GetSecResList()->At(i)->GetP() - p->GetP();
            EXPECT_GE(loss, -1e-9);
            if (loss > 1e-6) lastLoss = std::max(lastLoss, p->GetCoord(0));
            ++points;
        }
    }
    EXPECT_GT(points, 100);
    EXPECT_LT(lastLoss, xs + 0.05);
    EXPECT_GT(lastLoss, xs - kStep - 0.05);
    // At the anchor the slip takes off (1 - exp(-2 beta xs)) F, with xs of the walk at most a
    // step beyond the closed form.
    const double anchor = m.TendonForce(1, 1, 0.0);
    EXPECT_LT(anchor, kF * std::exp(-2.0 * beta * (xs - 0.05)));
    EXPECT_GT(anchor, kF * std::exp(-2.0 * beta * (xs + kStep + 0.05)));
}

// Two spans of L = 20 m (nodes 1, 11 and 21 supported), P = 1000 kN without losses, on a
// parabola in each span through e = 0 at the outer supports and e_B = +0.125 m over the inner
// one, low point -0.1 m at 8 m from the outer support: y = c (x - 8)^2 - 0.1 with c L (L - 16)
// = 0.125, c = 0.0015625, y'' = 2c = 0.003125 /m. Pieces: type 6 from 0 at the slope -0.025 to
// the low point, type 7 from there at the end slope 0.0375, and mirrored.
// Equivalent loads: w = P y'' = 3.125 kN/m upward on both spans, a downward kink force straight
// into the inner support, no end moments (e = 0 at the anchors). The continuous beam under w:
// M_B = w L^2 / 8 = +156.25 kNm (sagging). The primary moment there is P e_B = 125 kNm, so the
// secondary moment is 156.25 - 125 = 31.25 kNm, carried by reactions of M_sec / L = 1.5625 kN at
// the outer supports and twice that, the other way, at the inner one.
// The hand calculation takes the tendon force as horizontal; the program follows its direction,
// which scales the transverse loads by cos^3 and the lever moment by cos of the slope, at most
// atan(0.0375): 1 - cos^3 = 0.21 %. Tolerance 0.3 % of M_B (0.5 kNm) on both moments.
TEST(Prestress, DrapedTendonInATwoSpanBeamGivesItsSecondaryMoment) {
    const Model m("prestress_two_span", "NODE 1 21 1 0 0 0 2 0 0\n"
                                        "ELEM 1 20 1 1 2 1\n"
                                        "SECTINS 1 1 30000 0.2 1.0 0.1 0.1 0.1\n"
                                        "ELSPINS 1 20 1 1 3 ZDIR\n"
                                        "DESGINS 1 20 1 0 0.5 1\n"
                                        "BOUNDINS 1 1 1 1 1 1 1 0 0\n"
                                        "BOUNDINS 11 21 10 0 1 1 1 0 0\n"
                                        "MPREST 2 1600 200000 35 1 1 1800\n"
                                        "TENDON 1 POST 2 1 1000 60\n"
                                        "TENGEON 1 6 1 4 1 0 -100 -0.025\n"
                                        "TENGEON 1 7 5 10 1 -100 125 0.0375\n"
                                        "TENGEON 1 6 11 16 1 125 -100 -0.0375\n"
                                        "TENGEON 1 7 17 20 1 -100 0 0.025\n"
                                        "TENSTRESS 1 62.5 62.5\n"
                                        "LOAD 1 15 1 20 1 0 1 \"Tendon\"\n"
                                        "SOLVE 1\n");
    m.ExpectCompleted();
    const double L = 20.0, eB = 0.125;
    const double w = kF * 2.0 * 0.0015625;
    const double total = w * L * L / 8.0;
    const double secondary = total - kF * eB;
    ASSERT_NEAR(secondary, 31.25, 1e-9);
    const double tol = 3e-3 * total;
    for (const auto& [element, x] : {std::pair{10, 1.0}, std::pair{11, 0.0}}) {
        const double M = m.Force(element, x, 1)[3];
        EXPECT_NEAR(M, total, tol) << "element " << element;
        EXPECT_NEAR(M - kF * eB, secondary, tol) << "element " << element;
    }
    // The secondary reactions: equal at the outer supports, twice as much and the other way at
    // the inner one; no net force.
    const double rA = m.Reaction(1, 1)[2], rB = m.Reaction(11, 1)[2], rC = m.Reaction(21, 1)[2];
    EXPECT_NEAR(std::fabs(rA), secondary / L, tol / L);
    EXPECT_NEAR(rC, rA, tol / L);
    EXPECT_NEAR(rB, -2.0 * rA, 2.0 * tol / L);
}

// The example prestressed_three_span.inp: two tendons of two cables each, jacked at both ends to
// 80 % of 1640 MPa over 2850 mm2: 3739.2 kN a cable, 7478.4 kN a tendon. At mid main span
// (x = 50 m, the end of element 10) the path has turned by atan(0.18) + 4 atan(0.17) = 0.85165 rad
// from either anchor over 50.2456 m (the length of the path, summed from its slopes), so a cable
// carries 3739.2 exp(-(0.19 x 0.85165 + 0.0013 x 50.2456)) = 2979.45 kN. The walk's turn is
// exact and its chords of 0.5 m fall short of the arc by 1e-6 of it; with the hand value's
// figures to five places, tolerance 1e-5.
TEST(Prestress, ThreeSpanExampleTendonForcesAndListings) {
    const Model m = Model::Example("prestressed_three_span.inp");
    m.ExpectCompleted();
    const double jack = 2850.0 * 1640.0 * 0.8 / 1000.0;
    const double mid = jack * std::exp(-(0.19 * 0.85165 + 0.0013 * 50.2456));
    for (const int tendon : {1, 2}) {
        EXPECT_NEAR(m.TendonForce(tendon, 10, 1.0), mid, 1e-5 * mid) << "tendon " << tendon;
        EXPECT_NEAR(m.TendonForce(tendon, 11, 0.0), mid, 1e-5 * mid) << "tendon " << tendon;
        // The path and the jacking are the same from both ends: the forces at x = 25 m and
        // x = 75 m agree.
        EXPECT_NEAR(m.TendonForce(tendon, 5, 1.0), m.TendonForce(tendon, 15, 1.0), 1e-5 * mid);
        // The slip leaves less than the jacking force at the anchors.
        EXPECT_LT(m.TendonForce(tendon, 1, 0.0), jack);
        EXPECT_GT(m.TendonForce(tendon, 1, 0.0), mid);
    }
    // The tendon load case holds itself in balance: the vertical reactions sum to zero.
    double sum = 0.0;
    for (const int node : {1, 7, 15, 21}) sum += m.Reaction(node, 5)[2];
    EXPECT_NEAR(sum, 0.0, 1e-6 * jack);
    // The concrete at mid main span carries the four cables in compression, each along the chord
    // that ends there, of slope y'(49.75 m) = 0.25 x 2 x 1.7 / (0.75 x 20^2) = 0.00283.
    EXPECT_NEAR(m.Force(10, 1.0, 5)[1], -4.0 * mid * std::cos(std::atan(0.25 * 3.4 / 300.0)),
                1e-5 * 4.0 * mid);

    std::string listing;
    ASSERT_TRUE(ReadWholeFile("prestressed_three_span.lis", listing));
    for (const char* title :
         {"Tendon summary", "Tendon losses", "Tendon elongation", "Stressing record",
          "Tendon sum and position calculated for design", "Tendon total amount"})
        EXPECT_EQ(Count(listing, title), 1) << title;
    // The jacking force of a tendon (both cables), at each end, in the elongation table.
    const std::size_t from = listing.find("Tendon elongation");
    const std::size_t to = listing.find("Stressing record");
    ASSERT_LT(from, to);
    EXPECT_EQ(Count(listing.substr(from, to - from), "7478.4"), 4) << listing;
}
