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

} // namespace

int orientation_mark(Bytes file_bytes) {
    if (is_jpeg(file_bytes)) return tiff_orientation(jpeg_exif(file_bytes));
    if (is_tiff(file_bytes)) return tiff_orientation(file_bytes);
    return 1;
}

} // namespace kelvane
