// Reductions of a colour picture to pure black and white.
//
// All take a source and a destination of one size, which may be the same picture; both end up
// holding the result. Columns are reported by their byte offsets, ascending.
#pragma once

#include "image/image_view.h"
#include "image/progress.h"

namespace kelvane {

/// The largest limit of a grey or a mean: everything turns black.
inline constexpr int kLargestLimit = 255;
/// The largest limit of a step between colours: none is as large, everything turns white.
inline constexpr int kLargestEdgeLimit = 256;

/// Black where the pixel's grey (see `GrayScale`) is at most `limit`, white elsewhere. The events
/// of `GrayScale` come before its own.
void BlackAndWhite(ImageView source, ImageView destination, int limit,
                   ProgressObserver* observer = nullptr);
/// The same operation by its second name.
void BlackAndWhite2(ImageView source, ImageView destination, int limit,
                    ProgressObserver* observer = nullptr);

/// Which channels `LineArt2` looks at.
struct Channels {
    bool red = false;
    bool green = false;
    bool blue = false;

    bool any() const { return red || green || blue; }
    bool operator==(const Channels&) const = default;
};

/// Black where the mean of the chosen channels, rounded with halves to even, is at most `limit`.
/// Throws `std::invalid_argument` when no channel is chosen.
void LineArt2(ImageView source, ImageView destination, int limit, Channels channels,
              ProgressObserver* observer = nullptr);

/// Black where red x 65536 + green x 256 + blue differs from the left neighbour's by at least the
/// cube of `limit` (-32768 to 32767), white elsewhere. The destination's column 0 and row 0 keep
/// what they held; columns are reported from the second on.
void EdgeDetect2(ImageView source, ImageView destination, int limit,
                 ProgressObserver* observer = nullptr);

} // namespace kelvane
