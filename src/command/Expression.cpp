#include "command/Expression.h"

#include "command/AliasTable.h"

#include <cmath>
#include <cstddef>
#include <cstdio>
#include <string_view>

namespace kelo {

namespace {

// Nesting of parentheses and chained powers recurses once per level. No command file comes near
// this; past it a field is refused instead of running the stack out on hostile text.
constexpr int kMaxDepth = 256;

// The value of pi the trigonometric functions have always used; results of existing command
// files depend on it, so it is not the full double precision value.
constexpr double kPi = 3.14159265359;

constexpr std::size_t kNone = std::string_view::npos;

bool IsSign(char c) { return c == '+' || c == '-'; }
bool IsProductOperator(char c) { return c == '*' || c == '/'; }

bool IsNumberText(std::string_view t) {
    if (t.empty()) return false;
    int exponents = 0;
    for (const char c : t) {
        if (c == 'e' || c == 'E') {
            if (++exponents > 1) return false;
        } else if (!((c >= '0' && c <= '9') || c == '.' || IsSign(c))) {
            return false;
        }
    }
    if (exponents == 1) return t.back() != 'e' && t.back() != 'E';
    return t.find_first_of("+-", 1) == kNone;
}

bool IsValidText(std::string_view t) {
    long balance = 0;
    for (std::size_t i = 0; i < t.size(); ++i) {
        if (t[i] == '(') ++balance;
        if (t[i] == ')') --balance;
        if (i > 0 && IsSign(t[i - 1]) && IsSign(t[i])) return false;
    }
    return balance == 0;
}

// Reads the leading number of the text the way a "%lf" scan does: "1.2.3" gives 1.2, "2e3-1"
// gives 2000, and a text with no digits to read ("-", ".", "e5") leaves 0.
double ScanNumber(std::string_view t) {
    const std::string text(t);
    double value = 0.0;
    if (std::sscanf(text.c_str(), "%lf", &value) != 1) value = 0.0;
    return value;
}

bool EqualsNoCase(std::string_view a, std::string_view b) {
    if (a.size() != b.size()) return false;
    for (std::size_t i = 0; i < a.size(); ++i) {
        char c = a[i];
        if (c >= 'A' && c <= 'Z') c = static_cast<char>(c - 'A' + 'a');
        if (c != b[i]) return false;
    }
    return true;
}

// A word directly in front of a parenthesis names a function of its contents; angles are in
// degrees. Any other word is dropped and the parenthesis stands for its contents alone.
double ApplyFunction(std::string_view word, double x) {
    if (EqualsNoCase(word, "sin")) return std::sin(x * kPi / 180.0);
    if (EqualsNoCase(word, "cos")) return std::cos(x * kPi / 180.0);
    if (EqualsNoCase(word, "tan")) return std::tan(x * kPi / 180.0);
    if (EqualsNoCase(word, "asin")) return std::asin(x) * 180.0 / kPi;
    if (EqualsNoCase(word, "acos")) return std::acos(x) * 180.0 / kPi;
    if (EqualsNoCase(word, "atan")) return std::atan(x) * 180.0 / kPi;
    if (EqualsNoCase(word, "sqrt")) return std::sqrt(x);
    if (EqualsNoCase(word, "sqr")) return x * x;
    return x;
}

std::size_t MatchingParenthesis(std::string_view t, std::size_t open) {
    long depth = 0;
    for (std::size_t i = open; i < t.size(); ++i) {
        if (t[i] == '(') ++depth;
        if (t[i] == ')' && --depth == 0) return i;
    }
    return kNone;
}

// The operand scans below look for their end only outside parentheses.
void Nest(char c, long& depth) {
    if (c == '(') ++depth;
    if (c == ')') --depth;
}

// Right operand of "^": up to the first of "+-*/". A sign straight after "^" thus ends it empty.
std::size_t PowerOperandEnd(std::string_view t, std::size_t start) {
    long depth = 0;
    for (std::size_t i = start; i < t.size(); ++i) {
        Nest(t[i], depth);
        if (depth == 0 && (IsSign(t[i]) || IsProductOperator(t[i]))) return i;
    }
    return t.size();
}

// Right operand of "*" or "/": up to the next "*" or "/", or the first sign that is not the
// operand's own leading sign, so that 2*-3 multiplies by -3.
std::size_t ProductOperandEnd(std::string_view t, std::size_t start) {
    long depth = 0;
    for (std::size_t i = start; i < t.size(); ++i) {
        Nest(t[i], depth);
        if (depth != 0) continue;
        if (IsProductOperator(t[i]) || (IsSign(t[i]) && i != start)) return i;
    }
    return t.size();
}

// Right operand of "+" or "-": up to the next sign that does not stand directly behind "*" or
// "/", so that products and powers are evaluated first.
std::size_t SumOperandEnd(std::string_view t, std::size_t start) {
    long depth = 0;
    for (std::size_t i = start; i < t.size(); ++i) {
        Nest(t[i], depth);
        if (depth == 0 && IsSign(t[i]) && !(i > start && IsProductOperator(t[i - 1]))) return i;
    }
    return t.size();
}

int Evaluate(std::string_view t, double& result, const CAliasTable& aliases, int depth);

class CExpressionWalk {
public:
    CExpressionWalk(std::string_view text, const CAliasTable& aliases, int depth)
        : Text(text), Aliases(aliases), Depth(depth) {}

    // Walks the text from left to right. The left operand of every operator is the value so far,
    // or, before the first operator, the word read until then; each right operand is the text up
    // to the operator that ends it, evaluated on its own.
    int Run(double& result) {
        for (std::size_t i = 0; i < Text.size(); ++i) {
            const char c = Text[i];
            if (c == '(') {
                const std::size_t close = MatchingParenthesis(Text, i);
                if (close == kNone) return 0;
                double inner = 0.0;
                if (!Sub(i + 1, close, inner)) return 0;
                Value = ApplyFunction(Word, inner);
                Fresh = false;
                Word.clear();
                i = close;
            } else if (c == '^' || IsProductOperator(c) || IsSign(c)) {
                if (!TakeLeftOperand()) return 0;
                std::size_t end = 0;
                if (c == '^') {
                    end = PowerOperandEnd(Text, i + 1);
                } else if (IsProductOperator(c)) {
                    if (i + 1 < Text.size() && IsProductOperator(Text[i + 1])) return 0;
                    end = ProductOperandEnd(Text, i + 1);
                } else {
                    end = SumOperandEnd(Text, i + 1);
                }
                double right = 0.0;
                if (!Sub(i + 1, end, right)) return 0;
                Combine(c, right);
                i = end - 1;
            } else {
                Word += c;
            }
        }
        result = Value;
        return 1;
    }

private:
    int Sub(std::size_t begin, std::size_t end, double& value) const {
        return Evaluate(Text.substr(begin, end - begin), value, Aliases, Depth + 1);
    }

    bool TakeLeftOperand() {
        if (Fresh && !Word.empty()) {
            if (!Evaluate(Word, Value, Aliases, Depth + 1)) return false;
            Fresh = false;
        }
        return true;
    }

    void Combine(char op, double right) {
        switch (op) {
        case '^':
            Value = std::pow(Value, right);
            break;
        case '*':
            Value *= right;
            break;
        case '/':
            Value /= right;
            break;
        case '+':
            Value += right;
            break;
        default:
            Value -= right;
            break;
        }
    }

    std::string_view Text;
    const CAliasTable& Aliases;
    int Depth;
    std::string Word;
    double Value = 0.0;
    bool Fresh = true;
};

int Evaluate(std::string_view t, double& result, const CAliasTable& aliases, int depth) {
    result = 0.0;
    if (depth > kMaxDepth) return 0;
    if (IsNumberText(t)) {
        result = ScanNumber(t);
        return 1;
    }
    double alias = 0.0;
    if (aliases.GetAlias(std::string(t), alias)) {
        result = alias;
        return 1;
    }
    if (!IsValidText(t)) return 0;
    CExpressionWalk walk(t, aliases, depth);
    double value = 0.0;
    if (!walk.Run(value)) return 0;
    result = value;
    return 1;
}

} // namespace

int IsNumber(const std::string& token) { return IsNumberText(token) ? 1 : 0; }

int IsValidExpression(const std::string& token) { return IsValidText(token) ? 1 : 0; }

int GetNumber(const std::string& token, double& result, const CAliasTable& aliases) {
    try {
        return Evaluate(token, result, aliases, 0);
    } catch (...) {
        result = 0.0;
        return 0;
    }
}

} // namespace kelo
