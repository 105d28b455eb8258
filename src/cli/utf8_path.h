// File names on the command line are UTF-8 on every system.
#pragma once

#include <filesystem>
#include <string>
#include <string_view>

namespace kelvane {

inline std::filesystem::path utf8_path(std::string_view text) {
    return std::filesystem::path(std::u8string(text.begin(), text.end()));
}

} // namespace kelvane
