#include "image/picture_reader.h"

#include "base/file_bytes.h"
#include "image/completeness.h"
#include "image/gif_format.h"
#include "image/icon_format.h"
#include "image/upright_picture.h"

namespace kelvane {
namespace {

// As ink, a picture without transparency would be black all over: it is decoded again.
cDIBSection decoded(Bytes file_bytes, Transparency transparency,
                    std::optional<Placement> placement = std::nullopt) {
    UprightPicture picture(transparency, placement);
    decode_rows(file_bytes, picture);
    if (transparency == Transparency::Ink && !picture.met_transparency())
        return decoded(file_bytes, Transparency::Paper, placement);
    return picture.take();
}

// Decoders differ in which image of an icon they choose and in what they make of a frame that does
// not fill its canvas, so each gets a file of just the image to show.
cDIBSection decoded_image(Bytes file_bytes, Transparency transparency) {
    if (is_icon(file_bytes)) return decoded(largest_icon(file_bytes), transparency);
    if (is_gif(file_bytes))
        if (const auto frame = first_gif_frame(file_bytes))
            return decoded(frame->file, transparency, frame->placement);
    return decoded(file_bytes, transparency);
}

} // namespace

cDIBSection read_picture(const std::filesystem::path& file) {
    return decode_picture(read_file_bytes(file));
}

cDIBSection decode_picture(Bytes file_bytes, Transparency transparency) {
    if (file_bytes.empty()) throw FileError(FileFault::Empty);
    switch (completeness(file_bytes)) {
    case Completeness::NoPixels:
        throw FileError(FileFault::NoPixels);
    case Completeness::TooLarge:
        throw FileError(FileFault::TooLarge);
    case Completeness::Damaged:
        throw FileError(FileFault::Damaged);
    case Completeness::Complete:
        break;
    }
    return decoded_image(file_bytes, transparency);
}

} // namespace kelvane
