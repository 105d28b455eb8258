// Files that end before their picture does.
#pragma once

#include <cstdint>
#include <span>

namespace kelvane {

/// Throws `FileError` when a PNG or an uncompressed bitmap file ends before its last pixel. The
/// systems' loaders show the missing part of these as blank instead of complaining; other kinds
/// they check themselves.
void require_whole_file(std::span<const std::uint8_t> file_bytes);

} // namespace kelvane
