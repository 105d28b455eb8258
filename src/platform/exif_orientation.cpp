#include "platform/exif_orientation.h"

#include <algorithm>
#include <cstddef>
#include <string_view>

namespace kelvane {
namespace {

using Bytes = std::span<const std::uint8_t>;

constexpr int kUpright = 1;
constexpr std::size_t kOrientationTag = 0x0112;

// Reads beyond the end give 0.
std::size_t number(Bytes bytes, std::size_t at, std::size_t size, bool big_endian) {
    if (at > bytes.size() || bytes.size() - at < size) return 0;
    std::size_t value = 0;
    for (std::size_t i = 0; i < size; ++i)
        value = value << 8 | bytes[at + (big_endian ? i : size - 1 - i)];
    return value;
}

bool starts_with(Bytes bytes, std::string_view mark) {
    return bytes.size() >= mark.size() &&
           std::equal(mark.begin(), mark.end(), bytes.begin(), [](char c, std::uint8_t byte) {
               return static_cast<std::uint8_t>(c) == byte;
           });
}

// `tiff`: byte order mark, 42, offset of the first directory; a directory is a count and entries
// of twelve bytes: tag, type, count, value.
int orientation_in_tiff(Bytes tiff) {
    const bool big = starts_with(tiff, "MM");
    const std::size_t directory = number(tiff, 4, 4, big);
    const std::size_t entries = number(tiff, directory, 2, big);
    for (std::size_t i = 0; i < entries; ++i) {
        const std::size_t entry = directory + 2 + 12 * i;
        if (number(tiff, entry, 2, big) != kOrientationTag) continue;
        const std::size_t value = number(tiff, entry + 8, 2, big);
        return value >= 1 && value <= 8 ? static_cast<int>(value) : kUpright;
    }
    return kUpright;
}

} // namespace

int exif_orientation(Bytes file_bytes) {
    using namespace std::string_view_literals;
    if (!starts_with(file_bytes, "\xFF\xD8")) return kUpright;
    // Segments: FF, kind, length of what follows (two bytes, themselves included). The pixels
    // start at segment DA; the EXIF segment stands before them.
    std::size_t at = 2;
    while (at + 4 <= file_bytes.size() && file_bytes[at] == 0xFF && file_bytes[at + 1] != 0xDA) {
        const std::size_t length = number(file_bytes, at + 2, 2, true);
        if (length < 2 || length > file_bytes.size() - at - 2) break;
        const Bytes content = file_bytes.subspan(at + 4, length - 2);
        if (file_bytes[at + 1] == 0xE1 && starts_with(content, "Exif\0\0"sv))
            return orientation_in_tiff(content.subspan(6));
        at += 2 + length;
    }
    return kUpright;
}

} // namespace kelvane
