#include "command/AliasTable.h"

#include <gtest/gtest.h>

#include <string>

using namespace kelo;

TEST(AliasTable, ReservedWordsAndTheirValues) {
    const CAliasTable aliases;
    // 174 entries as written, of which CALC and BEAM come twice: 172 distinct names.
    EXPECT_EQ(aliases.GetReservedCount(), 172u);

    double v = 0.0;
    // A name entered twice keeps its later value.
    ASSERT_EQ(aliases.GetAlias("CALC", v), 1);
    EXPECT_EQ(v, 0.0);
    ASSERT_EQ(aliases.GetAlias("BEAM", v), 1);
    EXPECT_EQ(v, 2.0);

    const struct {
        const char* name;
        double value;
    } samples[] = {{"NS_EN_1992", 105}, {"NS_EN_1998", 301}, {"N/A", 0},      {"ALL", -1},
                   {"COPY", -10},       {"LTE", 4},          {"GTE", 5},      {"LATBUCKL", 8},
                   {"RAD", -1},         {"C65", -1065},      {"B500", -2500}, {"SDYNW", 13},
                   {"T", 1002},         {"WBOX", 1005},      {"TUBE_E", 141}, {"BUMODEL", 4},
                   {"S460M", 10404},    {"ST37", 10101},     {"MSPRMTX", 22}, {"APPEND", 1}};
    for (const auto& s : samples) {
        ASSERT_EQ(aliases.GetAlias(s.name, v), 1) << s.name;
        EXPECT_EQ(v, s.value) << s.name;
        EXPECT_EQ(aliases.IsReservedAlias(s.name), 1) << s.name;
    }

    EXPECT_EQ(aliases.IsReservedAlias("uls"), 1);
    EXPECT_EQ(aliases.IsReservedAlias("SPAN"), 0);
    // The function names of expressions are no aliases.
    EXPECT_EQ(aliases.IsReservedAlias("SIN"), 0);
}

TEST(AliasTable, UnknownNameAnswersZeroWithSentinel) {
    const CAliasTable aliases;
    double v = 3.0;
    EXPECT_EQ(aliases.GetAlias("NOSUCHNAME", v), 0);
    EXPECT_EQ(v, -1e100);
    EXPECT_EQ(aliases.GetAlias("", v), 0);
}

TEST(AliasTable, NamesAreUpperCasedAndReplaced) {
    CAliasTable aliases;
    EXPECT_EQ(aliases.AddUserAlias(2.5, "span"), 0);
    double v = 0.0;
    ASSERT_EQ(aliases.GetAlias("SPAN", v), 1);
    EXPECT_EQ(v, 2.5);
    ASSERT_EQ(aliases.GetAlias("Span", v), 1);
    EXPECT_EQ(v, 2.5);

    aliases.AddUserAlias(7.0, "SpAn");
    ASSERT_EQ(aliases.GetAlias("span", v), 1);
    EXPECT_EQ(v, 7.0);
    ASSERT_EQ(aliases.GetUserAliases().size(), 1u);
}

TEST(AliasTable, LookupOrderReservedUserTemporaryProfile) {
    CAliasTable aliases;
    double v = 0.0;

    // A definition cannot hide a reserved word.
    aliases.AddUserAlias(99.0, "ON");
    ASSERT_EQ(aliases.GetAlias("ON", v), 1);
    EXPECT_EQ(v, 1.0);

    // A loop variable of the same name as a definition is not seen.
    aliases.AddTempAlias(3.0, "i");
    aliases.AddUserAlias(9.0, "I");
    ASSERT_EQ(aliases.GetAlias("I", v), 1);
    EXPECT_EQ(v, 9.0);
    aliases.EmptyUserAlias();
    ASSERT_EQ(aliases.GetAlias("I", v), 1);
    EXPECT_EQ(v, 3.0);

    aliases.AddProfAlias(5.0, "HEB300");
    aliases.AddProfAlias(6.0, "I");
    ASSERT_EQ(aliases.GetAlias("i", v), 1);
    EXPECT_EQ(v, 3.0);
    aliases.EmptyTempAlias();
    ASSERT_EQ(aliases.GetAlias("i", v), 1);
    EXPECT_EQ(v, 6.0);
    ASSERT_EQ(aliases.GetAlias("heb300", v), 1);
    EXPECT_EQ(v, 5.0);

    aliases.EmptyProfAlias();
    EXPECT_EQ(aliases.GetAlias("HEB300", v), 0);
    // Emptying the other tables leaves the reserved words.
    EXPECT_EQ(aliases.GetAlias("ULS", v), 1);
    EXPECT_EQ(aliases.GetReservedCount(), 172u);
}

TEST(AliasTable, UserAliasesListSortedByName) {
    CAliasTable aliases;
    aliases.AddUserAlias(3.0, "c");
    aliases.AddUserAlias(1.0, "A");
    aliases.AddUserAlias(2.0, "b2");
    aliases.AddTempAlias(4.0, "LOOP");
    const auto list = aliases.GetUserAliases();
    ASSERT_EQ(list.size(), 3u);
    EXPECT_EQ(list[0].first, "A");
    EXPECT_EQ(list[1].first, "B2");
    EXPECT_EQ(list[2].first, "C");
    EXPECT_EQ(list[1].second, 2.0);
    aliases.EmptyUserAlias();
    EXPECT_TRUE(aliases.GetUserAliases().empty());
}
