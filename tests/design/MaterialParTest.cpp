#include "design/ConcrMatPar.h"
#include "design/PrestMatPar.h"
#include "design/ReinfMatPar.h"
#include "design/SteelMatPar.h"
#include "platform/Sinks.h"

#include <gtest/gtest.h>

#include <cmath>
#include <string>
#include <vector>

using namespace kelo;

namespace {

class RecordingSink : public MessageSink {
public:
    int Show(MsgKind, const std::string& text) override {
        Texts.push_back(text);
        return 1;
    }
    std::vector<std::string> Texts;
};

} // namespace

TEST(ConcrMatPar, Ns3473FourthEditionNormalConcrete) {
    // C45 at 2400 kg/m³, the reference density of the 4th edition, so d = 1:
    // fcck = 0.8 * 45 = 36; fcn = 0.56 * 45 + 2.8 = 28; ftn = (45 - 25) * 0.03 + 1.4 = 2.0
    // Ecn = 10000 * 28^0.3 = 27173.61 MPa, Eck = 9500 * 36^0.3 = 27836.48 MPa
    // Epsco = (0.004 * 28 + 1.9) / 1000 = 0.002012; M = 0.002012 / (28 / 27173.61) = 1.95262
    // Epscu = trunc((2.5 * 1.95262 - 1.5) * 28 / 27173.61 * 1e6) / 1e6 = trunc(3484.39) / 1e6
    const CConcrMatPar c(1, "C45", 45.0, 0, 2400.0, 102);
    EXPECT_DOUBLE_EQ(c.GetFck(), 45000.0);
    EXPECT_NEAR(c.GetFcck(), 36000.0, 1e-9);
    EXPECT_NEAR(c.GetFcn(), 28000.0, 1e-9);
    EXPECT_NEAR(c.GetFtn(), 2000.0, 1e-9);
    EXPECT_NEAR(c.GetEcn(), 27173614.46, 0.01);
    EXPECT_NEAR(c.GetEck(), 27836482.49, 0.01);
    EXPECT_NEAR(c.GetEpsco(), 0.002012, 1e-12);
    EXPECT_NEAR(c.GetM(), 1.9526183, 1e-7);
    EXPECT_DOUBLE_EQ(c.GetEpscu(), 0.003484);
    EXPECT_DOUBLE_EQ(c.GetRho(), 2400.0);
    // The calculated modulus replaces the "use the computed one" marker.
    EXPECT_FALSE(c.GetUseDefaultYoungsModulus());
    EXPECT_DOUBLE_EQ(c.GetYoungsModulus(), c.GetEcn());
    EXPECT_NEAR(c.GetFctk05(), 1400.0, 1e-9);
    EXPECT_NEAR(c.GetFctk95(), 2600.0, 1e-9);

    // Below 15 MPa the 4th edition keeps the 15-25 row: (10 - 15) * 0.04 + 1 = 0.8 MPa, the
    // 5th edition has fck / 15 = 0.667 MPa.
    EXPECT_NEAR(CConcrMatPar(1, "C10", 10.0, 0, 2400.0, 102).GetFtn(), 800.0, 1e-9);
    EXPECT_NEAR(CConcrMatPar(1, "C10", 10.0, 0, 2200.0, 101).GetFtn(), 10000.0 / 15.0, 1e-9);
    // Above 55 MPa fcck gains 0.2 per MPa: 0.8 * 75 + 0.2 * 20 = 64.
    EXPECT_NEAR(CConcrMatPar(1, "C75", 75.0, 0, 2400.0, 102).GetFcck(), 64000.0, 1e-9);
}

TEST(ConcrMatPar, Ns3473FifthEditionLightConcrete) {
    // 1800 kg/m³ against 2200: d = 0.81818. Moduli by d², tensile strength by 0.85 d + 0.15.
    const double d = 1800.0 / 2200.0;
    RecordingSink sink;
    const CConcrMatPar c(1, "LC45", 45.0, 0, 1800.0, 101, &sink);
    EXPECT_NEAR(c.GetEcn(), d * d * 27173614.46, 0.01);
    EXPECT_NEAR(c.GetFtn(), (0.85 * d + 0.15) * 2000.0, 1e-9);
    // 94 d² = 62.9 is above fcck = 36: within the limits, no warning.
    EXPECT_TRUE(sink.Texts.empty());

    // At 1000 kg/m³, 94 d² = 19.4 is below fcck = 36: told, parameters still set.
    const CConcrMatPar light(2, "LC45", 45.0, 0, 1000.0, 101, &sink);
    ASSERT_EQ(sink.Texts.size(), 1u);
    EXPECT_EQ(sink.Texts[0],
              "fcck, corresponding to specified fck, is not within limitations in NS 3473 par. "
              "11.1");
    EXPECT_NEAR(light.GetFcck(), 36000.0, 1e-9);
}

TEST(ConcrMatPar, En1992ClassesAndLimits) {
    // C35/45: cube 45, fcm = 43, fctm = 0.3 * 35^(2/3) = 3.20996, Ecm = 22000 * 4.3^0.3 = 34077.2,
    // cut to 34077 MPa.
    const CConcrMatPar c(1, "B35", 35.0, 0, 2200.0, 105);
    EXPECT_NEAR(c.GetFcck(), 35000.0, 1e-9);
    EXPECT_NEAR(c.GetFck(), 45000.0, 1e-9);
    EXPECT_NEAR(c.GetFcm(), 43000.0, 1e-9);
    EXPECT_NEAR(c.GetFctm(), 3209.962, 1e-3);
    EXPECT_DOUBLE_EQ(c.GetEcm(), 34077000.0);
    EXPECT_DOUBLE_EQ(c.GetEck(), 34077000.0);
    EXPECT_DOUBLE_EQ(c.GetEpsc2(), 0.002);
    EXPECT_DOUBLE_EQ(c.GetEpscu2(), 0.0035);
    EXPECT_DOUBLE_EQ(c.GetN(), 2.0);
    EXPECT_TRUE(c.GetUseDefaultYoungsModulus());

    // Between classes the cube strength is interpolated: 37 + (32 - 30) / 5 * 8 = 40.2.
    EXPECT_NEAR(CConcrMatPar(1, "", 32.0, 0, 2200.0, 105).GetFck(), 40200.0, 1e-9);

    // C60: fcm = 68, fctm = 2.12 ln(1 + 6.8) = 4.35474, epsc2 = 2 + 0.085 * 10^0.53 = 2.28802,
    // epscu2 = 2.6 + 35 * 0.3^4 = 2.8835, n = 1.4 + 23.4 * 0.3^4 = 1.58954, Ecm = 39099.
    const CConcrMatPar h(2, "", 60.0, 0, 2400.0, 105);
    EXPECT_NEAR(h.GetFctm(), 4354.742, 1e-3);
    EXPECT_NEAR(h.GetEpsc2(), 0.0022880175, 1e-10);
    EXPECT_NEAR(h.GetEpscu2(), 0.0028835, 1e-12);
    EXPECT_NEAR(h.GetN(), 1.58954, 1e-9);
    EXPECT_DOUBLE_EQ(h.GetEcm(), 39099000.0);

    // Lightweight, 1800 kg/m³: eta1 = 0.4 + 0.6 * 1800 / 2200 = 0.890909, etaE = 0.669421.
    // fck 16: cube 18, fcm 22 at the end of its row, fctm = 0.3 * 0.890909 * 16^(2/3) = 1.69708,
    // Ecm = trunc(22000 * 0.669421 * 2.2^0.3) = 18657, epscu2 = 3.5 * 0.890909.
    const CConcrMatPar lw(3, "", 16.0, 1, 1800.0, 105);
    EXPECT_NEAR(lw.GetFck(), 18000.0, 1e-9);
    EXPECT_NEAR(lw.GetFcm(), 22000.0, 1e-9);
    EXPECT_NEAR(lw.GetFctm(), 1697.076, 1e-3);
    EXPECT_DOUBLE_EQ(lw.GetEcm(), 18657000.0);
    EXPECT_NEAR(lw.GetEpscu2(), 0.0031181818, 1e-10);
    // The next row starts lower: fck 17 gives 18 + 6 / 4 = 19.5.
    EXPECT_NEAR(CConcrMatPar(4, "", 17.0, 1, 1800.0, 105).GetFcm(), 19500.0, 1e-9);

    // Out of range: told, and the earlier parameters stay.
    RecordingSink sink;
    CConcrMatPar keep(c);
    keep.CalculateParam(105, 0, 2200.0, 95.0, &sink);
    ASSERT_EQ(sink.Texts.size(), 1u);
    EXPECT_EQ(sink.Texts[0],
              "Specified fck is not within limitations in NS-EN 1992-1-1 cl. 3.1.2 (2)");
    EXPECT_EQ(keep.CompareParam(&c, 1), 0);
    keep.CalculateParam(105, 1, 1800.0, 85.0, &sink);
    EXPECT_EQ(sink.Texts.back(),
              "Specified fck is not within limitations in NS-EN 1992-1-1 table 11.3.1");
    EXPECT_EQ(keep.CompareParam(&c, 1), 0);
}

TEST(ConcrMatPar, AashtoAndCodesThatDeriveNothing) {
    // f'c = 28: 0.85 f'c = 23.8, 0.2 sqrt(28) = 1.05830, 1.82 sqrt(28) = 9.63 cut to 9 before
    // the factor 1000.
    RecordingSink sink;
    const CConcrMatPar c(1, "f'c=28", 28.0, 0, 2200.0, 106, &sink);
    EXPECT_NEAR(c.GetFck(), 28000.0, 1e-9);
    EXPECT_NEAR(c.GetFcck(), 28000.0, 1e-9);
    EXPECT_NEAR(c.GetFcn(), 23800.0, 1e-9);
    EXPECT_NEAR(c.GetFtn(), 1058.3005, 1e-4);
    EXPECT_DOUBLE_EQ(c.GetEcn(), 9000.0);
    EXPECT_DOUBLE_EQ(c.GetEpscu(), 0.003);
    EXPECT_TRUE(sink.Texts.empty());
    // Above 70 MPa the code's range is left, but the values are still derived.
    const CConcrMatPar high(2, "", 81.0, 0, 2200.0, 106, &sink);
    ASSERT_EQ(sink.Texts.size(), 1u);
    EXPECT_EQ(sink.Texts[0], "Specified f'c is above lilitations in cl 5.4.2.1");
    EXPECT_DOUBLE_EQ(high.GetEcn(), 16000.0);

    // BBK94 and BS 5400 keep what they had; the density is chosen by the code.
    CConcrMatPar k(1, "K45", 45.0, 0, 1234.0, 103);
    EXPECT_DOUBLE_EQ(k.GetRho(), 2400.0);
    EXPECT_DOUBLE_EQ(k.GetFcn(), 0.0);
    k.SetEpscu(0.0031);
    k.SetAlpha(2e-5);
    k.CalculateParam(103, 0, 2400.0, 60.0);
    EXPECT_DOUBLE_EQ(k.GetEpscu(), 0.0031);
    EXPECT_DOUBLE_EQ(k.GetAlpha(), 2e-5);
    EXPECT_DOUBLE_EQ(CConcrMatPar(1, "", 50.0, 0, 1234.0, 104).GetRho(), 2300.0);
    // Without a code only the strength is kept.
    const CConcrMatPar bare(1, "", 45.0, 0, 2400.0, 0);
    EXPECT_DOUBLE_EQ(bare.GetFck(), 45000.0);
    EXPECT_DOUBLE_EQ(bare.GetRho(), 0.0);
}

TEST(ConcrMatPar, RecordLineAndModulusChoice) {
    CConcrMatPar c(7, "B35 (C35/45)", 35.0, 0, 2200.0, 105);
    EXPECT_EQ(c.GetObjDataString(), "7 35.000 1 -1.000 0.200 0 2200.000 0.150 \"B35 (C35/45)\"\n");
    c.SetYoungsModulus(30e6);
    EXPECT_DOUBLE_EQ(c.GetYoungsModulus(), 30e6);
    EXPECT_FALSE(c.GetUseDefaultYoungsModulus());
}

TEST(SteelMaterials, ConstructorsAndComparison) {
    const CReinfMatPar r(1, "B500NC", 500.0);
    EXPECT_DOUBLE_EQ(r.GetFsk(), 500000.0);
    EXPECT_DOUBLE_EQ(r.GetFt(), 500000.0);
    EXPECT_DOUBLE_EQ(r.GetEsk(), 2e8);
    EXPECT_DOUBLE_EQ(r.GetEpssu(), 0.01);
    EXPECT_EQ(r.GetClass(), 3);
    EXPECT_EQ(r.GetCurve(), 1);
    const CReinfMatPar r2(2, "other name", 500.0, 3, 2, 540.0);
    EXPECT_DOUBLE_EQ(r2.GetFt(), 540000.0);
    EXPECT_EQ(r.CompareParam(&r2, 0), 1);
    CReinfMatPar r3(r2);
    r3.SetNo(9);
    r3.SetName("renamed");
    EXPECT_EQ(r3.CompareParam(&r2, 0), 0);
    r3.SetCurve(1);
    EXPECT_EQ(r3.CompareParam(&r2, 0), 1);

    const CPrestMatPar p(1, "1670", 1670.0);
    EXPECT_DOUBLE_EQ(p.GetFsk(), 1670000.0);
    EXPECT_DOUBLE_EQ(p.GetEsk(), 1.95e8);
    EXPECT_DOUBLE_EQ(p.GetEpssu(), 0.02);
    CPrestMatPar p2(p);
    p2.SetEpssu(0.02 + 2e-5);
    EXPECT_EQ(p.CompareParam(&p2, 0), 1);
    p2.SetEpssu(0.02 + 5e-6);
    EXPECT_EQ(p.CompareParam(&p2, 0), 0);

    // Grade codes: the first and last of the table and one outside it.
    EXPECT_DOUBLE_EQ(CSteelMatPar(1, "", 10101).GetFb(), 370000.0);
    EXPECT_DOUBLE_EQ(CSteelMatPar(1, "", 10404).GetFb(), 550000.0);
    EXPECT_DOUBLE_EQ(CSteelMatPar(1, "", 10404).GetFy(), 460000.0);
    EXPECT_DOUBLE_EQ(CSteelMatPar(1, "", 10303).GetFy(), 420000.0);
    EXPECT_DOUBLE_EQ(CSteelMatPar(1, "", 99999).GetFb(), 370000.0);
    EXPECT_DOUBLE_EQ(CSteelMatPar(1, "", 99999).GetFy(), 235000.0);
    // G = E / (2 (1 + nu)): 2.1e8 / 2.6 = 80769230.77; 2.0e8 / 2.5 = 8e7.
    CSteelMatPar s(1, "S355", 10203);
    EXPECT_NEAR(s.GetShearModulus(), 80769230.77, 0.01);
    s.SetYoungsModulus(2.0e8);
    s.SetPoissonRatio(0.25);
    EXPECT_NEAR(s.GetShearModulus(), 8e7, 1e-6);
    EXPECT_EQ(s.CompareParam(&s, 0), 0);
    EXPECT_EQ(s.CompareParam(nullptr, 0), 1);
}
