// Numbers typed into a dialog's fields.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace kelvane {

/// The whole number in `text`, with blanks around it at most; nothing for other text or a number
/// that does not fit an int.
std::optional<int> whole_number(std::wstring_view text);

/// The same within `lowest` to `highest`.
std::optional<int> whole_number(std::wstring_view text, int lowest, int highest);

/// The same with decimals, after a point or, as Germans type, a comma.
std::optional<double> decimal_number(std::wstring_view text);

} // namespace kelvane
