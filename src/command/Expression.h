#pragma once

#include <string>

namespace kelo {

class CAliasTable;

// 1 when the token is written as a plain number: only the characters "-+0123456789.eE", at most
// one exponent mark and not at the end, and without an exponent no sign after the first
// character. Nothing else is checked, so "1.2.3" and "2e3-1" pass and read as 1.2 and 2000.
int IsNumber(const std::string& token);

// 0 when the token holds two signs in a row ("++", "--", "+-", "-+") or unequal numbers of "("
// and ")"; otherwise 1.
int IsValidExpression(const std::string& token);

// Turns one field of a command into a number: a plain number, an alias, or an expression over
// both with + - * / ^, parentheses and the functions sin, cos, tan (degrees), asin, acos, atan
// (answering degrees), sqrt and sqr. Answers 1 with the value in `result`, 0 when the field is
// refused (result 0). A name that is no alias reads as 0 and is no failure.
int GetNumber(const std::string& token, double& result, const CAliasTable& aliases);

} // namespace kelo
