#include "design/DefaultSets.h"

#include <gtest/gtest.h>

#include <map>
#include <set>

using namespace kelo;

TEST(DefaultSets, ConcreteAndItsDesignSetByCode) {
    // NS 3473 4th edition: C45 at 2400; the strain limit of the design set is the concrete's
    // ultimate strain, trunc((2.5 M - 1.5) fcn / Ecn * 1e6) / 1e6 = 0.003484 (fcn 28,
    // Ecn = 10000 * 28^0.3).
    auto c102 = MakeDefaultConcrMat(102, 2);
    EXPECT_EQ(c102->GetNo(), 1);
    EXPECT_EQ(c102->GetName(), "C45");
    EXPECT_DOUBLE_EQ(c102->GetFck(), 45000.0);
    EXPECT_DOUBLE_EQ(c102->GetRho(), 2400.0);
    EXPECT_NEAR(c102->GetFcn(), 28000.0, 1e-9);
    auto d102 = MakeDefaultConcrDes(102, 2);
    EXPECT_EQ(d102->GetName(), "Default values");
    EXPECT_EQ(MakeDefaultConcrDes(102, 1)->GetName(), "Standard verdier");
    EXPECT_DOUBLE_EQ(d102->GetGammaULS(), 1.4);
    EXPECT_DOUBLE_EQ(d102->GetGammaPLS(), 1.2);
    EXPECT_DOUBLE_EQ(d102->GetGammaSLS(), 1.0);
    for (int ls = 1; ls <= 3; ++ls) EXPECT_DOUBLE_EQ(d102->GetEpslim(ls), 0.003484);

    EXPECT_DOUBLE_EQ(MakeDefaultConcrMat(101, 2)->GetRho(), 2200.0);

    // NS-EN 1992: B35 (C35/45), cylinder 35, cube 45, epscu2 3.5 per mille.
    auto c105 = MakeDefaultConcrMat(105, 2);
    EXPECT_EQ(c105->GetName(), "B35 (C35/45)");
    EXPECT_DOUBLE_EQ(c105->GetFcck(), 35000.0);
    EXPECT_DOUBLE_EQ(c105->GetFck(), 45000.0);
    EXPECT_DOUBLE_EQ(c105->GetRho(), 2200.0);
    auto d105 = MakeDefaultConcrDes(105, 1);
    EXPECT_EQ(d105->GetName(), "NS-EN 1992 default values");
    EXPECT_DOUBLE_EQ(d105->GetGammaULS(), 1.5);
    EXPECT_DOUBLE_EQ(d105->GetGammaPLS(), 1.2);
    EXPECT_DOUBLE_EQ(d105->GetGammaSLS(), 1.0);
    EXPECT_DOUBLE_EQ(d105->GetEpslim(2), 0.0035);

    // AASHTO: f'c = 28, factors 1 and 1, strain limit 0.003.
    auto c106 = MakeDefaultConcrMat(106, 2);
    EXPECT_EQ(c106->GetName(), "f'c=28");
    EXPECT_DOUBLE_EQ(c106->GetFcck(), 28000.0);
    auto d106 = MakeDefaultConcrDes(106, 2);
    EXPECT_EQ(d106->GetName(), "AASHTO LRFD 2012");
    EXPECT_DOUBLE_EQ(d106->GetGammaULS(), 1.0);
    EXPECT_DOUBLE_EQ(d106->GetGammaPLS(), 1.0);
    EXPECT_DOUBLE_EQ(d106->GetEpslim(1), 0.003);

    // BS 5400 and BBK94.
    auto c104 = MakeDefaultConcrMat(104, 2);
    EXPECT_EQ(c104->GetName(), "fcu=50");
    EXPECT_DOUBLE_EQ(c104->GetFck(), 50000.0);
    EXPECT_DOUBLE_EQ(c104->GetRho(), 2300.0);
    auto d104 = MakeDefaultConcrDes(104, 2);
    EXPECT_EQ(d104->GetName(), "BS 5400 default values");
    EXPECT_DOUBLE_EQ(d104->GetGammaULS(), 1.5);
    EXPECT_DOUBLE_EQ(d104->GetGammaPLS(), 1.5);
    auto c103 = MakeDefaultConcrMat(103, 2);
    EXPECT_EQ(c103->GetName(), "K45");
    EXPECT_DOUBLE_EQ(c103->GetRho(), 2400.0);
    EXPECT_EQ(MakeDefaultConcrDes(103, 2)->GetName(), "BBK94 default values");
    EXPECT_DOUBLE_EQ(MakeDefaultConcrDes(103, 2)->GetGammaULS(), 1.5);

    // An unknown code gets the general concrete.
    auto c0 = MakeDefaultConcrMat(999, 2);
    EXPECT_EQ(c0->GetName(), "C45");
    EXPECT_DOUBLE_EQ(c0->GetRho(), 2200.0);
}

TEST(DefaultSets, BarsAndTendonsByCode) {
    struct Row {
        int code;
        const char* reinfName;
        double fsk;
        double gamma;
        const char* prestName;
        double fp;
        double ep;
    };
    const Row rows[] = {
        {101, "B500NC", 500e3, 1.25, "1670", 1670e3, 1.95e8},
        {102, "B500NC", 500e3, 1.25, "1670", 1670e3, 1.95e8},
        {103, "BBK94 default values", 500e3, 1.15, "BBK94 default values", 1670e3, 1.95e8},
        {104, "SD50", 490e3, 1.15, "fpu=1760", 1760e3, 2e8},
        {105, "B500NC", 520e3, 1.15, "fp01k=1640", 1640e3, 1.95e8},
        {106, "Grade 60", 520e3, 1.0, "Grade 270 (low relaxation)", 1670e3, 1.95e8},
        {999, "B500NC", 500e3, 1.25, "1640", 1640e3, 1.95e8},
    };
    for (const Row& r : rows) {
        SCOPED_TRACE(r.code);
        auto rm = MakeDefaultReinfMat(r.code, 2);
        EXPECT_EQ(rm->GetName(), r.reinfName);
        EXPECT_DOUBLE_EQ(rm->GetFsk(), r.fsk);
        EXPECT_DOUBLE_EQ(rm->GetEsk(), 2e8);
        auto pm = MakeDefaultPrestMat(r.code, 2);
        EXPECT_EQ(pm->GetName(), r.prestName);
        EXPECT_DOUBLE_EQ(pm->GetFsk(), r.fp);
        EXPECT_DOUBLE_EQ(pm->GetEsk(), r.ep);
        auto rd = MakeDefaultReinfDes(r.code, 2);
        auto pd = MakeDefaultPrestDes(r.code, 2);
        EXPECT_DOUBLE_EQ(rd->GetGammaULS(), r.gamma);
        EXPECT_DOUBLE_EQ(pd->GetGammaULS(), r.gamma);
        EXPECT_DOUBLE_EQ(rd->GetCover(), 55.0);
        EXPECT_DOUBLE_EQ(pd->GetCover(), 65.0);
        EXPECT_DOUBLE_EQ(DefaultReinfDesValue(r.code, 1), r.gamma);
        EXPECT_DOUBLE_EQ(DefaultPrestDesValue(r.code, 5), 1.15);
    }
    EXPECT_EQ(MakeDefaultReinfDes(105, 2)->GetName(), "NS-EN 1992 default values");
    EXPECT_EQ(MakeDefaultPrestDes(101, 1)->GetName(), "Standard verdier");
    EXPECT_EQ(MakeDefaultSectDes(104, 2)->GetName(), "BS 5400 default values");
    EXPECT_DOUBLE_EQ(DefaultSectDesValue(105, 20), 500.0);
    EXPECT_DOUBLE_EQ(DefaultConcrDesValue(105, 1), 1.5);
    EXPECT_DOUBLE_EQ(DefaultConcrDesValue(106, 4), 0.003);
    EXPECT_DOUBLE_EQ(DefaultConcrDesValue(105, 9), -1.0);
    EXPECT_TRUE(IsValueByCode(kValueByCode));
    EXPECT_FALSE(IsValueByCode(-1e+99));
}

TEST(DefaultSets, StructuralSteelByCode) {
    auto m201 = MakeDefaultSteelMat(201, 2);
    EXPECT_EQ(m201->GetName(), "ST37");
    EXPECT_DOUBLE_EQ(m201->GetFb(), 370000.0);
    EXPECT_DOUBLE_EQ(m201->GetFy(), 235000.0);
    auto m202 = MakeDefaultSteelMat(202, 2);
    EXPECT_EQ(m202->GetName(), "S235");
    EXPECT_DOUBLE_EQ(m202->GetFb(), 360000.0);
    EXPECT_DOUBLE_EQ(m202->GetFy(), 235000.0);
    EXPECT_DOUBLE_EQ(m202->GetRho(), 7850.0);

    auto d201 = MakeDefaultSteelDes(201, 2);
    auto d202 = MakeDefaultSteelDes(202, 1);
    EXPECT_EQ(d202->GetName(), "Standard verdier");
    EXPECT_DOUBLE_EQ(d201->GetGamma(1), 1.15);
    EXPECT_DOUBLE_EQ(d202->GetGamma(1), 1.1);
    for (int i = 2; i <= 4; ++i) {
        EXPECT_DOUBLE_EQ(d201->GetGamma(i), 1.0);
        EXPECT_DOUBLE_EQ(d202->GetGamma(i), 1.0);
    }
    EXPECT_DOUBLE_EQ(d202->GetEpslim(1), 0.012);
    EXPECT_DOUBLE_EQ(DefaultSteelDesValue(202, 1), 1.1);
}

TEST(DefaultSets, ReinforcementStepTable) {
    // Spacings 300, 250, 225, 200, 175, 150, 125, 100, 75, 50 (ten). Allowed per bar and bundle:
    //   d16 single (>= 50): 10   d16 pair (>= 75): 9
    //   d20 single (>= 50): 10   d20 pair (>= 75): 9
    //   d25 single (>= 75):  9   d25 pair (>= 100): 8
    //   d32 single (>= 100): 8   d32 pair (>= 125): 7
    // in all 70 by spacing (101..170) and 70 by area (201..270); by count 8 x 7 = 56 (1..56);
    // and the three empty ones of number 0.
    const auto types = MakeDefaultReinfTypeList();
    ASSERT_EQ(types.size(), 3u + 56u + 70u + 70u);
    std::map<int, int> perKind;
    std::map<int, const CReinfType*> byNo;
    for (size_t i = 0; i < types.size(); ++i) {
        const CReinfType* t = types[i].get();
        if (i < 3) {
            EXPECT_EQ(t->GetNo(), 0);
            EXPECT_EQ(t->GetType(), static_cast<int>(i) + 1);
            EXPECT_DOUBLE_EQ(t->GetDiameter(), 0.0);
            continue;
        }
        ++perKind[t->GetType()];
        EXPECT_TRUE(byNo.emplace(t->GetNo(), t).second) << "number twice: " << t->GetNo();
        const int lo = t->GetType() == 1 ? 1 : t->GetType() == 2 ? 101 : 201;
        const int hi = t->GetType() == 1 ? 56 : lo + 69;
        EXPECT_GE(t->GetNo(), lo);
        EXPECT_LE(t->GetNo(), hi);
    }
    EXPECT_EQ(perKind[1], 56);
    EXPECT_EQ(perKind[2], 70);
    EXPECT_EQ(perKind[3], 70);

    // Counts run 2..8 within each bar and bundle: 1..7 are d16 single, 50..56 d32 in pairs.
    EXPECT_EQ(byNo[1]->GetBundleCount(), 2);
    EXPECT_DOUBLE_EQ(byNo[7]->GetDiameter(), 16.0);
    EXPECT_EQ(byNo[7]->GetBundleCount(), 8);
    EXPECT_DOUBLE_EQ(byNo[8]->GetBarsPrBundle(), 2.0);
    EXPECT_DOUBLE_EQ(byNo[50]->GetDiameter(), 32.0);
    EXPECT_DOUBLE_EQ(byNo[50]->GetBarsPrBundle(), 2.0);
    EXPECT_EQ(byNo[50]->GetBundleCount(), 2);
    EXPECT_DOUBLE_EQ(byNo[50]->GetValue(), 2.0);

    // Running number: d16 single 1..10, d16 pair 11..19, d20 single 20..29, d20 pair 30..38,
    // d25 single 39..47, d25 pair 48..55 (300 down to 100), d32 single 56..63, d32 pair 64..70.
    EXPECT_DOUBLE_EQ(byNo[101]->GetSpacing(), 300.0);
    EXPECT_DOUBLE_EQ(byNo[110]->GetSpacing(), 50.0);
    EXPECT_DOUBLE_EQ(byNo[111]->GetSpacing(), 300.0);
    EXPECT_DOUBLE_EQ(byNo[119]->GetSpacing(), 75.0);
    EXPECT_DOUBLE_EQ(byNo[170]->GetSpacing(), 125.0);
    EXPECT_DOUBLE_EQ(byNo[170]->GetDiameter(), 32.0);
    EXPECT_DOUBLE_EQ(byNo[170]->GetValue(), 125.0);

    // 255 is d25 in pairs at 100 mm: one pair is 2 * pi * 25² / 4 = 981.748 mm², ten pairs a
    // metre: 9817.48 mm²/m.
    const CReinfType* a = byNo[255];
    EXPECT_EQ(a->GetType(), 3);
    EXPECT_DOUBLE_EQ(a->GetDiameter(), 25.0);
    EXPECT_DOUBLE_EQ(a->GetBarsPrBundle(), 2.0);
    EXPECT_DOUBLE_EQ(a->GetSpacing(), 100.0);
    EXPECT_NEAR(a->GetArea(), 9817.477, 1e-3);
    EXPECT_NEAR(a->GetValue(), 9817.477, 1e-3);
    // 201, d16 single at 300: 201.062 mm² * 1000 / 300 = 670.206 mm²/m.
    EXPECT_NEAR(byNo[201]->GetArea(), 670.206, 1e-3);
    EXPECT_TRUE(byNo[155]->IsAllDataEqual(byNo[155]));
    EXPECT_FALSE(byNo[155]->IsAllDataEqual(byNo[255]));
    EXPECT_EQ(byNo[155]->GetDescription(), "2d25 c/c 100");
}

TEST(DefaultSets, StirrupStepTable) {
    // Stirrups of 8 to 16 mm: single need 50 mm (10 spacings), pairs 75 mm (9 spacings);
    // 4 x (10 + 9) = 76 types numbered 1..76 after the empty number 0.
    const auto types = MakeDefaultShearReinfTypeList();
    ASSERT_EQ(types.size(), 77u);
    EXPECT_EQ(types[0]->GetNo(), 0);
    EXPECT_EQ(types[0]->GetType(), 2);
    std::set<int> numbers;
    for (size_t i = 1; i < types.size(); ++i) {
        EXPECT_EQ(types[i]->GetType(), 2);
        numbers.insert(types[i]->GetNo());
        if (types[i]->GetBarsPrBundle() == 2.0) {
            EXPECT_GE(types[i]->GetSpacing(), 75.0);
        }
    }
    EXPECT_EQ(numbers.size(), 76u);
    EXPECT_EQ(*numbers.begin(), 1);
    EXPECT_EQ(*numbers.rbegin(), 76);
    // 19 per diameter: the last (76) is a pair of 16 at 75 mm, 10 a single 8 at 50 mm.
    EXPECT_DOUBLE_EQ(types[76]->GetDiameter(), 16.0);
    EXPECT_DOUBLE_EQ(types[76]->GetSpacing(), 75.0);
    EXPECT_DOUBLE_EQ(types[10]->GetDiameter(), 8.0);
    EXPECT_DOUBLE_EQ(types[10]->GetSpacing(), 50.0);
}
