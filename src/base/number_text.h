// Numbers as the script and the settings file carry them.
#pragma once

#include <cstddef>
#include <string>

namespace kelvane {

/// Longest text `format_number` writes.
inline constexpr std::size_t kLongestNumber = 24;

/// Writes the shortest general decimal form of `value` with at most 15 significant digits to
/// `to`: "." as separator whatever the locale, no zero before it below 1 (".5", "-.25"), an
/// exponent ("1E-05", "1E+15") only below 0.0001 and from 1E+15 on. Returns the end of the text;
/// `to` has room for `kLongestNumber` characters.
char* format_number(double value, char* to);

/// `format_number` as a string.
std::string NumberToText(double value);

} // namespace kelvane
