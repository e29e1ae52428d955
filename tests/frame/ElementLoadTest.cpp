#include "frame/Element.h"
#include "model/Loadcase.h"
#include "model/Node.h"
#include "model/Structure.h"

#include <gtest/gtest.h>

#include <cmath>
#include <memory>

using namespace kelo;

namespace {

// Section: A (m2), IL, IM, IN (m4), E (MPa), Poisson.
constexpr double kA = 0.12, kIL = 0.0016, kIN = 0.0036, kE = 30000.0;
constexpr double kEk = kE * 1000.0; // kN/m2

// An element from node 1 to node 2 with the section in its cache. Along +Y with N toward +Z
// its local axes L, M, N are the global X, Y, Z.
struct Beam {
    CNode n1, n2;
    CElement e;
    Beam(double x2, double y2, double z2, double z1 = 0.0) : n1(1, 0, 0, z1), n2(2, x2, y2, z2) {
        e.SetNo(1);
        e.SetNodeNo1Ptr(&n1);
        e.SetNodeNo2Ptr(&n2);
        const double v[CElement::kSectParams] = {kA, kIL, 0.0009, kIN, kE, 0.2, 0, 0, 0, 0};
        e.SetSectParamCache(v);
        EXPECT_EQ(e.MakeTransMatrix(nullptr), 1);
    }
    // Restraint forces of one load: end forces in local axes (mode 1) unless told otherwise.
    int Load(int type, int dir, double p1, double p2, double p3, double p4, double F[12],
             double xOverL = -1000.0, int mode = 1, CStructure* s = nullptr, int anType = 1) {
        CLoad load(1, 1, type, dir, p1, p2, p3, p4);
        return e.FixedEndForces(s, &load, F, xOverL, mode, anType);
    }
};

} // namespace

TEST(ElementLoads, UniformPointAndMomentLoadsGiveTheFixedBeamRestraints) {
    const double L = 6.0;
    Beam b(0, L, 0);
    double F[12];
    // Uniform q along N: V = qL/2, M = qL^2/12, moments opposing the sag.
    const double q = 10.0;
    ASSERT_EQ(b.Load(3, 6, q, 0, 0, 0, F), 1);
    EXPECT_NEAR(F[2], -q * L / 2, 1e-9);
    EXPECT_NEAR(F[8], -q * L / 2, 1e-9);
    EXPECT_NEAR(F[3], -q * L * L / 12, 1e-9);
    EXPECT_NEAR(F[9], q * L * L / 12, 1e-9);
    // Along L the rotation about N turns the other way.
    ASSERT_EQ(b.Load(3, 4, q, 0, 0, 0, F), 1);
    EXPECT_NEAR(F[0], -q * L / 2, 1e-9);
    EXPECT_NEAR(F[5], q * L * L / 12, 1e-9);
    EXPECT_NEAR(F[11], -q * L * L / 12, 1e-9);

    // P at a = 2, b = 4: V1 = Pb^2(3a+b)/L^3, V2 = Pa^2(a+3b)/L^3, M1 = Pab^2/L^2,
    // M2 = Pa^2b/L^2.
    const double P = 50.0, a = 2.0, bb = 4.0;
    ASSERT_EQ(b.Load(4, 6, P, a, 0, 0, F), 1);
    EXPECT_NEAR(F[2], -P * bb * bb * (3 * a + bb) / (L * L * L), 1e-9);
    EXPECT_NEAR(F[8], -P * a * a * (a + 3 * bb) / (L * L * L), 1e-9);
    EXPECT_NEAR(F[3], -P * a * bb * bb / (L * L), 1e-9);
    EXPECT_NEAR(F[9], P * a * a * bb / (L * L), 1e-9);
    // Along L the end moments about N take the other sign.
    ASSERT_EQ(b.Load(4, 4, P, a, 0, 0, F), 1);
    EXPECT_NEAR(F[0], -P * bb * bb * (3 * a + bb) / (L * L * L), 1e-9);
    EXPECT_NEAR(F[5], P * a * bb * bb / (L * L), 1e-9);
    EXPECT_NEAR(F[11], -P * a * a * bb / (L * L), 1e-9);
    // Beyond the element the force acts at node 2.
    ASSERT_EQ(b.Load(4, 6, P, 9.0, 0, 0, F), 1);
    EXPECT_NEAR(F[8], -P, 1e-9);
    EXPECT_NEAR(F[2], 0.0, 1e-9);
    EXPECT_NEAR(F[9], 0.0, 1e-9);

    // Moment M about L at a = 1.5, b = 4.5: shears 6Mab/L^3, end moments Mb(2a-b)/L^2 and
    // Ma(2b-a)/L^2; with the load they balance about node 1.
    const double M = 40.0, ma = 1.5, mb = 4.5;
    ASSERT_EQ(b.Load(5, 4, M, ma, 0, 0, F), 1);
    EXPECT_NEAR(F[2], 6 * M * ma * mb / (L * L * L), 1e-9);
    EXPECT_NEAR(F[8], -6 * M * ma * mb / (L * L * L), 1e-9);
    EXPECT_NEAR(F[3], M * mb * (2 * ma - mb) / (L * L), 1e-9);
    EXPECT_NEAR(F[9], M * ma * (2 * mb - ma) / (L * L), 1e-9);
    EXPECT_NEAR(F[3] + F[9] + L * F[8] + M, 0.0, 1e-9);
}

TEST(ElementLoads, PartialTrapezoidalAndIntegratedLoads) {
    const double L = 6.0, q = 12.0;
    Beam b(0, L, 0);
    double F[12];
    // Uniform q from x1 to x2: V1 = q/L^3 [L^3 x - L x^3 + x^4/2], M1 = q/L^2 [L^2 x^2/2 -
    // 2L x^3/3 + x^4/4], M2 = q/L^2 [L x^3/3 - x^4/4], each taken between x1 and x2.
    auto V1 = [&](double x) {
        return q / (L * L * L) * (L * L * L * x - L * x * x * x + x * x * x * x / 2);
    };
    auto M1 = [&](double x) {
        return q / (L * L) * (L * L * x * x / 2 - 2 * L * x * x * x / 3 + x * x * x * x / 4);
    };
    auto M2 = [&](double x) { return q / (L * L) * (L * x * x * x / 3 - x * x * x * x / 4); };
    // Type 8 from 1.5 after node 1 to 2.0 before node 2: loaded from 1.5 to 4.0.
    ASSERT_EQ(b.Load(8, 6, q, 1.5, 0.0, 2.0, F), 1);
    EXPECT_NEAR(F[2], -(V1(4.0) - V1(1.5)), 1e-9);
    EXPECT_NEAR(F[8], -(q * 2.5 - (V1(4.0) - V1(1.5))), 1e-9);
    EXPECT_NEAR(F[3], -(M1(4.0) - M1(1.5)), 1e-9);
    EXPECT_NEAR(F[9], M2(4.0) - M2(1.5), 1e-9);
    // Type 9 between 1.5 from node 1 and node 2: the same closed forms from 1.5 to 6.
    ASSERT_EQ(b.Load(9, 6, q, 0.0, 1.5, 0.0, F), 1);
    EXPECT_NEAR(F[2], -(V1(6.0) - V1(1.5)), 1e-9);
    EXPECT_NEAR(F[3], -(M1(6.0) - M1(1.5)), 1e-9);

    // A triangle from 0 to q: V1 = 3qL/20, V2 = 7qL/20, M1 = qL^2/30, M2 = qL^2/20. Their
    // integrands are quartic, so Simpson's rule over h = L/10 gives the integral plus exactly
    // L h^4 f''''/180, with f'''' = 48q/L^4 (V1), -48q/L^4 (V2), 24q/L^3 (M1), -24q/L^3 (M2).
    const double h4 = std::pow(L / 10, 4);
    const double eV = L * h4 * 48 * q / std::pow(L, 4) / 180;
    const double eM = L * h4 * 24 * q / std::pow(L, 3) / 180;
    ASSERT_EQ(b.Load(8, 6, 0.0, 0.0, q, 0.0, F), 1);
    EXPECT_NEAR(F[2], -(3 * q * L / 20 + eV), 1e-9);
    EXPECT_NEAR(F[8], -(7 * q * L / 20 - eV), 1e-9);
    EXPECT_NEAR(F[3], -(q * L * L / 30 + eM), 1e-9);
    EXPECT_NEAR(F[9], q * L * L / 20 - eM, 1e-9);

    // Section at x = 3 of the partial load: resultant q (3 - 1.5) at lever 0.75. The section
    // lies 0.0001 m past its nominal place, which moves a moment by up to R 0.0001.
    ASSERT_EQ(b.Load(8, 6, q, 1.5, 0.0, 2.0, F, 0.5, 3), 1);
    EXPECT_NEAR(F[2], -q * 1.5, 2e-3);
    EXPECT_NEAR(F[3], q * 1.5 * 0.75, 5e-3);
    // Past the loaded part the whole resultant q 2.5 acts at its centre 2.75 before x = 5.5.
    ASSERT_EQ(b.Load(8, 6, q, 1.5, 0.0, 2.0, F, 5.5 / L, 3), 1);
    EXPECT_NEAR(F[2], -q * 2.5, 1e-9);
    EXPECT_NEAR(F[3], q * 2.5 * 2.75, 5e-3);
}

TEST(ElementLoads, TemperatureStrainAndStraightPrestressAreHeldByTheEnds) {
    const double L = 6.0;
    Beam b(0, L, 0);
    double F[12];
    // Uniform warming dT: N = E A alpha dT, alpha 1e-5 unless p4 gives it in 1e-5.
    ASSERT_EQ(b.Load(2, 0, 20.0, 0, 0, 0, F), 1);
    EXPECT_NEAR(F[1], kEk * kA * 1e-5 * 20.0, 1e-9);
    EXPECT_NEAR(F[7], -kEk * kA * 1e-5 * 20.0, 1e-9);
    ASSERT_EQ(b.Load(2, 0, 20.0, 0, 0, 1.2, F), 1);
    EXPECT_NEAR(F[1], kEk * kA * 1.2e-5 * 20.0, 1e-9);
    // Gradients dT/h (degrees per m) about N and about L: M = E I alpha dT/h.
    ASSERT_EQ(b.Load(2, 0, 0.0, 15.0, 0, 0, F), 1);
    EXPECT_NEAR(F[5], kEk * kIN * 1e-5 * 15.0, 1e-9);
    EXPECT_NEAR(F[11], -kEk * kIN * 1e-5 * 15.0, 1e-9);
    EXPECT_NEAR(F[1], 0.0, 1e-12);
    ASSERT_EQ(b.Load(2, 0, 0.0, 0.0, 15.0, 0, F), 1);
    EXPECT_NEAR(F[3], -kEk * kIL * 1e-5 * 15.0, 1e-9);
    EXPECT_NEAR(F[9], kEk * kIL * 1e-5 * 15.0, 1e-9);
    // A strain of 0.5 per mille: N = E A 0.0005; nothing at a section.
    ASSERT_EQ(b.Load(12, 0, 0.5, 0, 0, 0, F), 1);
    EXPECT_NEAR(F[1], kEk * kA * 5e-4, 1e-9);
    ASSERT_EQ(b.Load(12, 0, 0.5, 0, 0, 0, F, 0.5, 3), 1);
    EXPECT_EQ(F[1], 0.0);

    // Prestress P = 1000 times the factor 0.9, eccentricity 0.2 at node 1 rising by 0.3: the
    // anchor forces P cos t along the axis and P sin t across it, t = atan(0.3/L), with the
    // moments of the axial part at each end's eccentricity.
    const double P = 900.0, t = std::atan(0.3 / L);
    ASSERT_EQ(b.Load(7, 0, 1000.0, 0.2, 0.3, 0.9, F), 1);
    EXPECT_NEAR(F[1], -P * std::cos(t), 1e-9);
    EXPECT_NEAR(F[2], -P * std::sin(t), 1e-9);
    EXPECT_NEAR(F[3], P * std::cos(t) * 0.2, 1e-9);
    EXPECT_NEAR(F[8], P * std::sin(t), 1e-9);
    EXPECT_NEAR(F[9], -P * std::cos(t) * 0.5, 1e-9);
    // Type 7 has no section part; type 11 has, at the eccentricity of the section.
    ASSERT_EQ(b.Load(7, 0, 1000.0, 0.2, 0.3, 0.9, F, 0.5, 3), 1);
    EXPECT_EQ(F[1], 0.0);
    ASSERT_EQ(b.Load(11, 0, 1000.0, 0.2, 0.3, 0.9, F, 0.5, 3), 1);
    EXPECT_NEAR(F[1], -P * std::cos(t), 1e-9);
    EXPECT_NEAR(F[3], P * std::cos(t) * 0.35, 1e-2);
}

TEST(ElementLoads, ReleasesGlobalAxesAndSectionForcesOfASimplySupportedBeam) {
    const double L = 6.0, q = 10.0;
    double F[12];
    // Hinge at node 2 (rotation about L): the propped beam, 5qL/8 and qL^2/8 at the fixed end,
    // 3qL/8 and no moment at the hinge.
    Beam p(0, L, 0);
    p.e.SetJoint2(100);
    ASSERT_EQ(p.Load(3, 6, q, 0, 0, 0, F), 1);
    EXPECT_NEAR(F[2], -5 * q * L / 8, 1e-9);
    EXPECT_NEAR(F[3], -q * L * L / 8, 1e-9);
    EXPECT_NEAR(F[8], -3 * q * L / 8, 1e-9);
    EXPECT_NEAR(F[9], 0.0, 1e-9);

    // A 3-4-5 element in the XZ plane under q per metre of length along global Z: half of
    // the load is held at each node, straight down in global axes.
    Beam s(3, 0, 4);
    ASSERT_EQ(s.Load(3, 3, q, 0, 0, 0, F, -1000.0, 2), 1);
    EXPECT_NEAR(F[0], 0.0, 1e-9);
    EXPECT_NEAR(F[2], -q * 5 / 2, 1e-9);
    EXPECT_NEAR(F[8], -q * 5 / 2, 1e-9);
    EXPECT_NEAR(F[6], 0.0, 1e-9);

    // Simply supported under q along N: end rotations about L are +-qL^3/(24EI). Element
    // forces at node 1 are K d plus the restraint forces; the section at x then carries the
    // shear q(L/2 - x) and the moment about L of -q x (L - x)/2.
    Beam b(0, L, 0);
    const double theta = q * L * L * L / (24 * kEk * kIL);
    double d[12] = {};
    d[3] = theta;
    d[9] = -theta;
    double K[12][12];
    ASSERT_EQ(b.e.MakeStiffMatrix(nullptr, K, nullptr, 1, 0), 1);
    ASSERT_EQ(b.Load(3, 6, q, 0, 0, 0, F), 1);
    double P[6];
    for (int i = 0; i < 6; ++i) {
        P[i] = F[i];
        for (int j = 0; j < 12; ++j) P[i] += K[i][j] * d[j];
    }
    EXPECT_NEAR(P[3], 0.0, 1e-9);
    EXPECT_NEAR(P[2], -q * L / 2, 1e-9);
    for (const double xl : {0.25, 0.5}) {
        const double x = xl * L;
        ASSERT_EQ(b.Load(3, 6, q, 0, 0, 0, F, xl, 3), 1);
        const double shear = -P[2] + F[2];
        const double moment = -P[3] + x * P[2] + F[3];
        EXPECT_NEAR(shear, q * (L / 2 - x), 2e-3) << xl;
        EXPECT_NEAR(moment, -q * x * (L - x) / 2, 5e-3) << xl;
    }
}

TEST(ElementLoads, WindSpeedProfilesAndTheWindLoadOfAnElement) {
    // Along X at 20 m: L = -Y, N = +Z.
    Beam b(4, 0, 20, 20);
    auto speed = [&](int type, double s, double p3, double p4, double xl = 0.0) {
        CLoad load(1, 1, type, 0, s, 0, p3, p4);
        return b.e.CalcWindSpeed(xl, &load);
    };
    // Terrain 2 (kT 0.19, z0 0.05, zmin 4): mean v = kT ln(h/z0) s; the gust multiplies by
    // sqrt(1 + 7 I) with I = kT / (kT ln(h/z0)); under zmin the profile holds its zmin value.
    const double c20 = 0.19 * std::log(20 / 0.05);
    EXPECT_NEAR(speed(60, 30, 2, 0), 30 * c20, 1e-9);
    EXPECT_NEAR(speed(61, 30, 2, 0), 30 * c20 * std::sqrt(1 + 7 * 0.19 / c20), 1e-9);
    EXPECT_NEAR(speed(60, 30, 2, 17), 30 * 0.19 * std::log(4 / 0.05), 1e-9);
    EXPECT_EQ(speed(60, 30, 2, 21), 0.0);
    // Terrain 5 raises the turbulence by 1.19.
    const double c5 = 0.17 * std::log(20 / 0.017);
    EXPECT_NEAR(speed(61, 30, 5, 0), 30 * c5 * std::sqrt(1 + 7 * 1.19 * 0.17 / c5), 1e-9);
    // Power law: s ((z - p3)/10)^0.213, or the exponent p4; nothing within 1 m of p3.
    EXPECT_NEAR(speed(10, 30, 0, 0), 30 * std::pow(2.0, 0.213), 1e-9);
    EXPECT_NEAR(speed(10, 30, 0, 0.16), 30 * std::pow(2.0, 0.16), 1e-9);
    EXPECT_EQ(speed(10, 30, 19.5, 0), 0.0);

    // Wind along +Y on drag 2.0 (N direction Cd*H), lift 0.5 (CL*B), moment 0.3 (CM*B*B):
    // pressure q = 0.5 * 0.00125 v^2 (kN/m2). The drag of 2q per m along +Y is held by -qL at
    // each node, the lift 0.5q along +Z by -0.25qL; the moment area takes the drag component
    // along L (-q), a torque of -0.3q per m about M = +X, held by 0.15qL.
    const double areas[9] = {2.0, 0.5, 0.0, 0.3, 0, 0, 0, 0, 0};
    b.e.AddWindArea(areas);
    const double v = 30 * c20, q = 0.5 * 0.00125 * v * v, L = 4.0;
    double F[12];
    ASSERT_EQ(b.Load(60, 0, 30, 90, 2, 0, F, -1000.0, 2), 1);
    EXPECT_NEAR(F[1], -q * L, 1e-9);
    EXPECT_NEAR(F[7], -q * L, 1e-9);
    EXPECT_NEAR(F[2], -0.25 * q * L, 1e-9);
    EXPECT_NEAR(F[3], 0.15 * q * L, 1e-9);
    EXPECT_NEAR(F[0], 0.0, 1e-9);
    // A negative speed turns drag and torque round; the lift goes by the size of the drag
    // component and stays.
    double R[12];
    ASSERT_EQ(b.Load(60, 0, -30, 90, 2, 0, R, -1000.0, 2), 1);
    EXPECT_NEAR(R[1], q * L, 1e-9);
    EXPECT_NEAR(R[3], -0.15 * q * L, 1e-9);
    EXPECT_NEAR(R[2], -0.25 * q * L, 1e-9);
}

TEST(ElementLoads, SelfWeightMassesTendonsAndLoadsThatGiveNothing) {
    double F[12];
    // Unit weight -25 kN/m3 along Z on the 3-4-5 element: 25 A L held upwards in all.
    Beam s(3, 0, 4);
    ASSERT_EQ(s.Load(1, 3, -25.0, 0, 0, 0, F, -1000.0, 2), 1);
    EXPECT_NEAR(F[2] + F[8], 25 * kA * 5, 1e-9);
    EXPECT_NEAR(F[0] + F[6], 0.0, 1e-9);

    // Masses (t) on a 6 m element: per m3 of section and per m shared equally; a point mass at
    // 1.5 m by the lever rule, beyond the element all at node 2; type 5 on the rotations.
    Beam b(0, 6, 0);
    double m[12];
    auto mass = [&](int type, int dir, double w, double a) {
        CMass record(1, type, dir, w, a);
        return b.e.FixedEndMass(nullptr, &record, m, 2, 1);
    };
    ASSERT_EQ(mass(1, 0, 2.5, 0), 1);
    for (const int i : {0, 1, 2, 6, 7, 8}) EXPECT_NEAR(m[i], 0.5 * 2.5 * 6 * kA, 1e-12) << i;
    ASSERT_EQ(mass(3, 3, 2.0, 0), 1);
    EXPECT_NEAR(m[2], 6.0, 1e-12);
    EXPECT_NEAR(m[8], 6.0, 1e-12);
    EXPECT_EQ(m[0], 0.0);
    ASSERT_EQ(mass(4, 2, 8.0, 1.5), 1);
    EXPECT_NEAR(m[1], 6.0, 1e-12);
    EXPECT_NEAR(m[7], 2.0, 1e-12);
    ASSERT_EQ(mass(4, 2, 8.0, 9.0), 1);
    EXPECT_NEAR(m[7], 8.0, 1e-12);
    ASSERT_EQ(mass(5, 1, 8.0, 1.5), 1);
    EXPECT_NEAR(m[3], 6.0, 1e-12);
    EXPECT_NEAR(m[9], 2.0, 1e-12);
    EXPECT_EQ(m[0], 0.0);
    EXPECT_EQ(mass(7, 0, 1.0, 0.0), 0);

    // Two tendons of 500 kN from eccentricity 0.2 to 0.5 along N in a straight line: anchor
    // forces P cos t, P sin t with t = atan(0.3/6), moments P cos t e at each end.
    const double rows[2][6] = {{0, 500, 0, 0.2}, {1, 500, 0, 0.5}};
    const double P = 1000.0, t = std::atan(0.3 / 6);
    ASSERT_EQ(b.e.TendonLoads(rows, 2, 2, F, -1.0, 0), 1);
    EXPECT_NEAR(F[1], -P * std::cos(t), 1e-9);
    EXPECT_NEAR(F[2], -P * std::sin(t), 1e-9);
    EXPECT_NEAR(F[3], P * std::cos(t) * 0.2, 1e-9);
    EXPECT_NEAR(F[7], P * std::cos(t), 1e-9);
    EXPECT_NEAR(F[9], -P * std::cos(t) * 0.5, 1e-9);
    // At a constant force the inner rows cancel; a section takes the anchor force before it,
    // unless the flag keeps the tendon out of section forces.
    const double flat[3][6] = {{0, 500, 0, 0.2}, {0.5, 500, 0, 0.2}, {1, 500, 0, 0.2}};
    ASSERT_EQ(b.e.TendonLoads(flat, 3, 1, F, -1.0, 0), 1);
    EXPECT_NEAR(F[1], -500.0, 1e-9);
    EXPECT_NEAR(F[7], 500.0, 1e-9);
    EXPECT_NEAR(F[2] + F[8], 0.0, 1e-9);
    ASSERT_EQ(b.e.TendonLoads(flat, 3, 1, F, 2.0, 0), 1);
    EXPECT_NEAR(F[1], -500.0, 1e-9);
    EXPECT_NEAR(F[3], 500.0 * 0.2, 1e-9);
    ASSERT_EQ(b.e.TendonLoads(flat, 3, 1, F, 2.0, 1), 1);
    EXPECT_EQ(F[1], 0.0);

    // A point load at node 1 is active at a section at x/L 0, which lies just past the node.
    ASSERT_EQ(b.Load(4, 6, 50.0, 0.0, 0, 0, F, 0.0, 3), 1);
    EXPECT_NEAR(F[2], -50.0, 1e-12);

    // An unknown type, a tendon that doesn't exist, loads outside a creep run's type 50, and a
    // creep load whose combination doesn't exist.
    CStructure structure(2);
    EXPECT_EQ(b.Load(13, 6, 1.0, 0, 0, 0, F), 0);
    EXPECT_EQ(b.Load(15, 0, 7.0, 0, 0, 0, F, -1000.0, 1, &structure), 0);
    ASSERT_EQ(b.Load(3, 6, 10.0, 0, 0, 0, F, -1000.0, 1, &structure, 3), 1);
    for (int i = 0; i < 12; ++i) EXPECT_EQ(F[i], 0.0) << i;
    ASSERT_EQ(b.Load(50, 0, 4.0, 0, 0, 0, F, -1000.0, 1, &structure, 1), 1);
    EXPECT_EQ(F[2], 0.0);
    EXPECT_EQ(b.Load(50, 0, 4.0, 0, 0, 0, F, -1000.0, 1, &structure, 3), 0);
}
