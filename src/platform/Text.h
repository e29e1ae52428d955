#pragma once

#include <cstddef>
#include <string>

namespace kelo {

// printf-style formatting into a std::string; every fixed-column line of a listing goes through it.
std::string Format(const char* fmt, ...) __attribute__((format(printf, 1, 2)));

// A value for a fixed-decimal column of `decimals` places: one that would print as a negative
// zero ("-0.00") is given as 0, so that a zero looks alike whatever its sign or rounding noise.
double ListedValue(double v, int decimals);

// ASCII upper-casing: keywords and aliases are compared without regard to case.
std::string MakeUpper(std::string s);
std::string TrimLeft(const std::string& s);
std::string TrimRight(const std::string& s);
std::string Trim(const std::string& s);

// Cuts a name to at most `count` characters (not bytes) of UTF-8 text.
std::string CutName(const std::string& s, std::size_t count);
// Number of characters of a UTF-8 text.
std::size_t CharCount(const std::string& s);

// The line ending of listings and logs.
inline constexpr const char* kCrLf = "\r\n";

} // namespace kelo
