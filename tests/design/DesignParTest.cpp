#include "design/ConcrDesPar.h"
#include "design/PrestDesPar.h"
#include "design/ReinfDesPar.h"
#include "design/SectDesPar.h"
#include "design/SteelDesPar.h"

#include <gtest/gtest.h>

using namespace kelo;

TEST(ConcrDesPar, TheTwoConstructorsDifferInAccidentalFactorAndStrainLimits) {
    const CConcrDesPar plain;
    const CConcrDesPar named(3, "Default values");
    EXPECT_DOUBLE_EQ(plain.GetGammaULS(), 1.4);
    EXPECT_DOUBLE_EQ(plain.GetGammaPLS(), 1.0);
    EXPECT_DOUBLE_EQ(plain.GetGammaSLS(), 1.0);
    EXPECT_DOUBLE_EQ(named.GetGammaULS(), 1.4);
    EXPECT_DOUBLE_EQ(named.GetGammaPLS(), 1.2);
    EXPECT_DOUBLE_EQ(named.GetGammaSLS(), 1.0);
    for (int ls = 1; ls <= 3; ++ls) {
        EXPECT_DOUBLE_EQ(plain.GetEpslim(ls), 3.5);
        EXPECT_DOUBLE_EQ(named.GetEpslim(ls), 0.035);
    }
    EXPECT_DOUBLE_EQ(named.GetAcc(), 0.85);
    EXPECT_DOUBLE_EQ(named.GetAct(), 0.85);
    EXPECT_EQ(named.KeyNo(), 3);
    EXPECT_EQ(named.GetName(), "Default values");
    // Every parameter but the two the constructors disagree on is equal.
    EXPECT_EQ(plain.CompareParam(&named, 1), 1);
    CConcrDesPar aligned(named);
    aligned.SetGammaPLS(1.0);
    for (int ls = 1; ls <= 3; ++ls) aligned.SetEpslim(ls, 3.5);
    EXPECT_EQ(plain.CompareParam(&aligned, 1), 0);
}

TEST(DesignPar, GammaByLimitState) {
    CConcrDesPar c(1, "c");
    c.SetGammaULS(1.5);
    EXPECT_DOUBLE_EQ(c.GetGamma(1, 0), 1.5);
    // The flag takes the ultimate factor to the accidental level: 1.2 * 1.5 / 1.5.
    EXPECT_DOUBLE_EQ(c.GetGamma(1, 1), 1.2);
    EXPECT_DOUBLE_EQ(c.GetGamma(2, 1), 1.2);
    EXPECT_DOUBLE_EQ(c.GetGamma(3, 0), 1.0);
    EXPECT_DOUBLE_EQ(c.GetGamma(0, 0), -1.0);
    EXPECT_DOUBLE_EQ(c.GetGamma(4, 1), -1.0);
    EXPECT_DOUBLE_EQ(c.GetEpslim(0), -1.0);

    const CReinfDesPar r;
    EXPECT_DOUBLE_EQ(r.GetGamma(1, 1), 1.25);
    EXPECT_DOUBLE_EQ(r.GetGamma(2, 0), 1.1);
    EXPECT_DOUBLE_EQ(r.GetGamma(3, 0), 1.0);
    EXPECT_DOUBLE_EQ(r.GetGamma(0, 0), -1.0);
    EXPECT_DOUBLE_EQ(r.GetEpslim(2), 0.005);
    const CPrestDesPar p;
    EXPECT_DOUBLE_EQ(p.GetGamma(0, 0), -1.0);
    EXPECT_DOUBLE_EQ(p.GetGamma(1, 0), 1.25);
    EXPECT_DOUBLE_EQ(p.GetEpslim(3), 0.01);

    CSteelDesPar s;
    EXPECT_DOUBLE_EQ(s.GetGamma(1), 0.0);
    s.SetGamma(1, 1.1);
    s.SetEpslim(2, 0.012);
    EXPECT_DOUBLE_EQ(s.GetGamma(1), 1.1);
    EXPECT_DOUBLE_EQ(s.GetGamma(6), 0.012);
    EXPECT_DOUBLE_EQ(s.GetGamma(0), -1.0);
    EXPECT_DOUBLE_EQ(s.GetGamma(9), -1.0);
    s.SetGamma(9, 5.0);
    EXPECT_DOUBLE_EQ(s.GetEpslim(4), 0.0);
}

TEST(DesignPar, BarSetDefaultsFollowTheMaterial) {
    const CReinfDesPar r(1, "r");
    const CPrestDesPar p(1, "p");
    // Place:                 1     2    3    4    5     6    7    8      9     10  11..13
    const double reinf[] = {1.25, 1.1, 1.0, 0.4, 0.75, 1.5, 0.3, 135.0, 55.0, 0, 0.005};
    const double prest[] = {1.25, 1.1, 1.0, 0.4, 1.15, 2.0, 0.2, 135.0, 65.0, 0, 0.01};
    for (int f = 1; f <= 13; ++f) {
        EXPECT_DOUBLE_EQ(r.GetParam(f), reinf[f <= 11 ? f - 1 : 10]) << f;
        EXPECT_DOUBLE_EQ(p.GetParam(f), prest[f <= 11 ? f - 1 : 10]) << f;
    }
    EXPECT_DOUBLE_EQ(r.GetBondCoeff(), 0.75);
    EXPECT_DOUBLE_EQ(p.GetCover(), 65.0);
    EXPECT_DOUBLE_EQ(r.GetParam(14), -1.0);
    EXPECT_DOUBLE_EQ(r.GetParam(0), -1.0);
}

// Each place of the record must reach its own field: the strain limits start equal in all limit
// states, so only distinct values tell a place that reaches the wrong limit state.
TEST(DesignPar, PlacesOfTheRecordReachTheNamedFields) {
    CConcrDesPar c;
    for (int f = 1; f <= CConcrDesPar::kFieldCount; ++f) ASSERT_EQ(c.SetParam(f, 10.0 * f), 1);
    for (int ls = 1; ls <= 3; ++ls) {
        EXPECT_DOUBLE_EQ(c.GetGamma(ls, 0), 10.0 * ls) << ls;
        EXPECT_DOUBLE_EQ(c.GetEpslim(ls), 10.0 * (ls + 3)) << ls;
    }
    EXPECT_DOUBLE_EQ(c.GetAcc(), 70.0);
    EXPECT_DOUBLE_EQ(c.GetAct(), 80.0);
    c.SetEpslim(2, 0.5);
    EXPECT_DOUBLE_EQ(c.GetParam(5), 0.5);

    CPrestDesPar p;
    for (int f = 1; f <= CPrestDesPar::kFieldCount; ++f) ASSERT_EQ(p.SetParam(f, f + 0.7), 1);
    for (int ls = 1; ls <= 3; ++ls) {
        EXPECT_DOUBLE_EQ(p.GetGamma(ls, 1), ls + 0.7) << ls;
        EXPECT_DOUBLE_EQ(p.GetEpslim(ls), ls + 10.7) << ls;
    }
    EXPECT_DOUBLE_EQ(p.GetK1(), 4.7);
    EXPECT_DOUBLE_EQ(p.GetBondCoeff(), 5.7);
    EXPECT_DOUBLE_EQ(p.GetKt(), 6.7);
    EXPECT_DOUBLE_EQ(p.GetWkMax(), 7.7);
    EXPECT_DOUBLE_EQ(p.GetSrmMax(), 8.7);
    EXPECT_DOUBLE_EQ(p.GetCover(), 9.7);
    // The crack width scale is an integer: the value is cut.
    EXPECT_EQ(p.GetScaleWk(), 10);
    EXPECT_DOUBLE_EQ(p.GetParam(10), 10.0);
    p.SetEpslim(3, 0.25);
    EXPECT_DOUBLE_EQ(p.GetParam(13), 0.25);
}

TEST(DesignPar, CompareParamFindsAChangeOfAnyParameter) {
    const CReinfDesPar base(1, "a");
    for (int f = 1; f <= CReinfDesPar::kFieldCount; ++f) {
        CReinfDesPar changed(base);
        ASSERT_EQ(changed.SetParam(f, base.GetParam(f) + 1.0), 1);
        EXPECT_EQ(base.CompareParam(&changed, 0), 1) << f;
    }
    CReinfDesPar near(base);
    near.SetNo(2);
    near.SetName("b");
    near.SetWkMax(0.3 + 5e-6);
    EXPECT_EQ(base.CompareParam(&near, 0), 0);
    near.SetWkMax(0.3 + 2e-5);
    EXPECT_EQ(base.CompareParam(&near, 0), 1);
    EXPECT_EQ(near.SetParam(14, 1.0), 0);

    const CPrestDesPar pb;
    CPrestDesPar pc(pb);
    pc.SetEpslim(3, 0.02);
    EXPECT_EQ(pb.CompareParam(&pc, 0), 1);

    // The concrete set compares in mode 1 only.
    const CConcrDesPar cb(1, "c");
    CConcrDesPar cc(cb);
    cc.SetAct(0.7);
    EXPECT_EQ(cb.CompareParam(&cc, 1), 1);
    EXPECT_EQ(cb.CompareParam(&cc, 0), 0);
    EXPECT_EQ(cb.CompareParam(&cc, 2), 0);
    EXPECT_EQ(cb.CompareParam(&cb, 1), 0);

    CSteelDesPar sb;
    CSteelDesPar sc(sb);
    sc.SetGamma(8, 1e-4);
    EXPECT_EQ(sb.CompareParam(&sc, 0), 1);

    const CSectDesPar tb;
    for (int f = 1; f <= CSectDesPar::kFieldCount; ++f) {
        CSectDesPar changed(tb);
        ASSERT_EQ(changed.SetParam(f, tb.GetParam(f) + 1.0), 1);
        EXPECT_EQ(tb.CompareParam(&changed, 0), 1) << f;
    }
}

TEST(SectDesPar, DefaultsSharedFieldsAndSafetyClass) {
    CSectDesPar s(4, "s");
    EXPECT_EQ(s.GetMatType(), 1);
    EXPECT_DOUBLE_EQ(s.GetLeX(), 0.0);
    EXPECT_DOUBLE_EQ(s.GetCustTolY(), -1.0);
    EXPECT_DOUBLE_EQ(s.GetLambdaNmin(), 10.0);
    EXPECT_DOUBLE_EQ(s.GetLambdaNmax(), 45.0);
    EXPECT_DOUBLE_EQ(s.GetKa(), 0.666);
    EXPECT_DOUBLE_EQ(s.GetCreepFactor(), 2.5);
    EXPECT_DOUBLE_EQ(s.GetBeta(), 0.4);
    EXPECT_DOUBLE_EQ(s.GetFyw(), 500.0);
    EXPECT_DOUBLE_EQ(s.GetTheta(), 30.0);
    EXPECT_DOUBLE_EQ(s.GetImperf(), 400.0);
    EXPECT_EQ(s.GetSecClass(), 1);
    EXPECT_EQ(s.GetSafClass(), 3);
    EXPECT_DOUBLE_EQ(s.GetGammaN(), 1.2);
    s.SetSafClass(2);
    EXPECT_DOUBLE_EQ(s.GetGammaN(), 1.1);
    s.SetSafClass(1);
    EXPECT_DOUBLE_EQ(s.GetGammaN(), 1.0);

    // EccFX is the tolerance switch; EccFY is the least tolerance and, cut, the moment code.
    EXPECT_EQ(s.GetInclTol(), 1);
    EXPECT_DOUBLE_EQ(s.GetMinTol(), 0.02);
    EXPECT_EQ(s.GetAddMomCode(), 0);
    s.SetInclTol(3);
    EXPECT_DOUBLE_EQ(s.GetEccFX(), 3.0);
    s.SetAddMomCode(1);
    EXPECT_DOUBLE_EQ(s.GetEccFY(), 1.0);

    // Places of the record: 19 is the safety class (an integer), 31 the last.
    EXPECT_EQ(s.SetParam(19, 2.7), 1);
    EXPECT_EQ(s.GetSafClass(), 2);
    EXPECT_EQ(s.SetParam(31, 0.75), 1);
    EXPECT_DOUBLE_EQ(s.GetLatMomY(), 0.75);
    EXPECT_DOUBLE_EQ(s.GetParam(21), 30.0);
    EXPECT_DOUBLE_EQ(s.GetParam(32), -1.0);
    EXPECT_EQ(s.SetParam(0, 1.0), 0);
}
