#include "image/icon_format.h"

#include "image/bitmap_format.h"
#include "image/png_format.h"

#include <utility>

namespace kelvane {
namespace {

constexpr std::size_t kFileHeader = 6;
constexpr std::size_t kEntryBytes = 16;

// An image as the directory lists it. It is a PNG file, or a bitmap without a file header: its
// colours, then a mask of one bit a pixel; the height in its header counts both.
struct Image {
    Bytes entry;
    Bytes bytes; // as many as there are in the file
    bool cut_short;
};

// The byte 0 stands for 256.
std::uint32_t side(std::uint8_t byte) {
    return byte == 0 ? 256 : byte;
}

// Where the file ends before this number, more than any other: a truncated image is chosen and then
// reported, not passed over.
std::uint32_t bits_of_pixel(Bytes image) {
    if (is_png(image)) return 32;
    return holds(image, 14, 2) ? number_at(image, 14, 2) : 0xFFFF;
}

Image image_at(Bytes file, std::size_t index) {
    const Bytes entry = file.subspan(kFileHeader + kEntryBytes * index, kEntryBytes);
    const Bytes rest = bytes_from(file, number_at(entry, 12, 4));
    const std::size_t length = number_at(entry, 8, 4);
    return {entry, rest.first(std::min(length, rest.size())), length > rest.size()};
}

// The entry of the image to show; without bytes when the directory is cut short.
Image largest(Bytes file) {
    const std::size_t images = number_at(file, 4, 2);
    Image best{{}, {}, true};
    std::pair<std::uint32_t, std::uint32_t> best_rank;
    if (!holds(file, kFileHeader, kEntryBytes * images)) return best;
    for (std::size_t i = 0; i < images; ++i) {
        const Image image = image_at(file, i);
        const std::pair rank{side(image.entry[0]) * side(image.entry[1]),
                             bits_of_pixel(image.bytes)};
        if (rank <= best_rank) continue;
        best_rank = rank;
        best = image;
    }
    return best;
}

Completeness bitmap_image_completeness(const Image& image) {
    const auto header = read_dib_header(image.bytes);
    if (!header) return Completeness::Damaged;
    const std::int64_t height = header->height / 2;
    const auto size = size_completeness(header->width, height);
    if (size != Completeness::Complete) return size;
    // The mask may be missing where pixels have an alpha channel.
    const std::uint64_t row =
        header->row_bytes(header->bits) + (header->bits < 32 ? header->row_bytes(1) : 0);
    return complete_if(holds(image.bytes, header->bytes + header->palette_bytes,
                             row * static_cast<std::uint64_t>(height)));
}

// An icon file of one image. A missing mask becomes an empty one.
std::vector<std::uint8_t> file_of(const Image& image, const DibHeader& header) {
    constexpr std::size_t kImageAt = kFileHeader + kEntryBytes;
    const std::uint64_t bytes = header.bytes + header.palette_bytes +
                                (header.row_bytes(header.bits) + header.row_bytes(1)) *
                                    static_cast<std::uint64_t>(header.height / 2);
    const std::size_t length = std::max(static_cast<std::size_t>(bytes), image.bytes.size());
    std::vector<std::uint8_t> file(kImageAt + length);
    std::ranges::copy(image.entry, file.begin() + kFileHeader);
    std::ranges::copy(image.bytes, file.begin() + kImageAt);
    const auto put = [&](std::size_t at, std::size_t count, std::size_t value) {
        for (std::size_t i = 0; i < count; ++i)
            file[at + i] = static_cast<std::uint8_t>(value >> (8 * i));
    };
    put(2, 2, 1); // icons, not cursors
    put(4, 2, 1); // of one image
    // A cursor's entry has its hot spot where an icon's has the planes and the bits of a pixel.
    put(kFileHeader + 4, 2, 1);
    put(kFileHeader + 6, 2, header.bits);
    put(kFileHeader + 8, 4, length);
    put(kFileHeader + 12, 4, kImageAt);
    return file;
}

} // namespace

bool is_icon(Bytes file_bytes) {
    const std::uint32_t images = number_at(file_bytes, 4, 2);
    return (begins_with(file_bytes, {"\0\0\1\0", 4}) || begins_with(file_bytes, {"\0\0\2\0", 4})) &&
           images >= 1 && images <= 255;
}

Completeness icon_completeness(Bytes file_bytes) {
    const Image image = largest(file_bytes);
    if (image.cut_short) return Completeness::Damaged;
    return is_png(image.bytes) ? png_completeness(image.bytes) : bitmap_image_completeness(image);
}

std::vector<std::uint8_t> largest_icon(Bytes file_bytes) {
    const Image image = largest(file_bytes);
    const auto header = read_dib_header(image.bytes);
    if (is_png(image.bytes) || !header) return {image.bytes.begin(), image.bytes.end()};
    return file_of(image, *header);
}

} // namespace kelvane
