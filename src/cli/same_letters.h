// Names that count in any case.
#pragma once

#include <algorithm>
#include <string_view>

namespace kelvane {

/// Only the letters A to Z have two cases.
constexpr char lower_letter(char c) {
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

constexpr bool same_letters(std::string_view a, std::string_view b) {
    return std::ranges::equal(a, b, {}, lower_letter, lower_letter);
}

} // namespace kelvane
