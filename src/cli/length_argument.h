// Lengths as they stand on the command line: "20mm", "0.8in", "12".
#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

namespace kelvane {

/// Index into `kUnits` of a unit by its name in any case; "in" is "inch". Nothing for other names.
std::optional<std::int16_t> unit_index(std::string_view name);

struct Length {
    double value = 0;
    /// Index into `kUnits`; nothing when the text names no unit.
    std::optional<std::int16_t> unit;
};

/// The largest length, in whatever unit: no board is larger, and coordinates stay finite.
inline constexpr double kLargestLength = 1e9;

/// Whether 0 is a length.
enum class LeastLength { Zero, AboveZero };

/// `text` as a decimal number, directly followed by mm, mil, in, inch or mic or by nothing. Throws
/// `UsageError` that begins with `name` for all else, and for numbers below `least` or above
/// `kLargestLength`.
Length length_argument(std::string_view name, std::string_view text, LeastLength least);

} // namespace kelvane
