// The check of lines and gaps: what is too thin to be printed.
//
// A dark pixel is too thin when no disc of the wanted diameter inside the dark area covers it, a
// light one when no such disc inside the light area does. The picture lies on endless light, so
// light outside the ink is no gap, nor is a bay that is wide enough. Corners of thicker shapes are
// not reported, nor are spurs and notches shorter than about three quarters of the limit.
#pragma once

#include "export/bit_picture.h"
#include "export/thin_places.h"

#include <cstdint>
#include <optional>

namespace kelvane {

/// The narrowest place. All lengths and positions are in pixels, row 0 at the bottom.
struct Thinnest {
    /// A whole number; exact for bars of whole pixels along the axes, at other angles within one
    /// pixel and 20 %.
    double width;
    /// A pixel of the place, one of those that are too thin.
    int x;
    int y;
};

/// What is thinner than a limit.
struct WidthReport {
    /// Areas of too thin pixels that hang together, by corners too.
    std::uint64_t places = 0;
    /// Present when there are places.
    std::optional<Thinnest> thinnest;
    /// The pixels of the places, in a picture of the same size.
    BitPicture too_thin;
};

/// Checks the pixels that `drawn_pixels` gives. Bars of whole pixels along the axes are reported
/// when they are thinner than `limit`; at any angle bars thinner than 0.8 x limit - 1 are, and
/// those thicker than 1.2 x limit + 1 are not. A pixel is 1 wide, so nothing is thinner than a
/// limit of 1 or less. Limits beyond twice the picture's shorter side act like that one.
///
/// The time grows slowly with the limit. To measure the thinnest line of a picture that
/// has no places at the wanted limit, ask with a multiple of it.
///
/// Needs memory for two pictures besides the one that is checked, for gaps larger ones by the
/// limit, and about 100 bytes for each run of a row. Throws `std::bad_alloc`.
///
/// Reports the rows of several passes, each with an initialising event; an exception of `observer`
/// stops it.
WidthReport check_widths(const BitPicture& drawn, WidthOf what, double limit,
                         ProgressObserver* observer = nullptr);

} // namespace kelvane
