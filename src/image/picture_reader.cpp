#include "image/picture_reader.h"

#include "base/file_bytes.h"
#include "image/completeness.h"
#include "image/gif_format.h"
#include "image/icon_format.h"
#include "image/upright_picture.h"

namespace kelvane {
namespace {

cDIBSection decoded(Bytes file_bytes, UprightPicture picture = UprightPicture()) {
    decode_rows(file_bytes, picture);
    return picture.take();
}

// Decoders differ in which image of an icon they choose and in what they make of a frame that does
// not fill its canvas, so each gets a file of just the image to show.
cDIBSection decoded_image(Bytes file_bytes) {
    if (is_icon(file_bytes)) return decoded(largest_icon(file_bytes));
    if (is_gif(file_bytes))
        if (const auto frame = first_gif_frame(file_bytes))
            return decoded(frame->file, UprightPicture(frame->placement));
    return decoded(file_bytes);
}

} // namespace

cDIBSection read_picture(const std::filesystem::path& file) {
    return decode_picture(read_file_bytes(file));
}

cDIBSection decode_picture(Bytes file_bytes) {
    if (file_bytes.empty()) throw FileError(FileFault::kEmpty);
    switch (completeness(file_bytes)) {
    case Completeness::kNoPixels:
        throw FileError(FileFault::kNoPixels);
    case Completeness::kTooLarge:
        throw FileError(FileFault::kTooLarge);
    case Completeness::kDamaged:
        throw FileError(FileFault::kDamaged);
    case Completeness::kComplete:
        break;
    }
    return decoded_image(file_bytes);
}

} // namespace kelvane
