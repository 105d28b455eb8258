// Optional text arguments of the platform's functions.
#pragma once

#include <string>

namespace kelvane::win {

/// Null, which stands for the platform's default, for an empty text.
inline const wchar_t* text_or_null(const std::wstring& text) {
    return text.empty() ? nullptr : text.c_str();
}

} // namespace kelvane::win
