// Tells lines that are too thin from corners in what no disc covers.
#pragma once

#include "export/bit_picture.h"
#include "image/progress.h"

#include <cstdint>

namespace kelvane {

/// What is measured: dark lines, or the light gaps between and inside them.
enum class WidthOf { Lines, Gaps };

/// Areas of pixels that hang together, by corners too.
struct ThinPlaces {
    std::uint64_t count = 0;
    /// Size of the largest area and a pixel of it, row 0 at the bottom; 0 without an area.
    std::uint64_t pixels = 0;
    int x = 0;
    int y = 0;
};

/// `residue` are the pixels of lines or gaps that no disc of `diameter` covers, `dark` all dark
/// pixels; both have one size. Clears the areas of `residue` that are corners or roughness of
/// thicker shapes and returns what stays.
///
/// An area that touches no disc is a thin place. One that touches discs in two or more places
/// links thicker parts; it is a thin place unless it is small. One that touches them in a single
/// place is an arm, and a thin place when it is longer than about three quarters of the diameter,
/// or a corner. Corners count by their area: those above 30 degrees are no thin places.
///
/// Reports rows.
ThinPlaces keep_thin_places(const BitPicture& dark, WidthOf what, int diameter, BitPicture& residue,
                            ProgressObserver* observer);

/// The first thin place that has pixels in common with `within`, and one of those; the count is 1
/// or 0. Leaves `residue` half done. Reports rows.
ThinPlaces find_thin_place(const BitPicture& dark, WidthOf what, int diameter, BitPicture& residue,
                           const BitPicture& within, ProgressObserver* observer);

} // namespace kelvane
