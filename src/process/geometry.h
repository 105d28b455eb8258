// Pictures cut, mirrored and turned. Directions are those of the picture as displayed, whose bottom
// row is memory row 0.
#pragma once

#include "image/image_view.h"
#include "image/progress.h"

namespace kelvane {

/// Pixels of a picture, counted from its upper left corner as displayed.
struct PixelRect {
    int left;
    int top;
    int width;
    int height;

    friend bool operator==(const PixelRect&, const PixelRect&) = default;
};

/// True when the rectangle holds a pixel and lies inside a picture of that size.
bool lies_inside(const PixelRect& rect, int width, int height);

/// `to` becomes the rectangle, which lies inside `from`, with white around it: it is larger than
/// the rectangle by `margin` pixels on each side. Reports its end only.
void Crop(ConstImageView from, const PixelRect& rect, ImageView to, int margin = 0,
          ProgressObserver* observer = nullptr);

// The operations below report memory rows, ascending from 0.

/// Left and right exchanged, in place.
void Mirror(ImageView image, ProgressObserver* observer = nullptr);
/// Top and bottom exchanged, in place. Reports the rows of the lower half.
void Flip(ImageView image, ProgressObserver* observer = nullptr);
/// Turned by 180 degrees, in place. Reports the rows of the lower half.
void RotateHalf(ImageView image, ProgressObserver* observer = nullptr);
/// Turned by 90 degrees, clockwise or the other way. `to` is as wide as `from` is high and as high
/// as `from` is wide. Reports the rows of `from`.
void RotateRight(ConstImageView from, ImageView to, ProgressObserver* observer = nullptr);
void RotateLeft(ConstImageView from, ImageView to, ProgressObserver* observer = nullptr);

} // namespace kelvane
