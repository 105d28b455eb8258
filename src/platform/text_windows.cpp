#include "base/text.h"

#include <windows.h>

namespace kelvane {

std::wstring wide_text(std::string_view utf8) {
    const int length = static_cast<int>(utf8.size());
    std::wstring text(utf8.size(), L'\0'); // never longer than in UTF-8
    const int used = MultiByteToWideChar(CP_UTF8, 0, utf8.data(), length, text.data(), length);
    text.resize(static_cast<std::size_t>(used));
    return text;
}

std::string narrow_text(std::wstring_view utf16) {
    const int units = static_cast<int>(utf16.size());
    const int bytes =
        WideCharToMultiByte(CP_UTF8, 0, utf16.data(), units, nullptr, 0, nullptr, nullptr);
    std::string text(static_cast<std::size_t>(bytes), '\0');
    WideCharToMultiByte(CP_UTF8, 0, utf16.data(), units, text.data(), bytes, nullptr, nullptr);
    return text;
}

} // namespace kelvane
