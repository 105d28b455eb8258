// What people type into a dialog's fields.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace kelvane {

/// The whole number that `text` consists of, blanks around it apart; nothing when there is none,
/// anything else beside it, or more than an int holds.
std::optional<int> whole_number(std::wstring_view text);

/// The same within `lowest` to `highest`.
std::optional<int> whole_number(std::wstring_view text, int lowest, int highest);

/// A number with decimals, after a point or, as Germans type, a comma.
std::optional<double> decimal_number(std::wstring_view text);

} // namespace kelvane
