#include "command/AliasTable.h"

#include <gtest/gtest.h>

using namespace kelo;

TEST(AliasTable, ReservedWordsAndTheirValues) {
    const CAliasTable aliases;
    // 174 entries as written, of which CALC and BEAM come twice: 172 distinct names.
    EXPECT_EQ(aliases.GetReservedCount(), 172u);
    const struct {
        const char* name;
        double value;
    } samples[] = {{"CALC", 0},      {"BEAM", 2},     {"NS_EN_1998", 301}, {"N/A", 0},
                   {"all", -1},      {"COPY", -10},   {"LTE", 4},          {"RAD", -1},
                   {"C65", -1065},   {"B500", -2500}, {"T", 1002},         {"TUBE_E", 141},
                   {"S460M", 10404}, {"MSPRMTX", 22}};
    for (const auto& s : samples) {
        double v = 0.0;
        ASSERT_EQ(aliases.GetAlias(s.name, v), 1) << s.name;
        EXPECT_EQ(v, s.value) << s.name;
        EXPECT_EQ(aliases.IsReservedAlias(s.name), 1) << s.name;
    }
    EXPECT_EQ(aliases.IsReservedAlias("SIN"), 0);

    double v = 3.0;
    EXPECT_EQ(aliases.GetAlias("NOSUCHNAME", v), 0);
    EXPECT_EQ(v, -1e100);
}

TEST(AliasTable, LookupOrderReservedUserTemporaryProfile) {
    CAliasTable aliases;
    double v = 0.0;
    // A definition can neither hide a reserved word nor be hidden by a loop variable.
    aliases.AddUserAlias(99.0, "on");
    aliases.AddTempAlias(3.0, "i");
    aliases.AddUserAlias(9.0, "I");
    aliases.AddProfAlias(6.0, "I");
    EXPECT_TRUE(aliases.GetAlias("ON", v) == 1 && v == 1.0);
    EXPECT_TRUE(aliases.GetAlias("i", v) == 1 && v == 9.0);
    aliases.EmptyUserAlias();
    EXPECT_TRUE(aliases.GetAlias("i", v) == 1 && v == 3.0);
    aliases.EmptyTempAlias();
    EXPECT_TRUE(aliases.GetAlias("i", v) == 1 && v == 6.0);
    aliases.EmptyProfAlias();
    EXPECT_EQ(aliases.GetAlias("I", v), 0);
    EXPECT_EQ(aliases.GetReservedCount(), 172u);
}

TEST(AliasTable, UserNamesUpperCasedReplacedAndListedSorted) {
    CAliasTable aliases;
    EXPECT_EQ(aliases.AddUserAlias(3.0, "c"), 0);
    aliases.AddUserAlias(1.0, "Span");
    aliases.AddUserAlias(2.0, "b2");
    aliases.AddUserAlias(7.0, "SPAN");
    aliases.AddTempAlias(4.0, "LOOP");
    const auto list = aliases.GetUserAliases();
    ASSERT_EQ(list.size(), 3u);
    EXPECT_EQ(list[0], (std::pair<std::string, double>("B2", 2.0)));
    EXPECT_EQ(list[1], (std::pair<std::string, double>("C", 3.0)));
    EXPECT_EQ(list[2], (std::pair<std::string, double>("SPAN", 7.0)));
}
