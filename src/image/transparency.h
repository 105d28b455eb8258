// What becomes of a file's transparent pixels in a picture, which has none.
#pragma once

#include <utility>

namespace kelvane {

enum class Transparency {
    Paper, ///< white paper shows through
    Ink,   ///< ink on white paper: the more opaque the blacker, whatever the colour
};

/// What `open(Transparency)` returns for paper, or for ink when `shows(picture)` is false for paper
/// and true for ink; and which of both it is.
template <class Open, class Shows> auto open_visibly(Open open, Shows shows) {
    std::pair opened{open(Transparency::Paper), Transparency::Paper};
    if (shows(opened.first)) return opened;
    auto ink = open(Transparency::Ink);
    if (shows(ink)) opened = {std::move(ink), Transparency::Ink};
    return opened;
}

} // namespace kelvane
