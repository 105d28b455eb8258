// File names between the command line, which is UTF-8 on every system, and the file system.
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

} // namespace kelvane
