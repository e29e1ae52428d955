#include "frame/Element.h"
#include "geometry/KeySection.h"
#include "geometry/RefLine.h"
#include "model/Node.h"
#include "model/Structure.h"

#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <memory>
#include <string>

using namespace kelo;

namespace {

using Mat = std::array<std::array<double, 12>, 12>;
using Axes = std::array<std::array<double, 3>, 3>;

// Section of the tests: A (m2), IL, IM (torsion), IN (m4), E (MPa), Poisson, axial force (kN).
constexpr double kA = 0.12, kIL = 0.0016, kIM = 0.0009, kIN = 0.0036, kE = 30000.0, kNu = 0.2;
constexpr double kEk = kE * 1000.0; // kN/m2
constexpr double kG = kEk / 2.4;

// Two nodes and an element between them with the test section in its cache.
struct Beam {
    CNode n1, n2, n3;
    CElement e;
    Beam(double x1, double y1, double z1, double x2, double y2, double z2, double axial = 0.0)
        : n1(1, x1, y1, z1), n2(2, x2, y2, z2) {
        e.SetNodeNo1Ptr(&n1);
        e.SetNodeNo2Ptr(&n2);
        const double v[CElement::kSectParams] = {kA, kIL, kIM, kIN, kE, kNu, axial, 0, 0, 0};
        e.SetSectParamCache(v);
    }
    Mat Stiff(int anType = 1, int geom = 0) {
        double K[12][12];
        EXPECT_EQ(e.MakeStiffMatrix(nullptr, K, nullptr, anType, geom), 1);
        Mat out;
        for (int i = 0; i < 12; ++i)
            for (int j = 0; j < 12; ++j) out[i][j] = K[i][j];
        return out;
    }
};

// The textbook stiffness of a beam along its own x axis, freedoms u, v, w, rx, ry, rz at each
// end; v bends about z (EIz) with rz = dv/dx, w about y (EIy) with ry = -dw/dx.
Mat Textbook(double EA, double GJ, double EIy, double EIz, double L) {
    Mat k{};
    auto set = [&k](int i, int j, double v) { k[i][j] = k[j][i] = v; };
    const double L2 = L * L, L3 = L2 * L;
    set(0, 0, EA / L), set(6, 6, EA / L), set(0, 6, -EA / L);
    set(3, 3, GJ / L), set(9, 9, GJ / L), set(3, 9, -GJ / L);
    set(1, 1, 12 * EIz / L3), set(7, 7, 12 * EIz / L3), set(1, 7, -12 * EIz / L3);
    set(1, 5, 6 * EIz / L2), set(1, 11, 6 * EIz / L2), set(5, 7, -6 * EIz / L2);
    set(7, 11, -6 * EIz / L2), set(5, 5, 4 * EIz / L), set(11, 11, 4 * EIz / L);
    set(5, 11, 2 * EIz / L);
    set(2, 2, 12 * EIy / L3), set(8, 8, 12 * EIy / L3), set(2, 8, -12 * EIy / L3);
    set(2, 4, -6 * EIy / L2), set(2, 10, -6 * EIy / L2), set(4, 8, 6 * EIy / L2);
    set(8, 10, 6 * EIy / L2), set(4, 4, 4 * EIy / L), set(10, 10, 4 * EIy / L);
    set(4, 10, 2 * EIy / L);
    return k;
}

// K = R^t k R with the rows of lambda (the beam's x, y, z in global axes) on R's diagonal.
Mat Rotate(const Mat& k, const Axes& lambda) {
    Mat R{}, out{};
    for (int b = 0; b < 4; ++b)
        for (int r = 0; r < 3; ++r)
            for (int c = 0; c < 3; ++c) R[3 * b + r][3 * b + c] = lambda[r][c];
    for (int i = 0; i < 12; ++i)
        for (int j = 0; j < 12; ++j)
            for (int a = 0; a < 12; ++a)
                for (int b = 0; b < 12; ++b) out[i][j] += R[a][i] * k[a][b] * R[b][j];
    return out;
}

void ExpectMat(const Mat& got, const Mat& want, const char* what) {
    for (int i = 0; i < 12; ++i)
        for (int j = 0; j < 12; ++j)
            EXPECT_NEAR(got[i][j], want[i][j], 1e-9 * (std::fabs(want[i][j]) + 1.0))
                << what << " K[" << i << "][" << j << "]";
}

void ExpectAxes(const CElement& e, const Axes& rows, double tol, const char* what) {
    for (int r = 0; r < 3; ++r)
        for (int c = 0; c < 3; ++c)
            EXPECT_NEAR(e.GetTransMatrix(r, c), rows[r][c], tol) << what << " row " << r;
}

} // namespace

TEST(ElementStiffness, BeamAlongEachAxisAndInclinedMatchesTheTextbookBeamRotatedByHand) {
    // With x = M, z = N and y = N x M = -L, the textbook beam takes EIy = E IL, EIz = E IN.
    struct Case {
        const char* name;
        double x2, y2, z2;
        int code, ndir;
        double alpha;
        Axes rows; // L, M, N
    };
    // Alpha 90 on (1, 2, 2): N horizontal, left of the plan direction, (-2, 1, 0)/sqrt5;
    // L = M x N = (-2, -4, 5)/(3 sqrt5).
    const double r5 = std::sqrt(5.0);
    const Axes inclined = {{{-2 / (3 * r5), -4 / (3 * r5), 5 / (3 * r5)},
                            {1.0 / 3, 2.0 / 3, 2.0 / 3},
                            {-2 / r5, 1 / r5, 0}}};
    const Case cases[] = {
        // N toward +Z: L = X x Z = -Y.
        {"along X", 4, 0, 0, 3, 3, 0, {{{0, -1, 0}, {1, 0, 0}, {0, 0, 1}}}},
        {"along Y", 0, 4, 0, 3, 3, 0, {{{1, 0, 0}, {0, 1, 0}, {0, 0, 1}}}},
        // N toward +X: L = Z x X = Y.
        {"along Z", 0, 0, 4, 3, 1, 0, {{{0, 1, 0}, {0, 0, 1}, {1, 0, 0}}}},
        {"inclined", 1, 2, 2, 4, 0, 90.0, inclined},
    };
    for (const Case& c : cases) {
        Beam b(0, 0, 0, c.x2, c.y2, c.z2);
        b.e.SetLocAxisCode(c.code);
        b.e.SetNDirCode(c.ndir);
        b.e.SetAlpha(c.alpha);
        ASSERT_EQ(b.e.MakeTransMatrix(nullptr), 1) << c.name;
        const double L = b.e.GetLength();
        ExpectAxes(b.e, c.rows, 1e-12, c.name);
        const Axes lambda = {c.rows[1], {-c.rows[0][0], -c.rows[0][1], -c.rows[0][2]}, c.rows[2]};
        ExpectMat(b.Stiff(), Rotate(Textbook(kEk * kA, kG * kIM, kEk * kIL, kEk * kIN, L), lambda),
                  c.name);
    }
}

TEST(ElementStiffness, EndReleasesCondenseToTheClosedForms) {
    // Along Y with N = +Z the local axes are the global ones: K is the local matrix.
    const double L = 5.0;
    const double EIL = kEk * kIL, EIN = kEk * kIN;
    auto beam = [&](double j1, double j2) {
        auto b = std::make_unique<Beam>(0, 0, 0, 0, L, 0);
        b->e.SetJoint1(j1);
        b->e.SetJoint2(j2);
        EXPECT_EQ(b->e.MakeTransMatrix(nullptr), 1);
        return b;
    };
    // Joint2 000100 frees the rotation about L at node 2: the propped beam 3EI/L^3, 3EI/L^2,
    // 3EI/L in the plane of N; the other plane keeps 12, 6, 4, 2.
    Mat k = beam(0, 100)->Stiff();
    EXPECT_NEAR(k[2][2], 3 * EIL / (L * L * L), 1e-6);
    EXPECT_NEAR(k[2][3], 3 * EIL / (L * L), 1e-6);
    EXPECT_NEAR(k[3][3], 3 * EIL / L, 1e-6);
    EXPECT_NEAR(k[2][8], -3 * EIL / (L * L * L), 1e-6);
    EXPECT_NEAR(k[3][8], -3 * EIL / (L * L), 1e-6);
    EXPECT_NEAR(k[8][8], 3 * EIL / (L * L * L), 1e-6);
    for (int i = 0; i < 12; ++i) EXPECT_NEAR(k[9][i], 0.0, 1e-6) << i;
    EXPECT_NEAR(k[5][11], 2 * EIN / L, 1e-6);
    EXPECT_NEAR(k[0][0], 12 * EIN / (L * L * L), 1e-6);

    // Joint1 000001 frees only the rotation about N at node 1: the same propped beam in the
    // plane of L, where the rotation about N turns against the deflection.
    k = beam(1, 0)->Stiff();
    EXPECT_NEAR(k[0][0], 3 * EIN / (L * L * L), 1e-6);
    EXPECT_NEAR(k[0][11], -3 * EIN / (L * L), 1e-6);
    EXPECT_NEAR(k[11][11], 3 * EIN / L, 1e-6);
    for (int i = 0; i < 12; ++i) EXPECT_NEAR(k[5][i], 0.0, 1e-6) << i;
    EXPECT_NEAR(k[3][3], 4 * EIL / L, 1e-6);

    // Joint1 100000 frees only the translation along L at node 1: a beam that may slide
    // sideways carries a uniform moment only, EI/L on both rotations about N.
    k = beam(100000, 0)->Stiff();
    EXPECT_NEAR(k[5][5], EIN / L, 1e-6);
    EXPECT_NEAR(k[5][11], -EIN / L, 1e-6);
    EXPECT_NEAR(k[11][11], EIN / L, 1e-6);
    EXPECT_NEAR(k[6][6], 0.0, 1e-6);
    EXPECT_NEAR(k[2][2], 12 * EIL / (L * L * L), 1e-6);
    EXPECT_NEAR(k[1][1], kEk * kA / L, 1e-6);
}

TEST(ElementStiffness, CreepModulusAndGeometricStiffnessOfTheAxialForce) {
    const double L = 5.0, N = 800.0;
    Beam b(0, 0, 0, 0, L, 0, N);
    ASSERT_EQ(b.e.MakeTransMatrix(nullptr), 1);
    // A creep step with phi 2.0 works on E / (1 + 0.85 * 2.0) = E / 2.7.
    b.e.SetPartCreep(2.0);
    EXPECT_NEAR(b.Stiff(3)[1][1], kEk * kA / L / 2.7, 1e-6);
    EXPECT_NEAR(b.Stiff(1)[1][1], kEk * kA / L, 1e-6);

    // Consistent geometric stiffness of a beam in tension: N/(30L) times
    // [36, 3L, -36, 3L; 3L, 4L^2, -3L, -L^2; ...] on (v1, r1, v2, r2).
    const double EI = kEk * kIL, g = N / (30 * L);
    Mat k = b.Stiff(1, 1);
    EXPECT_NEAR(k[2][2], 12 * EI / (L * L * L) + 36 * g, 1e-6);
    EXPECT_NEAR(k[2][3], 6 * EI / (L * L) + 3 * L * g, 1e-6);
    EXPECT_NEAR(k[3][3], 4 * EI / L + 4 * L * L * g, 1e-6);
    EXPECT_NEAR(k[3][9], 2 * EI / L - L * L * g, 1e-6);
    EXPECT_NEAR(k[2][8], -12 * EI / (L * L * L) - 36 * g, 1e-6);
    EXPECT_NEAR(k[8][9], -6 * EI / (L * L) - 3 * L * g, 1e-6);
    EXPECT_NEAR(k[0][5], -6 * kEk * kIN / (L * L) - 3 * L * g, 1e-6);

    // The axial list refreshes the cached force: a compression of 300 kN replaces the 800.
    auto axial = std::make_unique<CAxial>();
    axial->SetAxialValue(-300.0);
    b.e.GetAxialList().Add(std::move(axial));
    EXPECT_DOUBLE_EQ(b.e.CalcAxialForce(), -300.0);
    EXPECT_NEAR(b.Stiff(1, 1)[2][2], 12 * EI / (L * L * L) - 36 * 300.0 / (30 * L), 1e-6);
}

TEST(ElementStiffness, SpringsActBetweenNodeOneAndTheGround) {
    CKeySection spring;
    spring.SetType(21);
    Beam b(0, 0, 0, 4, 0, 0);
    b.e.SetSectionPtr(&spring);
    EXPECT_EQ(b.e.GetType(), 3);
    ASSERT_EQ(b.e.MakeTransMatrix(nullptr), 1);
    // Along X with N = +Z: RX is about M, RY about -L, RZ about N.
    Mat k = b.Stiff();
    EXPECT_NEAR(k[3][3], kIM, 1e-12);
    EXPECT_NEAR(k[4][4], kIL, 1e-12);
    EXPECT_NEAR(k[5][5], kIN, 1e-12);
    for (int i = 0; i < 12; ++i)
        for (int j = 6; j < 12; ++j) EXPECT_EQ(k[i][j], 0.0) << i << "," << j;

    spring.SetType(20);
    b.e.SetSectionPtr(&spring);
    EXPECT_EQ(b.e.GetType(), 2);
    k = b.Stiff();
    EXPECT_NEAR(k[0][0], kIM, 1e-12);
    EXPECT_NEAR(k[1][1], kIL, 1e-12);
    EXPECT_NEAR(k[2][2], kIN, 1e-12);
    EXPECT_NEAR(k[3][3], 0.0, 1e-12);

    // A spring matrix takes its upper triangle from parameters 7 on, row by row, and mirrors it;
    // what stands below the diagonal in the parameters is not read.
    spring.SetType(22);
    for (int i = 0; i < 6; ++i)
        for (int j = 0; j < 6; ++j) spring.SetSpecParam(7 + 6 * i + j, j >= i ? 10 * i + j : -99);
    Beam s(0, 0, 0, 0, 4, 0);
    s.e.SetSectionPtr(&spring);
    EXPECT_EQ(s.e.GetType(), 4);
    ASSERT_EQ(s.e.MakeTransMatrix(nullptr), 1);
    k = s.Stiff();
    EXPECT_EQ(k[1][4], 14.0);
    EXPECT_EQ(k[4][1], 14.0);
    EXPECT_EQ(k[5][5], 55.0);
    EXPECT_EQ(k[0][0], 0.0);
    EXPECT_EQ(k[7][7], 0.0);

    // A section of another type leaves the type; there is no element type 5.
    spring.SetType(3);
    s.e.SetSectionPtr(&spring);
    EXPECT_EQ(s.e.GetType(), 4);
    s.e.SetType(5);
    double K[12][12];
    EXPECT_EQ(s.e.MakeStiffMatrix(nullptr, K, nullptr, 1, 0), 0);
}

TEST(ElementAxes, VerticalBandAndTheZeroingOfSmallEntries) {
    // Alpha 90 on a vertical element: L = (0, -1, 0), N = (-1, 0, 0); just outside the band of
    // 0.001 rad the general rule makes N horizontal across the plan direction X: (0, 1, 0).
    for (const double tilt : {0.0, 0.0009, 0.0011}) {
        Beam b(0, 0, 0, 5 * std::sin(tilt), 0, 5 * std::cos(tilt));
        b.e.SetLocAxisCode(4);
        b.e.SetAlpha(90.0);
        ASSERT_EQ(b.e.MakeTransMatrix(nullptr), 1);
        if (tilt < 0.001) {
            ExpectAxes(b.e, {{{0, -1, 0}, {0, 0, 1}, {-1, 0, 0}}}, 1e-6, "vertical");
        } else {
            EXPECT_NEAR(b.e.GetTransMatrix(2, 1), 1.0, 1e-9);
            EXPECT_NEAR(b.e.GetTransMatrix(1, 0), tilt, 1e-9);
        }
    }
    // A direction cosine of 1.1e-5 stays, one of 0.9e-5 becomes exactly 0.
    Beam b(0, 0, 0, 1, 1.1e-5, 0);
    ASSERT_EQ(b.e.MakeTransMatrix(nullptr), 1);
    EXPECT_NEAR(b.e.GetTransMatrix(1, 1), 1.1e-5, 1e-12);
    Beam c(0, 0, 0, 1, 0.9e-5, 0);
    ASSERT_EQ(c.e.MakeTransMatrix(nullptr), 1);
    EXPECT_EQ(c.e.GetTransMatrix(1, 1), 0.0);
    EXPECT_EQ(c.e.GetTransMatrix(0, 0), 0.0);
}

TEST(ElementAxes, ThirdNodeDirectionCodesAndFailures) {
    Beam b(0, 0, 0, 4, 0, 0);
    b.n3 = CNode(3, 2, 5, 0);
    b.e.SetLocAxisCode(1);
    b.e.SetNDirCode(0);
    EXPECT_EQ(b.e.MakeTransMatrix(nullptr), 0); // code 1 needs node 3
    b.e.SetNodeNo3Ptr(&b.n3);
    ASSERT_EQ(b.e.MakeTransMatrix(nullptr), 1);
    ExpectAxes(b.e, {{{0, 0, 1}, {1, 0, 0}, {0, 1, 0}}}, 1e-12, "node 3");
    // A direction code overrides one coordinate of node 3: Z far up turns N upwards.
    b.e.SetNDirCode(3);
    ASSERT_EQ(b.e.MakeTransMatrix(nullptr), 1);
    EXPECT_NEAR(b.e.GetTransMatrix(2, 2), 1.0, 1e-9);
    // Code 3, -Y: N = -Y, L = X x -Y = -Z.
    b.e.SetLocAxisCode(3);
    b.e.SetNDirCode(5);
    ASSERT_EQ(b.e.MakeTransMatrix(nullptr), 1);
    ExpectAxes(b.e, {{{0, 0, -1}, {1, 0, 0}, {0, -1, 0}}}, 1e-9, "-Y");
    // N toward +X along an element on the X axis has no normal part.
    b.e.SetNDirCode(1);
    EXPECT_EQ(b.e.MakeTransMatrix(nullptr), 0);
    b.e.SetLocAxisCode(7);
    EXPECT_EQ(b.e.MakeTransMatrix(nullptr), 0);
    b.e.SetLocAxisCode(3);
    b.e.SetNodeNo2Ptr(nullptr);
    EXPECT_EQ(b.e.MakeTransMatrix(nullptr), 0);
    EXPECT_EQ(b.e.CalcElementProp(nullptr), 0);
}

TEST(ElementAxes, AColumnTakesNAlongTheLineItStandsOn) {
    CStructure s(2);
    // The girder runs from (0, 0, 0) to (30, 40, 0): direction (0.6, 0.8, 0).
    CRefLine* girder = s.AddRefLine(std::make_unique<CRefLine>(1, "Girder"), 0);
    girder->AddCoord(std::make_unique<CCoord>(1, girder, 1, 0.0, 0.0, 0.0, 0.0));
    girder->AddCoord(std::make_unique<CCoord>(2, girder, 2, 30.0, 40.0, 0.0, 0.0));
    CRefLine* column = s.AddRefLine(std::make_unique<CRefLine>(2, "Column"), 0);
    column->SetColumn(1);
    column->SetRefLineFromColumn(1);
    column->SetColumnAtStationNo(20.0);

    Beam b(12, 16, -8, 12, 16, 0);
    b.n1.SetRefLineNo(2);
    b.e.SetLocAxisCode(5);
    ASSERT_EQ(b.e.MakeTransMatrix(&s), 1);
    // N = girder direction, M = Z, L = Z x N = (-0.8, 0.6, 0).
    ExpectAxes(b.e, {{{-0.8, 0.6, 0}, {0, 0, 1}, {0.6, 0.8, 0}}}, 1e-9, "column");

    b.e.SetNodeNo3Ptr(&b.n3);
    EXPECT_EQ(b.e.MakeTransMatrix(&s), 0);
    b.e.SetNodeNo3Ptr(nullptr);
    column->SetRefLineFromColumn(9);
    EXPECT_EQ(b.e.MakeTransMatrix(&s), 0);
    column->SetColumn(0);
    column->SetRefLineFromColumn(1);
    EXPECT_EQ(b.e.MakeTransMatrix(&s), 0);
}

TEST(ElementUpdate, CacheLookUpsAndUpdateMessages) {
    Beam b(0, 0, 0, 3, 4, 0);
    EXPECT_EQ(b.e.GetUpdateFlag(), 1);
    EXPECT_DOUBLE_EQ(b.e.FindSectionArea(nullptr, 0.5), kA);
    EXPECT_DOUBLE_EQ(b.e.FindYoungsModulus(nullptr), kE);
    EXPECT_DOUBLE_EQ(b.e.FindPoisson(nullptr), kNu);
    // A copy reads its section values afresh.
    CElement copy(b.e);
    EXPECT_EQ(copy.GetUpdateFlag(), 0);

    b.e.ClearUpdateFlag();
    EXPECT_DOUBLE_EQ(b.e.FindSectionArea(nullptr, 0.5), -1.0);
    EXPECT_DOUBLE_EQ(b.e.FindYoungsModulus(nullptr), 0.0);
    CKeySection section;
    section.SetSectionArea(0.5);
    section.SetYoungsModulus(35000.0);
    section.SetPoisson(0.3);
    b.e.SetSectionPtr(&section);
    EXPECT_DOUBLE_EQ(b.e.FindSectionArea(nullptr, 0.0), 0.5);
    EXPECT_DOUBLE_EQ(b.e.FindYoungsModulus(nullptr), 35000.0);
    EXPECT_DOUBLE_EQ(b.e.FindPoisson(nullptr), 0.3);

    b.e.SetNo(17);
    b.e.SetLocAxisCode(3);
    std::string msg;
    b.e.SetNodeNo2Ptr(nullptr);
    EXPECT_EQ(b.e.Update(nullptr, 1, 0, &msg), 0);
    EXPECT_EQ(msg, "Element update error: Unable to calc. local axis or node(s) non exsisting, "
                   "element no. 17\r\n");
    b.e.SetNodeNo2Ptr(&b.n2);
    b.e.SetType(6);
    EXPECT_EQ(b.e.Update(nullptr, 1, 0, &msg), 0);
    EXPECT_EQ(msg, "Element update error: Unable to calc. stiff. matrix., Element no. 17\r\n");
    EXPECT_EQ(b.e.GetUpdateFlag(), 0);
    EXPECT_DOUBLE_EQ(b.e.GetLength(), 5.0);
}
