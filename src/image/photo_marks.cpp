#include "image/photo_marks.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <string_view>

namespace kelvane {
namespace {

using Bytes = std::span<const std::uint8_t>;

bool begins_with(Bytes bytes, std::string_view text) {
    return bytes.size() >= text.size() &&
           std::equal(text.begin(), text.end(), bytes.begin(),
                      [](char c, std::uint8_t b) { return static_cast<std::uint8_t>(c) == b; });
}

// A TIFF structure: a file, or the content of an EXIF segment. Numbers beyond the end read as 0.
class TiffNumbers {
  public:
    explicit TiffNumbers(Bytes bytes) : bytes_(bytes), little_(begins_with(bytes, "II")) {}

    std::uint32_t number(std::size_t at, std::size_t length) const {
        if (at > bytes_.size() || length > bytes_.size() - at) return 0;
        std::uint32_t value = 0;
        for (std::size_t i = 0; i < length; ++i)
            value = value << 8 | bytes_[at + (little_ ? length - 1 - i : i)];
        return value;
    }

  private:
    Bytes bytes_;
    bool little_;
};

int tiff_orientation(Bytes bytes) {
    constexpr std::uint32_t kOrientation = 274;
    const TiffNumbers tiff(bytes);
    if (tiff.number(2, 2) != 42) return 1;
    const std::size_t directory = tiff.number(4, 4);
    if (directory >= bytes.size()) return 1;
    const std::uint32_t entries = tiff.number(directory, 2);
    for (std::size_t i = 0; i < entries; ++i) {
        const std::size_t entry = directory + 2 + 12 * i;
        if (tiff.number(entry, 2) != kOrientation) continue;
        const std::uint32_t mark = tiff.number(entry + 8, 2);
        return mark >= 1 && mark <= 8 ? static_cast<int>(mark) : 1;
    }
    return 1;
}

bool is_jpeg(Bytes bytes) {
    return begins_with(bytes, "\xFF\xD8\xFF");
}

// Calls `see(marker, content)` for each segment up to the first scan's header; `see` returns true
// to stop. Gives where the walk ended: behind the last segment.
template <typename See> std::size_t walk_segments(Bytes bytes, See see) {
    constexpr std::uint8_t kScan = 0xDA;
    std::size_t at = 2;
    while (at + 4 <= bytes.size() && bytes[at] == 0xFF) {
        const std::uint8_t marker = bytes[at + 1];
        if (marker == 0xFF) { // fill byte
            ++at;
            continue;
        }
        const std::size_t length = static_cast<std::size_t>(bytes[at + 2] << 8 | bytes[at + 3]);
        if (length < 2 || length > bytes.size() - at - 2) break;
        const Bytes content = bytes.subspan(at + 4, length - 2);
        at += 2 + length;
        if (see(marker, content) || marker == kScan) break;
    }
    return at;
}

int jpeg_orientation(Bytes bytes) {
    constexpr std::uint8_t kApp1 = 0xE1;
    constexpr std::string_view kExif{"Exif\0\0", 6};
    int orientation = 1;
    walk_segments(bytes, [&](std::uint8_t marker, Bytes content) {
        if (marker != kApp1 || !begins_with(content, kExif)) return false;
        orientation = tiff_orientation(content.subspan(kExif.size()));
        return true;
    });
    return orientation;
}

bool jpeg_is_complete(Bytes file_bytes) {
    // Only behind the headers: a thumbnail in them has an end of its own. Picture data never
    // holds the end's two bytes.
    const std::size_t scan = walk_segments(file_bytes, [](std::uint8_t, Bytes) { return false; });
    constexpr std::array<std::uint8_t, 2> kEnd = {0xFF, 0xD9};
    const Bytes rest = file_bytes.subspan(std::min(scan, file_bytes.size()));
    return std::search(rest.begin(), rest.end(), kEnd.begin(), kEnd.end()) != rest.end();
}

constexpr std::string_view kPngBegin = "\x89PNG\r\n\x1A\n";

bool png_is_complete(Bytes bytes) {
    constexpr std::size_t kFrame = 12; // length, name and checksum of a chunk
    std::size_t at = kPngBegin.size();
    while (bytes.size() - at >= kFrame) {
        const std::size_t length = TiffNumbers(bytes).number(at, 4);
        if (length > bytes.size() - at - kFrame) return false;
        if (begins_with(bytes.subspan(at + 4), "IEND")) return true;
        at += kFrame + length;
    }
    return false;
}

// Only its headers: no decoder is content with too few rows, but one takes a stub for a picture.
bool bitmap_has_headers(Bytes bytes) {
    constexpr std::size_t kFileHeader = 14; // then the length of the next header
    constexpr std::size_t kSmallest = kFileHeader + 12;
    return bytes.size() >= kSmallest && bytes.size() >= kFileHeader + bytes[kFileHeader];
}

} // namespace

int orientation_mark(Bytes file_bytes) {
    if (is_jpeg(file_bytes)) return jpeg_orientation(file_bytes);
    if (begins_with(file_bytes, "II*") || begins_with(file_bytes, {"MM\0*", 4}))
        return tiff_orientation(file_bytes);
    return 1;
}

bool is_complete(Bytes file_bytes) {
    if (is_jpeg(file_bytes)) return jpeg_is_complete(file_bytes);
    if (begins_with(file_bytes, kPngBegin)) return png_is_complete(file_bytes);
    if (begins_with(file_bytes, "BM")) return bitmap_has_headers(file_bytes);
    return true;
}

} // namespace kelvane
