// Render2: the size limit that applies when a picture is opened.
#pragma once

#include "image/dib_section.h"

namespace kelvane {

/// Reduces a picture larger than about 3200 x 2400 by a whole factor, as opening does. Width and
/// height are divided by the factor that brings the longer excess under the limit; 3200 x 2400
/// itself keeps its size, one pixel more halves it. No side becomes 0. False when there was no
/// memory for the reduced picture; `picture` then stays as it was.
bool Render2(cDIBSection& picture);

} // namespace kelvane
