// Names of temporary files that are renamed when they are complete.
#pragma once

#include <charconv>
#include <filesystem>
#include <iterator>
#include <random>
#include <string>

namespace kelvane {

/// A name that no file in `folder` has, in all likelihood: short whatever the file is to be called
/// in the end, because names have at most 255 bytes.
inline std::filesystem::path temporary_name(const std::filesystem::path& folder) {
    std::random_device random;
    char digits[16];
    char* const end = std::to_chars(digits, std::end(digits), random(), 16).ptr;
    return folder / ("kelvane-" + std::string(digits, end) + ".tmp");
}

} // namespace kelvane
