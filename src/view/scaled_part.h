// A zoomed picture, drawn as far as a window shows it.
#pragma once

#include "image/image_view.h"
#include "view/axis_scale.h"

namespace kelvane {

/// Fills `to` with the part of the zoomed picture that begins `left` and `top` window pixels from
/// its upper left corner and is as large as `to`; it lies inside the picture's extent. `across`
/// and `down` have the picture's size. A direction that grows repeats pixels; if one of them
/// shrinks, each pixel of `to` becomes the mean of the area that it covers, with edges weighted in
/// steps of 1/256 pixel and halves rounded up. Sums have 32 bits: means are right for areas of up
/// to 65,000 pixels.
void draw_scaled_part(ConstImageView picture, AxisScale across, AxisScale down, int left, int top,
                      ImageView to);
/// Fills `to` with the whole picture in the same way: shrunk, thin lines become grey ones, where
/// sampling would drop them.
void draw_scaled(ConstImageView picture, ImageView to);

} // namespace kelvane
