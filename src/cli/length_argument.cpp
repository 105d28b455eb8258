#include "cli/length_argument.h"

#include "base/strict_number.h"
#include "cli/same_letters.h"
#include "cli/usage_error.h"
#include "export/export_options.h"

#include <algorithm>
#include <string>

namespace kelvane {

std::optional<std::int16_t> unit_index(std::string_view name) {
    if (same_letters(name, "in")) name = "inch";
    const auto unit = std::ranges::find_if(
        kUnits, [&](const Unit& known) { return same_letters(known.name, name); });
    if (unit == kUnits.end()) return std::nullopt;
    return static_cast<std::int16_t>(unit - kUnits.begin());
}

Length length_argument(std::string_view name, std::string_view text, LeastLength least) {
    const std::size_t digits = text.find_last_of("0123456789.") + 1;
    const std::string_view unit = text.substr(digits);
    const auto value = strict_number<double>(text.substr(0, digits));
    const Length length{value.value_or(-1), unit_index(unit)};
    const bool known_unit = unit.empty() || length.unit;
    const bool in_range = length.value <= kLargestLength &&
                          (least == LeastLength::Zero ? length.value >= 0 : length.value > 0);
    if (value && known_unit && in_range) return length;
    throw UsageError(std::string(name) +
                     " is a length such as 20mm, 0.8in, 800mil, 500mic or, in --unit, 20, " +
                     (least == LeastLength::Zero ? "from 0" : "greater than 0 and") +
                     " at most 1e9, not \"" + std::string(text) + "\"");
}

} // namespace kelvane
