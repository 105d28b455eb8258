// Text and file names between UTF-8, in which the engine and the command line have them on every
// system, and what the system takes.
#pragma once

#include <filesystem>
#include <string>
#include <string_view>

namespace kelvane {

inline std::filesystem::path utf8_path(std::string_view text) {
    return std::filesystem::path(std::u8string(text.begin(), text.end()));
}

inline std::string utf8_text(const std::filesystem::path& path) {
    const std::u8string text = path.u8string();
    return {text.begin(), text.end()};
}

/// Between UTF-8 and UTF-16; Windows only. What is not well formed becomes U+FFFD.
std::wstring wide_text(std::string_view utf8);
std::string narrow_text(std::wstring_view utf16);

} // namespace kelvane
