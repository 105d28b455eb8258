// Decoded rows become a picture: on white paper and the right way up.
#pragma once

#include "image/dib_section.h"

namespace kelvane {

/// Where the channels of a decoded pixel lie: its bytes, and the offset of each channel in them.
struct PixelLayout {
    int bytes;
    int blue;
    int green;
    int red;
    /// Straight (not premultiplied) alpha; negative when pixels have none.
    int alpha;
};

/// What a channel of straight alpha shows on white paper, rounded to the nearest; alpha 0 gives
/// 255 and alpha 255 the channel, exactly.
constexpr std::uint8_t on_white(int channel, int alpha) {
    return static_cast<std::uint8_t>((channel * alpha + 255 * (255 - alpha) + 127) / 255);
}

/// A picture that is filled with the rows of a file, top row first.
class UprightPicture {
  public:
    /// `width` and `height` are the file's, before turning; `orientation` is the mark of EXIF and
    /// TIFF, 1 to 8, anything else counts as 1 (upright). Throws `FileError` when there is no
    /// room for the picture.
    UprightPicture(int width, int height, int orientation);

    /// Takes row `y` of the file, counted from the top: `width` pixels.
    void put_row(int y, const std::uint8_t* pixels, const PixelLayout& layout);

    cDIBSection take() { return std::move(picture_); }

  private:
    cDIBSection picture_;
    int width_;
    // The file's top left pixel in the picture, and the bytes to its right and lower neighbours.
    std::uint8_t* origin_ = nullptr;
    std::ptrdiff_t right_ = 0;
    std::ptrdiff_t down_ = 0;
};

} // namespace kelvane
