#include "image/resolution.h"

#include "image/bitmap_format.h"
#include "image/jpeg_format.h"
#include "image/png_format.h"
#include "image/tiff_format.h"

namespace kelvane {
namespace {

constexpr double kCentimetresPerInch = 2.54;
constexpr double kMetresPerInch = .0254;

std::optional<Resolution> plausible(double x, double y) {
    constexpr double kLeast = 1;
    constexpr double kMost = 1e6;
    if (x < kLeast || y < kLeast || x > kMost || y > kMost) return std::nullopt;
    return Resolution{x, y};
}

std::optional<Resolution> png_resolution(Bytes png) {
    constexpr std::uint8_t kPerMetre = 1; // 0: only the ratio of the two numbers is known
    const Bytes content = png_chunk(png, "pHYs");
    if (content.size() != 9 || content[8] != kPerMetre) return std::nullopt;
    return plausible(number_at(content, 0, 4, ByteOrder::Big) * kMetresPerInch,
                     number_at(content, 4, 4, ByteOrder::Big) * kMetresPerInch);
}

std::optional<Resolution> tiff_resolution(Bytes tiff) {
    constexpr std::uint32_t kXResolution = 282;
    constexpr std::uint32_t kYResolution = 283;
    constexpr std::uint32_t kResolutionUnit = 296;
    enum : std::uint32_t { kInch = 2, kCentimetre = 3 };
    const TiffDirectory directory(tiff);
    const auto x = directory.rational(kXResolution);
    const auto y = directory.rational(kYResolution);
    const std::uint32_t unit = directory.number(kResolutionUnit, kInch);
    if (!x || !y || (unit != kInch && unit != kCentimetre)) return std::nullopt;
    const double per_inch = unit == kCentimetre ? kCentimetresPerInch : 1;
    return plausible(*x * per_inch, *y * per_inch);
}

std::optional<Resolution> jfif_resolution(Bytes content) {
    enum : std::uint8_t { kInch = 1, kCentimetre = 2 }; // 0: only the ratio is known
    if (content.size() < 12) return std::nullopt;
    const std::uint8_t unit = content[7];
    if (unit != kInch && unit != kCentimetre) return std::nullopt;
    const double per_inch = unit == kCentimetre ? kCentimetresPerInch : 1;
    return plausible(number_at(content, 8, 2, ByteOrder::Big) * per_inch,
                     number_at(content, 10, 2, ByteOrder::Big) * per_inch);
}

std::optional<Resolution> jpeg_resolution(Bytes jpeg) {
    constexpr std::uint8_t kApp0 = 0xE0;
    constexpr std::string_view kJfif{"JFIF\0", 5};
    for (JpegSegments segments(jpeg); segments.next();)
        if (segments.marker() == kApp0 && begins_with(segments.content(), kJfif)) {
            if (const auto found = jfif_resolution(segments.content())) return found;
            break;
        }
    return tiff_resolution(jpeg_exif(jpeg));
}

std::optional<Resolution> bitmap_resolution(Bytes bitmap) {
    constexpr std::size_t kXPixelsPerMetre = 38;
    constexpr std::size_t kYPixelsPerMetre = 42;
    constexpr std::uint32_t kInfoHeader = 40; // shorter headers have no resolution
    if (number_at(bitmap, 14, 4) < kInfoHeader) return std::nullopt;
    return plausible(signed_at(bitmap, kXPixelsPerMetre) * kMetresPerInch,
                     signed_at(bitmap, kYPixelsPerMetre) * kMetresPerInch);
}

} // namespace

std::optional<Resolution> file_resolution(Bytes file_bytes) {
    if (is_png(file_bytes)) return png_resolution(file_bytes);
    if (is_jpeg(file_bytes)) return jpeg_resolution(file_bytes);
    if (is_tiff(file_bytes)) return tiff_resolution(file_bytes);
    if (is_bitmap(file_bytes)) return bitmap_resolution(file_bytes);
    return std::nullopt;
}

} // namespace kelvane
