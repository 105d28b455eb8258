#include "image/completeness.h"

#include "image/bitmap_format.h"
#include "image/dib_section.h"
#include "image/gif_format.h"
#include "image/icon_format.h"
#include "image/jpeg_format.h"
#include "image/metafile_format.h"
#include "image/png_format.h"
#include "image/tiff_format.h"

namespace kelvane {
namespace {

struct Format {
    bool (*recognises)(Bytes);
    Completeness (*completeness)(Bytes);
};

constexpr Format kFormats[] = {
    {is_png, png_completeness},           {is_jpeg, jpeg_completeness},
    {is_gif, gif_completeness},           {is_tiff, tiff_completeness},
    {is_bitmap, bitmap_completeness},     {is_icon, icon_completeness},
    {is_metafile, metafile_completeness},
};

} // namespace

Completeness completeness(Bytes file_bytes) {
    for (const Format& format : kFormats)
        if (format.recognises(file_bytes)) return format.completeness(file_bytes);
    return Completeness::Complete;
}

Completeness size_completeness(std::int64_t width, std::int64_t height) {
    if (width <= 0 || height <= 0) return Completeness::NoPixels;
    return cDIBSection::fits(width, height) ? Completeness::Complete : Completeness::TooLarge;
}

} // namespace kelvane
