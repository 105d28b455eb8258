// A whole file in memory.
#pragma once

#include <cstdint>
#include <filesystem>
#include <iosfwd>
#include <vector>

namespace kelvane {

/// The bytes of a file. Throws `FileError` with the system's cause when it is missing, a folder,
/// unreadable or larger than 2 GB.
std::vector<std::uint8_t> read_file_bytes(const std::filesystem::path& file);

/// What is left in a binary stream. Throws `FileError` in the same way.
std::vector<std::uint8_t> read_stream_bytes(std::istream& in);

} // namespace kelvane
