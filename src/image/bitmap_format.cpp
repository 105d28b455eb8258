#include "image/bitmap_format.h"

#include <cstdlib>

namespace kelvane {
namespace {

constexpr std::size_t kFileHeader = 14;
constexpr std::uint32_t kCoreHeader = 12;
constexpr std::uint32_t kRle8 = 1;
constexpr std::uint32_t kRle4 = 2;
constexpr std::uint32_t kMasks = 3;
constexpr std::uint32_t kMasksWithAlpha = 6;

std::uint64_t palette_bytes(const DibHeader& header, std::uint32_t colours) {
    constexpr std::uint32_t kInfoHeader = 40; // longer headers hold the masks themselves
    if (header.bytes == kInfoHeader && header.compression == kMasks) return 12;
    if (header.bytes == kInfoHeader && header.compression == kMasksWithAlpha) return 16;
    if (header.bits > 8) return 0;
    return std::uint64_t{colours != 0 ? colours : 1U << header.bits} *
           (header.bytes == kCoreHeader ? 3 : 4);
}

// Follows run-length data; rows that it leaves out at the end of the bitmap are not missing.
bool rle_is_complete(Bytes data, const DibHeader& header) {
    std::int64_t x = 0;
    std::int64_t y = 0;
    const auto all_rows = [&] {
        return y >= header.height || (y == header.height - 1 && x >= header.width);
    };
    for (std::size_t at = 0; holds(data, at, 2); at += 2) {
        const std::uint8_t count = data[at];
        const std::uint8_t value = data[at + 1];
        if (count > 0) { // a run
            x += count;
        } else if (value == 0) { // the end of a row
            x = 0;
            ++y;
        } else if (value == 1) { // the end of the bitmap
            return true;
        } else if (value == 2) { // a step to the right and up
            x += number_at(data, at + 2, 1);
            y += number_at(data, at + 3, 1);
            at += 2;
        } else { // pixels that follow, padded to two bytes
            x += value;
            const std::size_t bytes = header.compression == kRle8 ? value : (value + 1U) / 2;
            at += (bytes + 1) / 2 * 2;
        }
        if (at + 2 <= data.size() && all_rows()) return true;
    }
    return false;
}

} // namespace

std::optional<DibHeader> read_dib_header(Bytes dib) {
    constexpr std::uint32_t kOs2Header = 16; // the shortest of the others
    DibHeader header;
    header.bytes = number_at(dib, 0, 4);
    if (!holds(dib, 0, header.bytes)) return std::nullopt;
    std::uint32_t colours = 0;
    if (header.bytes == kCoreHeader) {
        header.width = number_at(dib, 4, 2);
        header.height = number_at(dib, 6, 2);
        header.bits = number_at(dib, 10, 2);
    } else if (header.bytes >= kOs2Header) {
        header.width = signed_at(dib, 4);
        header.height = std::abs(std::int64_t{signed_at(dib, 8)});
        header.bits = number_at(dib, 14, 2);
        if (header.bytes >= 20) header.compression = number_at(dib, 16, 4);
        if (header.bytes >= 36) colours = number_at(dib, 32, 4);
    } else {
        return std::nullopt;
    }
    header.palette_bytes = palette_bytes(header, colours);
    return header;
}

bool is_bitmap(Bytes file_bytes) {
    return begins_with(file_bytes, "BM");
}

Completeness bitmap_completeness(Bytes file_bytes) {
    const auto header = read_dib_header(bytes_from(file_bytes, kFileHeader));
    if (!header) return Completeness::Damaged;
    if (const auto size = size_completeness(header->width, header->height);
        size != Completeness::Complete)
        return size;
    const std::size_t pixels = number_at(file_bytes, 10, 4);
    if (header->compression == kRle8 || header->compression == kRle4)
        return complete_if(rle_is_complete(bytes_from(file_bytes, pixels), *header));
    const std::uint64_t bytes =
        header->row_bytes(header->bits) * static_cast<std::uint64_t>(header->height);
    return complete_if(holds(file_bytes, pixels, bytes));
}

} // namespace kelvane
