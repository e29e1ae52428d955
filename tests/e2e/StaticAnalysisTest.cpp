// Static analyses of small frames, each run through kelo (exit status and the run's last log
// line) and read again through the library to compare displacements, reactions and section forces
// with closed-form values.
//
// Units m, kN, kNm; E = 30000 MPa = 3e7 kN/m2 throughout. Beams along X have their local N axis
// along +Z, so L = M x N = -Y: vertical bending is bending about L, taken by the inertia IL.
// Signs of the stored results:
// - displacements in global axes; ry > 0 turns +X towards -Z, so a beam sloping down along +X has
//   ry > 0;
// - a reaction is the force (moment) of the structure on its support, that is the negative of the
//   support's action on the structure; under a downward load a support's rz is negative;
// - section forces in local axes, the action of the part beyond the section on the part towards
//   node 1: PM (index 1) is tension positive, ML (index 3) is negative for hogging.
// A section takes the loads of its element up to 0.1 mm past it (so that a section at x/l = 0
// takes a point load at the node): its moment differs from the value at the section by about
// 1e-4 m times the shear force there, and is compared with 1.1 times that (ExpectSection).

#include "KeloRun.h"

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

constexpr double kE = 3e7;

// A command file of a test, run by kelo and read by the library.
struct Model {
    explicit Model(const std::string& name, const std::string& text) : file(name + ".inp") {
        CTextWriter w;
        w.Open("source_" + file, false);
        w.Write(text);
        w.Close();
        run = RunKelo("source_" + file, file);
        s = std::make_unique<CStructure>(2);
        s->CreateDefaultContents(2, 0);
        s->SetDocumentPath(file);
        s->ReadCommandFile(file, &log, 0);
    }
    std::array<double, 6> Disp(int node, int lc) const {
        CDisplace d;
        EXPECT_EQ(s->GetResBasePtr()->NodeDisplaceInBase(0, 0, 0, node, 1, lc, &d), 1)
            << "node " << node;
        return {d.Get(0), d.Get(1), d.Get(2), d.Get(3), d.Get(4), d.Get(5)};
    }
    std::array<double, 6> Reaction(int node, int lc) const {
        std::array<double, 6> r{};
        EXPECT_EQ(s->GetResBasePtr()->NodeReactionInBase(0, 0, 0, node, 1, lc, r.data()), 1)
            << "node " << node;
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
    // The applied forces and the reactions of a load case balance in X, Y and Z. The moment sums
    // are sums of nodal moments without lever arms, not a moment balance, and are not compared.
    void ExpectBalanced(int lc) const {
        const CLoadcase* c = s->GetLoadcasePtr(lc);
        ASSERT_NE(c, nullptr);
        double scale = 1.0;
        for (int i = 0; i < 3; ++i)
            scale = std::max(
                {scale, std::fabs(c->GetSumAppForces(i)), std::fabs(c->GetSumReaForces(i))});
        for (int i = 0; i < 3; ++i)
            EXPECT_NEAR(c->GetSumAppForces(i) + c->GetSumReaForces(i), 0.0, 1e-6 * scale)
                << "load case " << lc << " direction " << i;
    }
    void ExpectCompleted() const {
        EXPECT_EQ(run.status, 0) << run.out;
        EXPECT_EQ(Count(run.out, "Status: Completed"), 1) << run.out;
        EXPECT_EQ(Count(run.out, "Status: Failed!! "), 0) << run.out;
        EXPECT_EQ(Count(log, "Status: Completed"), 1) << log;
    }
    std::string file;
    RunResult run;
    std::unique_ptr<CStructure> s;
    std::string log;
};

void ExpectRel(double actual, double expected, double tol, const char* what) {
    EXPECT_NEAR(actual, expected, tol * std::fabs(expected)) << what;
}

// A section moment against its value, with the allowance of the 0.1 mm offset for a shear force
// of up to `shear` (kN).
void ExpectSection(double actual, double expected, double shear, const char* what) {
    EXPECT_NEAR(actual, expected, 1.1e-4 * std::fabs(shear) + 1e-9 * std::fabs(expected)) << what;
}

} // namespace

// Cantilever of L = 4 m in two elements, fixed at node 1; IL = 0.01 m4, EI = 3e5 kNm2.
// Case 1: P = 50 kN down at the tip: w = PL^3/3EI = 3.5556e-3 m, slope PL^2/2EI = 1.3333e-3,
// w(2 m) = P x^2 (3L - x)/6EI = 1.1111e-3 m, root moment -PL = -200 kNm, ML(3 m) = -50 kNm.
// Case 2: q = 10 kN/m down: w = qL^4/8EI = 1.0667e-3 m, root moment -qL^2/2 = -80 kNm,
// ML(3 m) = -q (L - x)^2 / 2 = -5 kNm.
// Beam elements with consistent end forces are exact at the nodes: tolerance 1e-9 relative.
TEST(StaticAnalysis, CantileverUnderTipAndUniformLoad) {
    const Model m("cantilever", R"(NODE 1 3 1 0 0 0 2 0 0
ELEM 1 2 1 1 2 1
SECTINS 1 1 30000 0.2 0.2 0.01 0.005 0.02
ELSPINS 1 2 1 1 3 ZDIR
BOUNDINS 1 1 1 1 1 1 1 1 1
DESGINS 1 2 1 0 0.5 1
LOAD 1 4 2 0 0 ZDIR -50 2 "Tip load"
LOAD 2 3 1 2 1 ZDIR -10 "Uniform load"
SOLVE 1
)");
    m.ExpectCompleted();
    const double EI = kE * 0.01, L = 4.0, P = 50.0, q = 10.0;
    ExpectRel(m.Disp(3, 1)[2], -P * L * L * L / (3 * EI), 1e-9, "tip deflection, tip load");
    ExpectRel(m.Disp(3, 1)[4], P * L * L / (2 * EI), 1e-9, "tip slope, tip load");
    ExpectRel(m.Disp(2, 1)[2], -P * 4.0 * (3 * L - 2.0) / (6 * EI), 1e-9, "mid deflection");
    ExpectSection(m.Force(1, 0.0, 1)[3], -P * L, P, "root moment, tip load");
    ExpectRel(m.Force(1, 0.0, 1)[2], -P, 1e-9, "shear, tip load");
    ExpectSection(m.Force(2, 0.5, 1)[3], -P * 1.0, P, "moment at 3 m, tip load");
    ExpectSection(m.Force(2, 1.0, 1)[3], 0.0, P, "moment at the tip, tip load");
    ExpectRel(m.Reaction(1, 1)[2], -P, 1e-9, "root reaction, tip load");
    ExpectRel(m.Reaction(1, 1)[4], P * L, 1e-9, "root moment reaction, tip load");

    ExpectRel(m.Disp(3, 2)[2], -q * std::pow(L, 4) / (8 * EI), 1e-9, "tip deflection, uniform");
    ExpectSection(m.Force(1, 0.0, 2)[3], -q * L * L / 2, q * L, "root moment, uniform");
    ExpectSection(m.Force(2, 0.5, 2)[3], -q * 1.0 / 2, q * 1.0, "moment at 3 m, uniform");
    ExpectRel(m.Reaction(1, 2)[2], -q * L, 1e-9, "root reaction, uniform");
    m.ExpectBalanced(1);
    m.ExpectBalanced(2);
}

// Propped cantilever, L = 6 m in three elements, fixed at x = 0, on a roller at x = 6, q = 10
// kN/m down. Prop reaction 3qL/8 = 22.5 kN, fixed end 5qL/8 = 37.5 kN, fixed end moment -qL^2/8
// = -45 kNm, slope at the prop qL^3/48EI = 1.5e-4 rising towards the prop (ry < 0).
TEST(StaticAnalysis, ProppedCantilever) {
    const Model m("propped", R"(NODE 1 4 1 0 0 0 2 0 0
ELEM 1 3 1 1 2 1
SECTINS 1 1 30000 0.2 0.2 0.01 0.005 0.02
ELSPINS 1 3 1 1 3 ZDIR
BOUNDINS 1 1 1 1 1 1 1 1 1
BOUNDINS 4 4 1 0 1 1 1 0 0
DESGINS 1 3 1 0 1
LOAD 1 3 1 3 1 ZDIR -10 "Uniform load"
SOLVE 1
)");
    m.ExpectCompleted();
    const double EI = kE * 0.01, L = 6.0, q = 10.0;
    ExpectRel(m.Reaction(4, 1)[2], -3 * q * L / 8, 1e-9, "prop reaction");
    // The roller holds Y, Z and the twist: along X and in its free rotations it reports nothing.
    EXPECT_EQ(m.Reaction(4, 1)[0], 0.0);
    EXPECT_EQ(m.Reaction(4, 1)[4], 0.0);
    EXPECT_EQ(m.Reaction(4, 1)[5], 0.0);
    ExpectRel(m.Reaction(1, 1)[2], -5 * q * L / 8, 1e-9, "fixed end reaction");
    ExpectSection(m.Force(1, 0.0, 1)[3], -q * L * L / 8, 5 * q * L / 8, "fixed end moment");
    ExpectRel(m.Disp(4, 1)[4], -q * L * L * L / (48 * EI), 1e-9, "slope at the prop");
    ExpectSection(m.Force(3, 1.0, 1)[3], 0.0, 3 * q * L / 8, "moment at the prop");
    m.ExpectBalanced(1);
}

// Fixed-fixed beam, L = 10 m, P = 100 kN down at a = 3 m (b = 7 m), on element 2 at its start.
// End moments -P a b^2/L^2 = -147 and -P a^2 b/L^2 = -63 kNm, reactions P b^2 (3a + b)/L^3 = 78.4
// and P a^2 (a + 3b)/L^3 = 21.6 kN, moment under the load 2 P a^2 b^2 / L^3 = 88.2 kNm, deflection
// under the load P a^3 b^3 / 3 E I L^3 = 1.029e-3 m. The support moments of the structure on its
// supports: +147 at A, and -63 at B (the moments of the load and of the reaction at B about A
// sum to 300 - 216 = 84 kNm, which the two support moments take).
TEST(StaticAnalysis, FixedFixedBeamWithPointLoadOffCentre) {
    const Model m("fixedfixed", R"(NODE 1 1 1 0 0 0
NODE 2 2 1 3 0 0
NODE 3 3 1 10 0 0
ELEM 1 2 1 1 2 1
SECTINS 1 1 30000 0.2 0.2 0.01 0.005 0.02
ELSPINS 1 2 1 1 3 ZDIR
BOUNDINS 1 3 2 1 1 1 1 1 1
DESGINS 1 2 1 0 1
LOAD 1 4 2 0 0 ZDIR -100 0 "Point load"
SOLVE 1
)");
    m.ExpectCompleted();
    const double EI = kE * 0.01, L = 10, a = 3, b = 7, P = 100;
    ExpectRel(m.Force(1, 0.0, 1)[3], -P * a * b * b / (L * L), 1e-9, "moment at A");
    ExpectSection(m.Force(2, 1.0, 1)[3], -P * a * a * b / (L * L), P, "moment at B");
    ExpectRel(m.Force(1, 1.0, 1)[3], 2 * P * a * a * b * b / (L * L * L), 1e-9, "under load");
    ExpectRel(m.Reaction(1, 1)[2], -P * b * b * (3 * a + b) / (L * L * L), 1e-9, "reaction A");
    ExpectRel(m.Reaction(3, 1)[2], -P * a * a * (a + 3 * b) / (L * L * L), 1e-9, "reaction B");
    ExpectRel(m.Reaction(1, 1)[4], P * a * b * b / (L * L), 1e-9, "support moment A");
    ExpectRel(m.Reaction(3, 1)[4], -P * a * a * b / (L * L), 1e-9, "support moment B");
    ExpectRel(m.Disp(2, 1)[2], -P * a * a * a * b * b * b / (3 * EI * L * L * L), 1e-9,
              "deflection under the load");
    m.ExpectBalanced(1);
}

// Two spans of L = 8 m, two elements each, q = 12 kN/m down on both, pinned at node 1 and on
// rollers at nodes 3 and 5. End reactions 3qL/8 = 36 kN, middle 10qL/8 = 120 kN, moment over the
// middle support -qL^2/8 = -96 kNm, deflection at the middle of a span qL^4/192EI = 8.533e-4 m.
TEST(StaticAnalysis, TwoSpanContinuousBeam) {
    const Model m("twospan", R"(NODE 1 5 1 0 0 0 4 0 0
ELEM 1 4 1 1 2 1
SECTINS 1 1 30000 0.2 0.2 0.01 0.005 0.02
ELSPINS 1 4 1 1 3 ZDIR
BOUNDINS 1 1 1 1 1 1 1 0 0
BOUNDINS 3 5 2 0 1 1 1 0 0
DESGINS 1 4 1 0 1
LOAD 1 3 1 4 1 ZDIR -12 "Uniform load"
SOLVE 1
)");
    m.ExpectCompleted();
    const double EI = kE * 0.01, L = 8, q = 12;
    ExpectRel(m.Reaction(1, 1)[2], -3 * q * L / 8, 1e-9, "end reaction");
    ExpectRel(m.Reaction(5, 1)[2], -3 * q * L / 8, 1e-9, "end reaction");
    ExpectRel(m.Reaction(3, 1)[2], -10 * q * L / 8, 1e-9, "middle reaction");
    ExpectSection(m.Force(2, 1.0, 1)[3], -q * L * L / 8, 5 * q * L / 8, "middle support");
    ExpectSection(m.Force(3, 0.0, 1)[3], -q * L * L / 8, 5 * q * L / 8, "middle support");
    ExpectRel(m.Disp(2, 1)[2], -q * std::pow(L, 4) / (192 * EI), 1e-9, "span deflection");
    ExpectRel(m.Disp(4, 1)[2], -q * std::pow(L, 4) / (192 * EI), 1e-9, "span deflection");
    m.ExpectBalanced(1);
}

// Portal frame in the X-Z plane, columns h = 4 m fixed at their feet, beam b = 6 m; H = 100 kN
// along +X at the top of the left column. Slope-deflection with c = EIc/h, g = EIb/b, k = g/c =
// (0.006/6)/(0.002/4) = 2: base moments (Hh/2)(1 + 3k)/(1 + 6k) = 107.69 kNm, column tops
// (Hh/2)(3k)/(1 + 6k) = 92.31 kNm, sway H h^3 (2 + 3k) / (12 EIc (1 + 6k)) = 5.4701e-3 m, each
// foot takes H/2. The slope-deflection method leaves out axial strain: the areas are 1000 m2, so
// that the axial shortening (about 1e-8 m) stays below the tolerance of 1e-5 relative.
TEST(StaticAnalysis, PortalFrameUnderSwayLoad) {
    const Model m("portal", R"(NODE 1 1 1 0 0 0
NODE 2 2 1 0 0 4
NODE 3 3 1 6 0 4
NODE 4 4 1 6 0 0
ELEM 1 1 1 1 2 1
ELEM 2 2 1 2 3 1
ELEM 3 3 1 4 3 1
SECTINS 1 1 30000 0.2 1000 0.002 0.01 0.002 "Column"
SECTINS 2 1 30000 0.2 1000 0.006 0.01 0.006 "Beam"
ELSPINS 1 3 2 1 3 XDIR
ELSPINS 2 2 1 2 3 ZDIR
BOUNDINS 1 4 3 1 1 1 1 1 1
DESGINS 1 3 1 0 1
LOAD 1 4 2 0 0 XDIR 100 0 "Sway load"
SOLVE 1
)");
    m.ExpectCompleted();
    const double H = 100, h = 4, k = 2, EIc = kE * 0.002;
    const double base = H * h / 2 * (1 + 3 * k) / (1 + 6 * k);
    const double top = H * h / 2 * 3 * k / (1 + 6 * k);
    const double sway = H * h * h * h * (2 + 3 * k) / (12 * EIc * (1 + 6 * k));
    ExpectRel(m.Disp(2, 1)[0], sway, 1e-5, "sway of the left top");
    ExpectRel(m.Disp(3, 1)[0], sway, 1e-5, "sway of the right top");
    ExpectRel(std::fabs(m.Force(1, 0.0, 1)[3]), base, 1e-5, "left base moment");
    ExpectRel(std::fabs(m.Force(3, 0.0, 1)[3]), base, 1e-5, "right base moment");
    ExpectRel(std::fabs(m.Force(1, 1.0, 1)[3]), top, 1e-5, "left column top");
    ExpectRel(std::fabs(m.Force(3, 1.0, 1)[3]), top, 1e-5, "right column top");
    // The feet are bent the same way by the sway.
    EXPECT_GT(m.Force(1, 0.0, 1)[3] * m.Force(3, 0.0, 1)[3], 0.0);
    ExpectRel(m.Reaction(1, 1)[0], H / 2, 1e-5, "left foot");
    ExpectRel(m.Reaction(4, 1)[0], H / 2, 1e-5, "right foot");
    EXPECT_NEAR(m.Disp(2, 1)[1], 0.0, 1e-12);
    m.ExpectBalanced(1);
}

// Two cantilevers of a1 = 3 m and a2 = 5 m meeting in a hinge (end 2 of element 1 free to turn
// about L), P = 60 kN down at the hinge. The tips share P by their stiffnesses 3EI/a^3: hinge
// deflection P / (3EI (1/a1^3 + 1/a2^3)) = 1.4803e-3 m, root moments -P_i a_i, no moment at the
// hinge.
TEST(StaticAnalysis, BeamWithAHinge) {
    const Model m("hinge", R"(NODE 1 1 1 0 0 0
NODE 2 2 1 3 0 0
NODE 3 3 1 8 0 0
ELEM 1 2 1 1 2 1
SECTINS 1 1 30000 0.2 0.2 0.01 0.005 0.02
ELSPINS 1 2 1 1 3 ZDIR
BOUNDINS 1 3 2 1 1 1 1 1 1
JOINT 1 0 0 0 100
DESGINS 1 2 1 0 1
LOAD 1 4 1 0 0 ZDIR -60 3 "Load at the hinge"
SOLVE 1
)");
    m.ExpectCompleted();
    const double EI = kE * 0.01, P = 60, a1 = 3, a2 = 5;
    const double k1 = 3 * EI / (a1 * a1 * a1), k2 = 3 * EI / (a2 * a2 * a2);
    const double P1 = P * k1 / (k1 + k2), P2 = P * k2 / (k1 + k2);
    ExpectRel(m.Disp(2, 1)[2], -P / (k1 + k2), 1e-9, "hinge deflection");
    ExpectRel(m.Force(1, 0.0, 1)[3], -P1 * a1, 1e-9, "root moment of the short arm");
    ExpectSection(m.Force(1, 1.0, 1)[3], 0.0, P, "moment at the hinge");
    ExpectRel(m.Reaction(1, 1)[2], -P1, 1e-9, "reaction of the short arm");
    ExpectRel(m.Reaction(3, 1)[2], -P2, 1e-9, "reaction of the long arm");
    ExpectRel(std::fabs(m.Force(2, 1.0, 1)[3]), P2 * a2, 1e-9, "root moment of the long arm");
    m.ExpectBalanced(1);
}

// A beam of 10 m held at both ends against every movement, in two elements. Case 1: +20 degrees
// uniform with expansion factor 1.2 (1.2e-5 per degree): N = -E A alpha dT = -1440 kN in every
// section, the ends pushed apart. Case 2: a gradient of 10 degrees per metre of height about L
// (factor 0 takes 1e-5): a constant moment E IL alpha g = 30 kNm and no axial force. Neither
// moves the middle node.
TEST(StaticAnalysis, TemperatureInARestrainedBeam) {
    const Model m("temperature", R"(NODE 1 3 1 0 0 0 5 0 0
ELEM 1 2 1 1 2 1
SECTINS 1 1 30000 0.2 0.2 0.01 0.005 0.02
ELSPINS 1 2 1 1 3 ZDIR
BOUNDINS 1 3 2 1 1 1 1 1 1
DESGINS 1 2 1 0 0.5 1
LOAD 1 2 1 2 1 MDIR 20 0 0 1.2 "Uniform temperature"
LOAD 2 2 1 2 1 MDIR 0 0 10 0 "Temperature gradient"
SOLVE 1
)");
    m.ExpectCompleted();
    const double N = kE * 0.2 * 1.2e-5 * 20, M = kE * 0.01 * 1e-5 * 10;
    for (int e = 1; e <= 2; ++e)
        for (double x : {0.0, 0.5, 1.0}) {
            ExpectRel(m.Force(e, x, 1)[1], -N, 1e-9, "axial force, uniform temperature");
            EXPECT_NEAR(m.Force(e, x, 1)[3], 0.0, 1e-9 * N);
            ExpectRel(std::fabs(m.Force(e, x, 2)[3]), M, 1e-9, "moment, gradient");
            EXPECT_NEAR(m.Force(e, x, 2)[1], 0.0, 1e-9 * M);
        }
    ExpectRel(m.Reaction(1, 1)[0], -N, 1e-9, "left end pushed along -X");
    ExpectRel(m.Reaction(3, 1)[0], N, 1e-9, "right end pushed along +X");
    EXPECT_NEAR(m.Reaction(1, 2)[4] + m.Reaction(3, 2)[4], 0.0, 1e-9 * M);
    ExpectRel(std::fabs(m.Reaction(1, 2)[4]), M, 1e-9, "end moment, gradient");
    for (int lc = 1; lc <= 2; ++lc) {
        for (double u : m.Disp(2, lc)) EXPECT_NEAR(u, 0.0, 1e-12);
        m.ExpectBalanced(lc);
    }
}

// Cantilever 1-2 of L = 4 m; node 3 stands e = 1 m above the tip as its slave, and carries the
// element 3-4 of 4 m along X, loaded by H = 30 kN along +X at node 4. The lever turns H into a
// tip moment eH about +Y: uz(2) = -eHL^2/2EI = -8e-4 m, ry(2) = eHL/EI = 4e-4, ux(2) = HL/EA =
// 2e-5 m. The slave moves with the lever: ux(3) = ux(2) + e ry(2) = 4.2e-4 m; node 4 turns with
// it: uz(4) = uz(2) - 4 ry(2) = -2.4e-3 m. The root takes H and the moment eH.
TEST(StaticAnalysis, MasterSlaveRigidLink) {
    const Model m("slave", R"(NODE 1 1 1 0 0 0
NODE 2 2 1 4 0 0
NODE 3 3 1 4 0 1
NODE 4 4 1 8 0 1
ELEM 1 1 1 1 2 1
ELEM 2 2 1 3 4 1
SECTINS 1 1 30000 0.2 0.2 0.01 0.005 0.02
ELSPINS 1 2 1 1 3 ZDIR
BOUNDINS 1 1 1 1 1 1 1 1 1
BOUNDINS 3 3 1 2 0
DESGINS 1 2 1 0 1
LOAD 1 4 2 0 0 XDIR 30 4 "Pull at the end"
SOLVE 1
)");
    m.ExpectCompleted();
    const double EI = kE * 0.01, EA = kE * 0.2, H = 30, L = 4, e = 1;
    const auto d2 = m.Disp(2, 1);
    ExpectRel(d2[2], -e * H * L * L / (2 * EI), 1e-9, "tip deflection");
    ExpectRel(d2[4], e * H * L / EI, 1e-9, "tip rotation");
    ExpectRel(d2[0], H * L / EA, 1e-9, "tip elongation");
    ExpectRel(m.Disp(3, 1)[0], H * L / EA + e * e * H * L / EI, 1e-9, "slave along X");
    ExpectRel(m.Disp(3, 1)[2], d2[2], 1e-9, "slave vertical");
    ExpectRel(m.Disp(4, 1)[2], d2[2] - 4 * d2[4], 1e-9, "end of the arm");
    ExpectRel(m.Disp(4, 1)[0], 2 * H * L / EA + e * e * H * L / EI, 1e-9, "end along X");
    ExpectRel(m.Force(1, 0.0, 1)[1], H, 1e-9, "tension in the cantilever");
    ExpectRel(m.Reaction(1, 1)[0], H, 1e-9, "root force");
    ExpectRel(m.Reaction(1, 1)[4], e * H, 1e-9, "root moment");
    m.ExpectBalanced(1);
}

// An L of two cantilevers in the horizontal plane: 1-2 along X (a = 3 m, fixed at node 1), 2-3
// along Y (b = 2 m), P = 20 kN down at node 3. The first arm is twisted by Pb: with G = E/2.4 and
// IM = 0.005 m4, GJ = 62500 kNm2, the tip deflection is Pa^3/3EI + Pb^3/3EI + Pb^2 a/GJ = 4.6178e-3
// m; the root takes the torque Pb = 40 kNm (moment of the load about the root (-40, 60, 0)).
TEST(StaticAnalysis, SpaceFrameLoadedOutOfPlane) {
    const Model m("grid", R"(NODE 1 1 1 0 0 0
NODE 2 2 1 3 0 0
NODE 3 3 1 3 2 0
ELEM 1 1 1 1 2 1
ELEM 2 2 1 2 3 1
SECTINS 1 1 30000 0.2 0.2 0.01 0.005 0.02
ELSPINS 1 2 1 1 3 ZDIR
BOUNDINS 1 1 1 1 1 1 1 1 1
DESGINS 1 2 1 0 1
LOAD 1 4 2 0 0 ZDIR -20 2 "Corner load"
SOLVE 1
)");
    m.ExpectCompleted();
    const double EI = kE * 0.01, GJ = kE / 2.4 * 0.005, P = 20, a = 3, b = 2;
    ExpectRel(m.Disp(3, 1)[2],
              -(P * a * a * a / (3 * EI) + P * b * b * b / (3 * EI) + P * b * b * a / GJ), 1e-9,
              "corner deflection");
    ExpectRel(std::fabs(m.Force(1, 0.0, 1)[4]), P * b, 1e-9, "torque in the first arm");
    ExpectRel(m.Reaction(1, 1)[2], -P, 1e-9, "root force");
    ExpectRel(m.Reaction(1, 1)[3], -P * b, 1e-9, "root torque");
    ExpectRel(m.Reaction(1, 1)[4], P * a, 1e-9, "root bending moment");
    m.ExpectBalanced(1);
}

// Cantilever of L = 4 m (EI = 3e5 kNm2) whose tip rests on a vertical spring of k = 5000 kN/m,
// P = 50 kN down at the tip. The spring element hangs from the tip (node 1 of the spring) to a
// node 1 m below; along its M axis it has the stiffness k. Tip deflection P / (k + 3EI/L^3) =
// 2.6230e-3 m; the root takes P - k w, the spring k w, and the spring's share enters the sums.
TEST(StaticAnalysis, CantileverOnASpring) {
    const Model m("spring", R"(NODE 1 3 1 0 0 0 2 0 0
NODE 4 4 1 4 0 -1
ELEM 1 2 1 1 2 1
ELEM 3 3 1 3 4
SECTINS 1 1 30000 0.2 0.2 0.01 0.005 0.02
SECTINS 2 20 30000 0.2 0 5000 0 "Spring"
ELSPINS 1 2 1 1 3 ZDIR
ELSPINS 3 3 1 2 3 XDIR
BOUNDINS 1 1 1 1 1 1 1 1 1
DESGINS 1 2 1 0 1
LOAD 1 4 2 0 0 ZDIR -50 2 "Tip load"
SOLVE 1
)");
    m.ExpectCompleted();
    const double EI = kE * 0.01, L = 4, P = 50, k = 5000;
    const double w = P / (k + 3 * EI / (L * L * L));
    ExpectRel(m.Disp(3, 1)[2], -w, 1e-9, "tip deflection");
    ExpectRel(m.Reaction(1, 1)[2], -(P - k * w), 1e-9, "root reaction");
    ExpectRel(m.Force(1, 0.0, 1)[3], -(P - k * w) * L, 1e-9, "root moment");
    ExpectRel(m.s->GetLoadcasePtr(1)->GetSumReaForces(2), P, 1e-9, "reactions with the spring");
    // The spring has no design sections, so no section forces, and no reaction record.
    int a = 0, b = 0;
    double f[6];
    EXPECT_EQ(m.s->GetResBasePtr()->SectionForceInBase(0, 0, 0, 3, 0.0, 1, 1, a, b, f), 0);
    EXPECT_EQ(m.s->GetResBasePtr()->NodeReactionInBase(0, 0, 0, 4, 1, 1, f), 0);
    m.ExpectBalanced(1);
}

// Models the solver cannot or must not analyse end with the reason in the log and a failed run
// (kelo's exit status 1), never with a crash or numbers that are not numbers.
TEST(StaticAnalysis, BadModelsEndWithTheirMessage) {
    const std::string beam = "SECTINS 1 1 30000 0.2 0.2 0.01 0.005 0.02\n"
                             "ELSPINS 1 2 1 1 3 ZDIR\n";
    {
        // Nothing holds the beam along X: the last X equation has a pivot of exactly 0, which
        // the solver reports with the node after it in the table (here node 3 itself, the last).
        const Model m("mechanism", "NODE 1 3 1 0 0 0 5 0 0\nELEM 1 2 1 1 2 1\n" + beam +
                                       "BOUNDINS 1 3 1 0 1 1 1 0 0\n"
                                       "LOAD 1 3 1 2 1 ZDIR -10\nSOLVE 1\n");
        EXPECT_EQ(m.run.status, 1);
        EXPECT_EQ(Count(m.run.out, "Negative Stiffness value on main diagonal!\r\nNode no.: 3\r\n"),
                  1)
            << m.run.out;
        EXPECT_EQ(Count(m.run.out, "Status: Failed!! "), 1) << m.run.out;
    }
    {
        // Nodes 2 and 3 coincide: element 2 has no length and no axes.
        const Model m("nolength", "NODE 1 1 1 0 0 0\nNODE 2 2 1 5 0 0\nNODE 3 3 1 5 0 0\n"
                                  "ELEM 1 2 1 1 2 1\n" +
                                      beam +
                                      "BOUNDINS 1 1 1 1 1 1 1 1 1\n"
                                      "LOAD 1 3 1 1 1 ZDIR -10\nSOLVE 1\n");
        EXPECT_EQ(m.run.status, 1);
        EXPECT_EQ(Count(m.run.out, "Element update error: Unable to calc. local axis or node(s) "
                                   "non exsisting, element no. 2\r\n"),
                  1)
            << m.run.out;
        EXPECT_EQ(Count(m.run.out, "Status: Failed!! "), 1) << m.run.out;
    }
    {
        // An element on a node that is not there is refused by the command; the rest is analysed.
        const Model m("missingnode", "NODE 1 2 1 0 0 0 4 0 0\nELEM 1 1 1 1 2\nELEM 2 2 1 2 9\n" +
                                         beam +
                                         "BOUNDINS 1 1 1 1 1 1 1 1 1\n"
                                         "LOAD 1 4 1 0 0 ZDIR -50 4\nSOLVE 1\n");
        EXPECT_EQ(m.run.status, 1);
        EXPECT_EQ(Count(m.run.out, "Node number 9 is not defined!"), 1) << m.run.out;
        EXPECT_EQ(Count(m.run.out, "Status: Completed"), 1) << m.run.out;
        ExpectRel(m.Disp(2, 1)[2], -50 * 64 / (3 * kE * 0.01), 1e-9, "tip of what is left");
    }
    {
        // The torsion of the section is 0 and end 1 of element 1 releases it: there is nothing to
        // condense. The twist is held by the 1e20 a freedom without stiffness gets, and the
        // bending results stay those of the cantilever.
        const Model m("release", "NODE 1 3 1 0 0 0 2 0 0\nELEM 1 2 1 1 2 1\n"
                                 "SECTINS 1 1 30000 0.2 0.2 0.01 0 0.02\n"
                                 "ELSPINS 1 2 1 1 3 ZDIR\nJOINT 1 0 0 10 0\n"
                                 "BOUNDINS 1 1 1 1 1 1 1 1 1\nDESGINS 1 2 1 0 1\n"
                                 "LOAD 1 4 2 0 0 ZDIR -50 2\nSOLVE 1\n");
        m.ExpectCompleted();
        for (int node = 1; node <= 3; ++node)
            for (double u : m.Disp(node, 1)) EXPECT_TRUE(std::isfinite(u));
        ExpectRel(m.Disp(3, 1)[2], -50 * 64 / (3 * kE * 0.01), 1e-9, "tip deflection");
        m.ExpectBalanced(1);
    }
}

// The bridge example: three spans of 30, 40 and 30 m under their self weight w = 25 x 6 = 150
// kN/m. Three-moment equation with equal moments M over the inner bearings: M (2 (L1 + L2) +
// L2) = -w (L1^3 + L2^3) / 4, so M = -126.389 w; the end bearing carries w L1 / 2 + M / L1 =
// 1618.06 kN and an inner one w (L1 + L2) / 2 - M / L1 = 5881.94 kN.
TEST(StaticAnalysis, ThreeSpanBridgeExample) {
    const RunResult r =
        RunKelo(SourcePath("examples/three_span_bridge.inp"), "three_span_bridge.inp");
    EXPECT_EQ(r.status, 0) << r.out;
    EXPECT_EQ(Count(r.out, "Status: Completed"), 1) << r.out;
    EXPECT_EQ(Count(r.out, "Loadcase count:       4 \r\n"), 1) << r.out;
    EXPECT_EQ(Count(r.out, "Eqation count:      126 \r\n"), 1) << r.out;

    CStructure s(2);
    s.CreateDefaultContents(2, 0);
    s.SetDocumentPath("three_span_bridge.inp");
    std::string log;
    s.ReadCommandFile("three_span_bridge.inp", &log, 0);
    const double w = 150.0, L1 = 30.0, L2 = 40.0;
    const double M = -w * (L1 * L1 * L1 + L2 * L2 * L2) / (4 * (2 * (L1 + L2) + L2));
    double reaction[6] = {};
    ASSERT_EQ(s.GetResBasePtr()->NodeReactionInBase(0, 0, 0, 1, 1, 1, reaction), 1);
    ExpectRel(reaction[2], -(w * L1 / 2 + M / L1), 1e-9, "end bearing, self weight");
    ASSERT_EQ(s.GetResBasePtr()->NodeReactionInBase(0, 0, 0, 7, 1, 1, reaction), 1);
    ExpectRel(reaction[2], -(w * (L1 + L2) / 2 - M / L1), 1e-9, "inner bearing, self weight");
}
