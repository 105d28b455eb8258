// Render2: the size limit that applies when a picture is opened.
#pragma once

#include "image/dib_section.h"

namespace kelvane {

/// The largest picture that keeps its size, in pixels.
inline constexpr int kWidthLimit = 3200;
inline constexpr int kHeightLimit = 2400;

/// Reduces a picture larger than about 3200 x 2400 by a whole factor, as opening does. Width and
/// height are divided by the smallest whole number that brings both within the limit: 3200 x 2400
/// keeps its size, 3201 x 2400 is halved. No side becomes 0. False when there was no memory for the
/// reduced picture; `picture` then stays as it was.
bool Render2(cDIBSection& picture);

} // namespace kelvane
