// Telling whether two names lead to one file.
#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>

namespace kelvane {

/// The same for every name, link and stream that leads to one file.
struct FileIdentity {
    std::uint64_t volume;
    std::uint64_t number; // on the volume
    bool ordinary;        // neither folder nor device nor pipe

    bool operator==(const FileIdentity&) const = default;
};

/// Nothing where there is no such file, and on Windows for devices and pipes.
std::optional<FileIdentity> identity_of(const std::filesystem::path& file);
std::optional<FileIdentity> identity_of_standard_input();
std::optional<FileIdentity> identity_of_standard_output();

} // namespace kelvane
