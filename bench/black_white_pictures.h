// Pictures to measure on, made anew each time: the size of a full scan, black and white.
#pragma once

#include "bench_pictures.h"

namespace kelvane::bench {

/// Lines of letter-like strokes and bowls, as in a scanned page.
cDIBSection lettering();
/// A smooth field with detail in several sizes, thresholded.
cDIBSection photo_field();
/// The same field through an 8 x 8 ordered dither.
cDIBSection ordered_dither();
/// Every second pixel dark.
cDIBSection checkerboard();

} // namespace kelvane::bench
