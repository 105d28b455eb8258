// Numbers as people and old settings files write them.
#pragma once

#include <string_view>

namespace kelvane {

/// The number that `text` begins with after any blanks: a sign, digits with "." as decimal
/// separator whatever the locale, an exponent ("-2.5e3"). What follows it is ignored, so "0,5" is
/// 0 and "12 mm" is 12. Text that does not begin with a number, and a number beyond the range of
/// a double, is 0.
double lenient_number(std::string_view text);
double lenient_number(std::wstring_view text);

/// `lenient_number` rounded to the nearest whole number, halves to the even one, and held within
/// the range of an int.
int lenient_integer(std::wstring_view text);

} // namespace kelvane
