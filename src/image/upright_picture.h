// Assembles decoded rows into a picture: without transparency and turned upright.
#pragma once

#include "image/dib_section.h"
#include "image/placement.h"
#include "image/transparency.h"

#include <optional>

namespace kelvane {

/// Where the channels of a decoded pixel lie: its bytes, and the offset of each channel in them.
struct PixelLayout {
    int bytes;
    int blue;
    int green;
    int red;
    int alpha; ///< negative when pixels have none
    /// The other channels are multiplied by the alpha.
    bool premultiplied = false;
};

/// A channel with straight alpha composed on white, rounded to the nearest; alpha 0 gives 255 and
/// alpha 255 the channel, exactly.
constexpr std::uint8_t on_white(int channel, int alpha) {
    return static_cast<std::uint8_t>((channel * alpha + 255 * (255 - alpha) + 127) / 255);
}

/// The same for premultiplied alpha; a channel above its alpha gives white.
constexpr std::uint8_t premultiplied_on_white(int channel, int alpha) {
    return static_cast<std::uint8_t>(channel > alpha ? 255 : channel + 255 - alpha);
}

/// A picture that is filled with the rows of a file, top row first.
class UprightPicture {
  public:
    /// With a placement, the rows fill their part of a canvas that is white elsewhere.
    explicit UprightPicture(Transparency transparency = Transparency::Paper,
                            std::optional<Placement> placement = std::nullopt)
        : transparency_(transparency), placement_(placement) {}

    /// `width` and `height` are the file's, before turning; `orientation` is the mark of EXIF and
    /// TIFF, 1 to 8, anything else counts as 1 (upright), as it does with a placement. Throws
    /// `FileError` when there is no room for the picture.
    void begin(int width, int height, int orientation);

    /// Takes row `y` of the file, counted from the top: `width` pixels.
    void put_row(int y, const std::uint8_t* pixels, const PixelLayout& layout);

    /// Whether a pixel of the rows was not fully opaque; known for `Ink` only.
    bool met_transparency() const { return met_transparency_; }

    cDIBSection take() { return std::move(picture_); }

  private:
    void create(int width, int height);
    void turn(int width, int height, int orientation);

    Transparency transparency_;
    bool met_transparency_ = false;
    std::optional<Placement> placement_;
    cDIBSection picture_;
    // How much of the file's rows is shown.
    int columns_ = 0;
    int rows_ = 0;
    // The file's top left pixel in the picture, and the bytes to its right and lower neighbours.
    std::uint8_t* origin_ = nullptr;
    std::ptrdiff_t right_ = 0;
    std::ptrdiff_t down_ = 0;
};

} // namespace kelvane
