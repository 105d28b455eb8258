// Numbers as they stand on the command line, the same for options and for operations.
#pragma once

#include <optional>
#include <string_view>

namespace kelvane {

/// `text` as a number in decimal digits, a minus sign before them where it is negative: "021" is
/// twenty-one. A number with decimals has a point in every locale and may have an exponent (".5",
/// "1e-3"). Nothing for all else (a plus sign, blanks, another base) and for what `Number` cannot
/// hold. `Number` is int, std::uint32_t, float or double.
template <typename Number> std::optional<Number> decimal_number(std::string_view text);

/// The same for a number from `least` to `most` that users know by `name`. Throws `UsageError`
/// with the name and what is accepted.
template <typename Number>
Number number_argument(std::string_view name, std::string_view text, Number least, Number most);

} // namespace kelvane
