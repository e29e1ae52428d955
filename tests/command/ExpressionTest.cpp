#include "command/Expression.h"
#include "command/AliasTable.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdint>
#include <limits>
#include <numbers>
#include <string>
#include <utility>
#include <vector>

using namespace kelo;

namespace {

// Evaluates a field; a refused field reads as NaN so that the cases below are plain equations.
double Eval(const std::string& text, const CAliasTable& aliases) {
    double v = -12345.0;
    if (!GetNumber(text, v, aliases)) return std::numeric_limits<double>::quiet_NaN();
    return v;
}

double Eval(const std::string& text) { return Eval(text, CAliasTable()); }

bool Refused(const std::string& text) {
    double v = -1.0;
    return GetNumber(text, v, CAliasTable()) == 0 && v == 0.0;
}

std::string Repeat(const std::string& s, int n) {
    std::string out;
    for (int i = 0; i < n; ++i) out += s;
    return out;
}

void ExpectValues(const std::vector<std::pair<const char*, double>>& cases) {
    for (const auto& [text, value] : cases) EXPECT_EQ(Eval(text), value) << text;
}

} // namespace

TEST(Expression, NumberAndValidityTestsLookOnlyAtCharacters) {
    for (const char* yes : {"12", "-3.5", "+.5", "1.2.3", "2e3-1", "1E-3", "E5", "-"})
        EXPECT_EQ(IsNumber(yes), 1) << yes;
    for (const char* no : {"", "1e", "1e5e3", "5-2", "1+", "1e-3*2", "1 2"})
        EXPECT_EQ(IsNumber(no), 0) << no;
    EXPECT_EQ(IsNumber(std::string("1\0", 2)), 0);

    for (const char* yes : {"1+2", "2*-3", "(1)", ")(", ""})
        EXPECT_EQ(IsValidExpression(yes), 1) << yes;
    for (const char* no : {"1++2", "1--2", "1+-2", "1-+2", "(1", "((1)"})
        EXPECT_EQ(IsValidExpression(no), 0) << no;
}

TEST(Expression, PlainNumbersReadAsWithAScan) {
    // Once a token passes as a number only its leading number counts; number-like tokens with
    // nothing to read are 0 and no failure.
    ExpectValues({{"12", 12},
                  {"-3.5", -3.5},
                  {"2.5E-2", 0.025},
                  {"1.2.3", 1.2},
                  {"2e3-1", 2000},
                  {"1e5+3", 1e5},
                  {"1e+", 1},
                  {"-", 0},
                  {"E5", 0},
                  {".", 0},
                  {"", 0}});
    EXPECT_TRUE(std::isinf(Eval(std::string(100000, '9'))));
}

TEST(Expression, OperatorsPrecedenceAndSigns) {
    ExpectValues({{"2*(3+4)", 14},
                  {"2+3*4", 14},
                  {"10-2-3", 5},
                  {"12/2/3", 2},
                  {"1+2*3-8/4", 5},
                  {"2*3^2", 18},
                  {"2^3*2", 16},
                  {"2^3^2", 512},
                  {"4^0.5", 2},
                  {"2*(3+(4-1)*2)", 18},
                  {"3-(2-1)", 2},
                  {"((2))", 2},
                  {"2*-3", -6},
                  {"-3*2", -6},
                  {"2/-4", -0.5},
                  {"2*-3*-4", 24},
                  {"1+2*-3", -5},
                  {"-(2+3)", -5},
                  {"+4*2", 8}});
    // A sign after "^" ends the exponent empty: 2^0 - 1.
    EXPECT_EQ(Eval("2^-1"), 0.0);
    // Inside an expression a number's exponent is cut at its sign: "3e" and "1e" read as 0.
    EXPECT_EQ(Eval("2*3e-2"), -2.0);
    EXPECT_EQ(Eval("1e-3*2"), -6.0);
    // Empty operands are 0; division by zero is no error.
    ExpectValues({{"2*", 0}, {"5+", 5}, {"*5", 0}, {"()", 0}, {"2^", 1}});
    EXPECT_EQ(Eval("1/0"), std::numeric_limits<double>::infinity());
    EXPECT_EQ(Eval("-1/0"), -std::numeric_limits<double>::infinity());
    for (const char* bad : {"2**3", "2*/3", "2//3", "1++2", "(1+2", ")(", "1)+(2"})
        EXPECT_TRUE(Refused(bad)) << bad;
}

TEST(Expression, FunctionsWorkInDegrees) {
    const double tol = 1e-9;
    EXPECT_NEAR(Eval("sin(90)"), 1.0, tol);
    EXPECT_NEAR(Eval("Sin(30)*4"), 2.0, tol);
    EXPECT_NEAR(Eval("cos(60)"), 0.5, tol);
    EXPECT_NEAR(Eval("tan(45)"), 1.0, tol);
    EXPECT_NEAR(Eval("asin(0.5)"), 30.0, tol);
    EXPECT_NEAR(Eval("acos(0.5)"), 60.0, tol);
    EXPECT_NEAR(Eval("atan(sqrt(3))"), 60.0, tol);
    // The angle constant is 3.14159265359, not the double nearest pi: sin(180) is then
    // sin(pi - d) = d with d = pi - 3.14159265359 = -2.07e-13.
    EXPECT_NEAR(Eval("sin(180)"), std::numbers::pi - 3.14159265359, 1e-15);
    // An unknown function name is dropped.
    ExpectValues({{"sqrt(16)", 4},
                  {"SQR(3)", 9},
                  {"2*sqrt(9)+1", 7},
                  {"sqr(1+2)^2", 81},
                  {"foo(3)", 3},
                  {"2*foo(3+1)", 8}});
}

TEST(Expression, AliasesInFieldsAndExpressions) {
    CAliasTable aliases;
    aliases.AddUserAlias(5.0, "X");
    aliases.AddUserAlias(2.0, "span_1");
    aliases.AddUserAlias(7.0, "E5");
    aliases.AddUserAlias(3.0, "A+B");
    const std::pair<const char*, double> cases[] = {
        {"x", 5},
        {"X+1", 6},
        {"2*x-SPAN_1", 8},
        {"(X+SPAN_1)*X", 35},
        {"X^SPAN_1", 25},
        {"sqr(X)", 25},
        {"S355", 10203},
        {"n/a", 0},
        {"ULS+SLS", 4},
        // The whole field is looked up before it is taken apart.
        {"a+b", 3},
        // A name that looks like a number is read as one.
        {"E5", 0},
        // X + 1e - 3, with "1e" read as 0.
        {"X+1e-3", 2},
        // Misspelt names read as 0 and do not fail.
        {"Y", 0},
        {"XX+1", 1},
        {"X Y", 0}};
    for (const auto& [text, value] : cases) EXPECT_EQ(Eval(text, aliases), value) << text;
}

TEST(Expression, HostileTextNeverCrashes) {
    EXPECT_EQ(Eval(Repeat("(", 100) + "7" + Repeat(")", 100)), 7.0);
    EXPECT_TRUE(Refused(Repeat("(", 5000) + "1" + Repeat(")", 5000)));
    EXPECT_TRUE(Refused(Repeat("2^", 1000) + "1"));
    EXPECT_TRUE(Refused(Repeat("sin(", 3000) + "1" + Repeat(")", 3000)));
    EXPECT_EQ(Eval("1" + Repeat("+1", 199999)), 200000.0);
    EXPECT_EQ(Eval(std::string(200000, 'z')), 0.0);
    // An embedded NUL is an ordinary character of a name: "1\0" is an unknown word, 0.
    EXPECT_EQ(Eval(std::string("1\0+2", 4)), 2.0);

    // Random text over the characters that matter: every field is answered, a refusal with 0.
    const std::string chars("()+-*/^eE.019 xsinqrtQ\t\0", 24);
    const CAliasTable aliases;
    std::uint32_t seed = 12345u;
    int answered = 0;
    for (int n = 0; n < 20000; ++n) {
        std::string text;
        for (int k = 0; k < 1 + n % 40; ++k) {
            seed = seed * 1664525u + 1013904223u;
            text += chars[(seed >> 16) % chars.size()];
        }
        double v = 0.0;
        const int ok = GetNumber(text, v, aliases);
        answered += ok;
        ASSERT_TRUE(ok == 1 || (ok == 0 && v == 0.0)) << text;
    }
    EXPECT_GT(answered, 0);
}
