#include "platform/Text.h"

#include <cctype>
#include <cmath>
#include <cstdarg>
#include <cstdio>
#include <vector>

namespace kelo {

double ListedValue(double v, int decimals) {
    return std::fabs(v) < 0.5 * std::pow(10.0, -decimals) ? 0.0 : v;
}

std::string Format(const char* fmt, ...) {
    va_list args;
    va_start(args, fmt);
    va_list copy;
    va_copy(copy, args);
    const int n = std::vsnprintf(nullptr, 0, fmt, copy);
    va_end(copy);
    std::string out;
    if (n > 0) {
        std::vector<char> buf(static_cast<std::size_t>(n) + 1);
        std::vsnprintf(buf.data(), buf.size(), fmt, args);
        out.assign(buf.data(), static_cast<std::size_t>(n));
    }
    va_end(args);
    return out;
}

std::string MakeUpper(std::string s) {
    for (char& c : s)
        if (c >= 'a' && c <= 'z') c = static_cast<char>(c - 'a' + 'A');
    return s;
}

static bool IsBlank(char c) { return c == ' ' || c == '\t'; }

std::string TrimLeft(const std::string& s) {
    std::size_t i = 0;
    while (i < s.size() && IsBlank(s[i])) ++i;
    return s.substr(i);
}

std::string TrimRight(const std::string& s) {
    std::size_t n = s.size();
    while (n > 0 && IsBlank(s[n - 1])) --n;
    return s.substr(0, n);
}

std::string Trim(const std::string& s) { return TrimLeft(TrimRight(s)); }

static bool IsContinuationByte(unsigned char c) { return (c & 0xC0) == 0x80; }

std::string CutName(const std::string& s, std::size_t count) {
    std::size_t chars = 0;
    for (std::size_t i = 0; i < s.size(); ++i) {
        if (IsContinuationByte(static_cast<unsigned char>(s[i]))) continue;
        if (chars == count) return s.substr(0, i);
        ++chars;
    }
    return s;
}

std::size_t CharCount(const std::string& s) {
    std::size_t chars = 0;
    for (char c : s)
        if (!IsContinuationByte(static_cast<unsigned char>(c))) ++chars;
    return chars;
}

} // namespace kelo
