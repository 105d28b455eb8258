#include "base/number_text.h"

#include <algorithm>
#include <charconv>

namespace kelvane {
namespace {

constexpr int kSignificantDigits = 15;

// "0.5" becomes ".5", "-0.25" becomes "-.25".
char* drop_leading_zero(char* begin, char* end) {
    char* digits = begin + (*begin == '-');
    if (end - digits < 2 || digits[0] != '0' || digits[1] != '.') return end;
    return std::copy(digits + 1, end, digits);
}

} // namespace

char* format_number(double value, char* to) {
    if (value == 0) value = 0; // minus zero carries no sign
    char* end = std::to_chars(to, to + kLongestNumber, value, std::chars_format::general,
                              kSignificantDigits)
                    .ptr;
    std::replace(to, end, 'e', 'E');
    return drop_leading_zero(to, end);
}

std::string NumberToText(double value) {
    char text[kLongestNumber];
    return {text, format_number(value, text)};
}

} // namespace kelvane
