// What becomes of a file's transparent pixels in a picture, which has none.
#pragma once

namespace kelvane {

enum class Transparency {
    kPaper, ///< white paper shows through
    kInk,   ///< ink on white paper: the more opaque the blacker, whatever the colour
};

} // namespace kelvane
