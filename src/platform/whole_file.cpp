#include "platform/whole_file.h"

#include "image/file_error.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdlib>

namespace kelvane {
namespace {

using Bytes = std::span<const std::uint8_t>;

std::uint32_t big_endian(Bytes bytes, std::size_t at) {
    std::uint32_t value = 0;
    for (std::size_t i = 0; i < 4; ++i)
        value = value << 8 | bytes[at + i];
    return value;
}

std::uint32_t little_endian(Bytes bytes, std::size_t at, std::size_t size) {
    std::uint32_t value = 0;
    for (std::size_t i = size; i-- > 0;)
        value = value << 8 | bytes[at + i];
    return value;
}

constexpr std::array<std::uint8_t, 8> kPngMark = {0x89, 'P', 'N', 'G', '\r', '\n', 0x1A, '\n'};

bool is_png(Bytes bytes) {
    return bytes.size() >= kPngMark.size() &&
           std::equal(kPngMark.begin(), kPngMark.end(), bytes.begin());
}

// Chunks: length of the content, name, content, check sum. IEND is the last one.
bool png_reaches_its_end(Bytes bytes) {
    constexpr std::uint32_t end = 'I' << 24 | 'E' << 16 | 'N' << 8 | 'D';
    std::size_t at = kPngMark.size();
    while (bytes.size() - at >= 12) {
        const std::size_t length = big_endian(bytes, at);
        if (length > bytes.size() - at - 12) return false;
        if (big_endian(bytes, at + 4) == end) return true;
        at += 12 + length;
    }
    return false;
}

// A file header of 14 bytes, then an information header that opens with its own size; only the
// forms of 40 bytes and more are meant.
bool is_bitmap(Bytes bytes) {
    return bytes.size() >= 18 && bytes[0] == 'B' && bytes[1] == 'M' &&
           little_endian(bytes, 14, 4) >= 40;
}

bool bitmap_reaches_its_end(Bytes bytes) {
    constexpr std::size_t headers = 14 + 40;
    if (bytes.size() < headers) return false;
    const bool compressed = little_endian(bytes, 30, 4) != 0;
    if (compressed) return true;
    const std::uint64_t width = little_endian(bytes, 18, 4);
    const auto height = static_cast<std::int32_t>(little_endian(bytes, 22, 4));
    const std::uint64_t rows = static_cast<std::uint64_t>(std::llabs(height));
    const std::uint64_t row_bytes = (width * little_endian(bytes, 28, 2) + 31) / 32 * 4;
    const std::uint64_t first_pixel = little_endian(bytes, 10, 4);
    return row_bytes == 0 ||
           rows <= (bytes.size() - std::min<std::uint64_t>(first_pixel, bytes.size())) / row_bytes;
}

} // namespace

void require_whole_file(Bytes file_bytes) {
    const bool whole = is_png(file_bytes)      ? png_reaches_its_end(file_bytes)
                       : is_bitmap(file_bytes) ? bitmap_reaches_its_end(file_bytes)
                                               : true;
    if (!whole) throw FileError("the file ends before its picture does");
}

} // namespace kelvane
