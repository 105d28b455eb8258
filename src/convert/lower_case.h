// Lower case for comparisons with the converter's ASCII names.
#pragma once

#include <algorithm>
#include <string>
#include <string_view>

namespace kelvane {

/// Lower case of A to Z; other characters are unchanged, whatever the locale.
inline wchar_t lower(wchar_t c) {
    return c >= L'A' && c <= L'Z' ? static_cast<wchar_t>(c - L'A' + L'a') : c;
}

inline std::wstring in_lower_case(std::wstring_view text) {
    std::wstring result(text);
    std::ranges::transform(result, result.begin(), lower);
    return result;
}

} // namespace kelvane
