#include "image/orientation.h"

#include "image/jpeg_format.h"
#include "image/tiff_format.h"

namespace kelvane {
namespace {

int tiff_orientation(Bytes tiff) {
    constexpr std::uint32_t kOrientation = 274;
    const std::uint32_t mark = TiffDirectory(tiff).number(kOrientation, 1);
    return mark >= 1 && mark <= 8 ? static_cast<int>(mark) : 1;
}

int jpeg_orientation(Bytes jpeg) {
    constexpr std::uint8_t kApp1 = 0xE1;
    constexpr std::string_view kExif{"Exif\0\0", 6};
    for (JpegSegments segments(jpeg); segments.next();)
        if (segments.marker() == kApp1 && begins_with(segments.content(), kExif))
            return tiff_orientation(segments.content().subspan(kExif.size()));
    return 1;
}

} // namespace

int orientation_mark(Bytes file_bytes) {
    if (is_jpeg(file_bytes)) return jpeg_orientation(file_bytes);
    if (is_tiff(file_bytes)) return tiff_orientation(file_bytes);
    return 1;
}

} // namespace kelvane
