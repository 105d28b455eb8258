#include "image/bitmap_file.h"

#include "base/file_error.h"
#include "base/safe_file.h"
#include "image/dib_section.h"

#include <cstring>
#include <limits>

namespace kelvane {
namespace {

constexpr std::size_t kFileHeader = 14;
constexpr std::size_t kInfoHeader = 40;
constexpr std::size_t kPixelOffset = kFileHeader + kInfoHeader;

// Numbers of the headers stand with their low byte first.
void put(std::vector<std::uint8_t>& bytes, std::size_t at, std::uint32_t value, int count) {
    for (int i = 0; i < count; ++i)
        bytes[at++] = static_cast<std::uint8_t>(value >> (8 * i));
}

void put_headers(std::vector<std::uint8_t>& bytes, ConstImageView image) {
    bytes[0] = 'B';
    bytes[1] = 'M';
    put(bytes, 2, static_cast<std::uint32_t>(bytes.size()), 4);
    put(bytes, 10, kPixelOffset, 4);
    put(bytes, 14, kInfoHeader, 4);
    put(bytes, 18, static_cast<std::uint32_t>(image.width), 4);
    put(bytes, 22, static_cast<std::uint32_t>(image.height), 4);
    put(bytes, 26, 1, 2);  // planes
    put(bytes, 28, 24, 2); // bits a pixel
    put(bytes, 34, static_cast<std::uint32_t>(bytes.size() - kPixelOffset), 4);
}

} // namespace

std::vector<std::uint8_t> encode_bitmap(ConstImageView image) {
    const auto step = static_cast<std::size_t>(cDIBSection::bytes_per_scan_line(image.width));
    const auto height = static_cast<std::size_t>(image.height);
    if (step > (std::numeric_limits<std::uint32_t>::max() - kPixelOffset) / height)
        throw FileError(FileFault::TooLargeForBitmap);
    std::vector<std::uint8_t> bytes(kPixelOffset + step * height);
    put_headers(bytes, image);
    for (int y = 0; y < image.height; ++y)
        std::memcpy(&bytes[kPixelOffset + step * static_cast<std::size_t>(y)], image.row(y),
                    static_cast<std::size_t>(image.width) * 3);
    return bytes;
}

void save_bitmap(ConstImageView image, const std::filesystem::path& file) {
    const std::vector<std::uint8_t> bytes = encode_bitmap(image);
    SafeFile out(file);
    out.write({reinterpret_cast<const char*>(bytes.data()), bytes.size()});
    out.commit();
}

} // namespace kelvane
