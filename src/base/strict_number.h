// Numbers written as users and files have to write them.
#pragma once

#include <charconv>
#include <cmath>
#include <optional>
#include <string_view>
#include <system_error>
#include <type_traits>

namespace kelvane {

/// `text` as a number in decimal digits, a minus sign before them where it is negative: "021" is
/// twenty-one. A number with decimals has a point in every locale and may have an exponent (".5",
/// "1e-3"). Nothing for all else (a plus sign, blanks, another base, "inf") and for what `Number`
/// cannot hold.
template <typename Number> std::optional<Number> strict_number(std::string_view text) {
    Number value{};
    const char* const end = text.data() + text.size();
    const auto [stop, error] = std::from_chars(text.data(), end, value);
    if (error != std::errc{} || stop != end) return std::nullopt;
    if constexpr (std::is_floating_point_v<Number>)
        if (!std::isfinite(value)) return std::nullopt;
    return value;
}

} // namespace kelvane
