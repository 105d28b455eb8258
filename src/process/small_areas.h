// Areas of connected pixels, by their size.
#pragma once

#include "process/bit_rows.h"

#include <cstdint>
#include <functional>

namespace kelvane {

/// Which pixels are neighbours: those that share a side, or a corner as well.
enum class Neighbours { Four, Eight };

/// Clears every area of connected ones that has at most `most` pixels. Takes time in proportion to
/// the picture's words and the runs of its ones. Two passes over the rows; `band_done` receives
/// how many rows they passed before the one or two that are done, ascending from 0.
void clear_small_areas(BitRows& picture, Neighbours neighbours, std::uint32_t most,
                       const std::function<void(int)>& band_done);

} // namespace kelvane
