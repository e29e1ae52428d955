#include "command/Expression.h"
#include "command/AliasTable.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdint>
#include <limits>
#include <numbers>
#include <string>

using namespace kelo;

namespace {

// Evaluates a field and answers NaN when it is refused, so that tests read as equations.
double Eval(const std::string& text, const CAliasTable& aliases) {
    double v = -12345.0;
    if (!GetNumber(text, v, aliases)) return std::numeric_limits<double>::quiet_NaN();
    return v;
}

double Eval(const std::string& text) {
    static const CAliasTable aliases;
    return Eval(text, aliases);
}

bool Refused(const std::string& text) {
    const CAliasTable aliases;
    double v = -1.0;
    const int ok = GetNumber(text, v, aliases);
    return ok == 0 && v == 0.0;
}

std::string Repeat(const std::string& s, int n) {
    std::string out;
    for (int i = 0; i < n; ++i) out += s;
    return out;
}

} // namespace

TEST(Expression, IsNumberLooksOnlyAtCharacters) {
    EXPECT_EQ(IsNumber("12"), 1);
    EXPECT_EQ(IsNumber("-3.5"), 1);
    EXPECT_EQ(IsNumber("+.5"), 1);
    EXPECT_EQ(IsNumber("1.2.3"), 1);
    EXPECT_EQ(IsNumber("2e3-1"), 1);
    EXPECT_EQ(IsNumber("1E-3"), 1);
    EXPECT_EQ(IsNumber("E5"), 1);
    EXPECT_EQ(IsNumber("-"), 1);

    EXPECT_EQ(IsNumber(""), 0);
    EXPECT_EQ(IsNumber("1e"), 0);
    EXPECT_EQ(IsNumber("1e5e3"), 0);
    EXPECT_EQ(IsNumber("5-2"), 0);
    EXPECT_EQ(IsNumber("1+"), 0);
    EXPECT_EQ(IsNumber("1e-3*2"), 0);
    EXPECT_EQ(IsNumber("1 2"), 0);
    EXPECT_EQ(IsNumber(std::string("1\0", 2)), 0);
}

TEST(Expression, IsValidExpressionRefusesDoubleSignsAndUnevenParentheses) {
    EXPECT_EQ(IsValidExpression("1+2"), 1);
    EXPECT_EQ(IsValidExpression("2*-3"), 1);
    EXPECT_EQ(IsValidExpression("(1)"), 1);
    EXPECT_EQ(IsValidExpression(")("), 1);
    EXPECT_EQ(IsValidExpression(""), 1);
    for (const char* bad : {"1++2", "1--2", "1+-2", "1-+2", "(1", "1)", "((1)"})
        EXPECT_EQ(IsValidExpression(bad), 0) << bad;
}

TEST(Expression, PlainNumbersReadAsWithAScan) {
    EXPECT_EQ(Eval("12"), 12.0);
    EXPECT_EQ(Eval("-3.5"), -3.5);
    EXPECT_EQ(Eval("1e5"), 100000.0);
    EXPECT_EQ(Eval("2.5E-2"), 0.025);
    // Only the leading number counts once the token passes as a number.
    EXPECT_EQ(Eval("1.2.3"), 1.2);
    EXPECT_EQ(Eval("2e3-1"), 2000.0);
    EXPECT_EQ(Eval("1e5+3"), 100000.0);
    // Number-like tokens with nothing to read are 0, and no failure.
    EXPECT_EQ(Eval("-"), 0.0);
    EXPECT_EQ(Eval("."), 0.0);
    EXPECT_EQ(Eval("E5"), 0.0);
    EXPECT_EQ(Eval(""), 0.0);
}

TEST(Expression, OperatorsPrecedenceAndAssociativity) {
    EXPECT_EQ(Eval("2*(3+4)"), 14.0);
    EXPECT_EQ(Eval("2+3*4"), 14.0);
    EXPECT_EQ(Eval("2*3+4"), 10.0);
    EXPECT_EQ(Eval("10-2-3"), 5.0);
    EXPECT_EQ(Eval("12/2/3"), 2.0);
    EXPECT_EQ(Eval("2*3/4"), 1.5);
    EXPECT_EQ(Eval("1+2*3-8/4"), 5.0);
    EXPECT_EQ(Eval("2*3^2"), 18.0);
    EXPECT_EQ(Eval("2^3*2"), 16.0);
    EXPECT_EQ(Eval("2^3^2"), 512.0);
    EXPECT_EQ(Eval("4^0.5"), 2.0);
    EXPECT_EQ(Eval("(1+2)*(3+4)"), 21.0);
    EXPECT_EQ(Eval("((2))"), 2.0);
    EXPECT_EQ(Eval("2*(3+(4-1)*2)"), 18.0);
    EXPECT_EQ(Eval("3-(2-1)"), 2.0);
}

TEST(Expression, SignsInFrontOfOperands) {
    EXPECT_EQ(Eval("2*-3"), -6.0);
    EXPECT_EQ(Eval("-3*2"), -6.0);
    EXPECT_EQ(Eval("2/-4"), -0.5);
    EXPECT_EQ(Eval("2*-3*-4"), 24.0);
    EXPECT_EQ(Eval("1+2*-3"), -5.0);
    EXPECT_EQ(Eval("-(2+3)"), -5.0);
    EXPECT_EQ(Eval("+4*2"), 8.0);
    // A sign after "^" ends the exponent empty: 2^0 - 1.
    EXPECT_EQ(Eval("2^-1"), 0.0);
    // The right operand of "*" ends at a sign that is not its own: 2*3e - 2 = 0 - 2.
    EXPECT_EQ(Eval("2*3e-2"), -2.0);
    // Inside an expression 1e-3 is cut at its sign: the word "1e" is 0, then 0 - 3*2.
    EXPECT_EQ(Eval("1e-3*2"), -6.0);
}

TEST(Expression, DegenerateOperators) {
    EXPECT_TRUE(Refused("2**3"));
    EXPECT_TRUE(Refused("2*/3"));
    EXPECT_TRUE(Refused("2//3"));
    EXPECT_TRUE(Refused("1++2"));
    EXPECT_TRUE(Refused("1-+2"));
    EXPECT_TRUE(Refused("(1+2"));
    // An operand left empty is 0.
    EXPECT_EQ(Eval("2*"), 0.0);
    EXPECT_EQ(Eval("5+"), 5.0);
    EXPECT_EQ(Eval("*5"), 0.0);
    EXPECT_EQ(Eval("()"), 0.0);
    EXPECT_EQ(Eval("2^"), 1.0);

    const double inf = Eval("1/0");
    EXPECT_TRUE(std::isinf(inf) && inf > 0);
    const double minusInf = Eval("-1/0");
    EXPECT_TRUE(std::isinf(minusInf) && minusInf < 0);
}

TEST(Expression, FunctionsWorkInDegrees) {
    // sin 30 deg = 1/2, cos 60 deg = 1/2, tan 45 deg = 1; the constant 3.14159265359 differs
    // from pi by 2e-13, far below the tolerance.
    const double tol = 1e-9;
    EXPECT_NEAR(Eval("sin(90)"), 1.0, tol);
    EXPECT_NEAR(Eval("sin(30)"), 0.5, tol);
    EXPECT_NEAR(Eval("cos(60)"), 0.5, tol);
    EXPECT_NEAR(Eval("tan(45)"), 1.0, tol);
    EXPECT_NEAR(Eval("asin(0.5)"), 30.0, tol);
    EXPECT_NEAR(Eval("acos(0.5)"), 60.0, tol);
    EXPECT_NEAR(Eval("atan(1)"), 45.0, tol);
    EXPECT_NEAR(Eval("atan(sqrt(3))"), 60.0, tol);
    EXPECT_EQ(Eval("sqrt(16)"), 4.0);
    EXPECT_EQ(Eval("sqr(3)"), 9.0);
    EXPECT_EQ(Eval("SQR(3)"), 9.0);
    EXPECT_NEAR(Eval("Sin(30)*4"), 2.0, tol);
    EXPECT_EQ(Eval("2*sqrt(9)+1"), 7.0);
    EXPECT_EQ(Eval("sqr(1+2)^2"), 81.0);
    // The constant is the 12-digit 3.14159265359, not the double nearest pi: sin(180) is then
    // sin(pi - d) = d with d = pi - 3.14159265359 = -2.07e-13.
    EXPECT_NEAR(Eval("sin(180)"), std::numbers::pi - 3.14159265359, 1e-15);
    // An unknown function name is dropped.
    EXPECT_EQ(Eval("foo(3)"), 3.0);
    EXPECT_EQ(Eval("2*foo(3+1)"), 8.0);
}

TEST(Expression, AliasesInFieldsAndExpressions) {
    CAliasTable aliases;
    aliases.AddUserAlias(5.0, "X");
    aliases.AddUserAlias(2.0, "span_1");
    aliases.AddUserAlias(7.0, "E5");
    aliases.AddUserAlias(3.0, "A+B");

    EXPECT_EQ(Eval("X", aliases), 5.0);
    EXPECT_EQ(Eval("x", aliases), 5.0);
    EXPECT_EQ(Eval("X+1", aliases), 6.0);
    EXPECT_EQ(Eval("2*x-SPAN_1", aliases), 8.0);
    EXPECT_EQ(Eval("(X+SPAN_1)*X", aliases), 35.0);
    EXPECT_EQ(Eval("X^SPAN_1", aliases), 25.0);
    EXPECT_EQ(Eval("sqr(X)", aliases), 25.0);
    // Reserved words take part like any other name.
    EXPECT_EQ(Eval("S355", aliases), 10203.0);
    EXPECT_EQ(Eval("n/a", aliases), 0.0);
    EXPECT_EQ(Eval("ULS+SLS", aliases), 4.0);
    // A whole field is looked up before it is taken apart.
    EXPECT_EQ(Eval("a+b", aliases), 3.0);
    // A name that looks like a number is read as one.
    EXPECT_EQ(Eval("E5", aliases), 0.0);
    // 1e-3 is cut at its sign: X + 1e - 3, with "1e" read as 0.
    EXPECT_EQ(Eval("X+1e-3", aliases), 2.0);
    // A misspelt name reads as 0 and is no failure.
    EXPECT_EQ(Eval("Y", aliases), 0.0);
    EXPECT_EQ(Eval("XX+1", aliases), 1.0);
    EXPECT_EQ(Eval("X Y", aliases), 0.0);
}

TEST(Expression, HostileTextNeverCrashes) {
    // Nesting up to the limit works, past it the field is refused.
    EXPECT_EQ(Eval(Repeat("(", 100) + "7" + Repeat(")", 100)), 7.0);
    EXPECT_TRUE(Refused(Repeat("(", 5000) + "1" + Repeat(")", 5000)));
    EXPECT_TRUE(Refused(Repeat("2^", 1000) + "1"));
    EXPECT_TRUE(Refused(Repeat("sin(", 3000) + "1" + Repeat(")", 3000)));

    // Long flat expressions evaluate in one pass: 1 + 1 + ... over 200,000 terms.
    EXPECT_EQ(Eval("1" + Repeat("+1", 199999)), 200000.0);
    EXPECT_EQ(Eval("1" + Repeat("*1", 200000)), 1.0);
    EXPECT_TRUE(std::isinf(Eval(std::string(100000, '9'))));
    EXPECT_EQ(Eval(std::string(200000, 'z')), 0.0);

    // Parentheses in the wrong order balance in number but have no match.
    EXPECT_TRUE(Refused(")("));
    EXPECT_TRUE(Refused("1)+(2"));
    EXPECT_TRUE(Refused("x)("));

    // An embedded NUL is an ordinary character of a name: "1\0" is an unknown word, 0.
    EXPECT_EQ(Eval(std::string("1\0+2", 4)), 2.0);
    EXPECT_EQ(Eval(std::string("\0", 1)), 0.0);

    // Random text over the characters that matter: every field is answered, none crashes.
    const std::string chars("()+-*/^eE.019 xsinqrtQ\t\0", 24);
    const CAliasTable aliases;
    std::uint32_t seed = 12345u;
    int answered = 0;
    for (int n = 0; n < 20000; ++n) {
        std::string text;
        const int length = 1 + n % 40;
        for (int k = 0; k < length; ++k) {
            seed = seed * 1664525u + 1013904223u;
            text += chars[(seed >> 16) % chars.size()];
        }
        double v = 0.0;
        const int ok = GetNumber(text, v, aliases);
        if (ok == 1) ++answered;
        ASSERT_TRUE(ok == 0 || ok == 1) << text;
        if (ok == 0) {
            ASSERT_EQ(v, 0.0) << text;
        }
    }
    EXPECT_GT(answered, 0);
}
