// Whether a smooth drawing is what it is to be, in exact integer arithmetic and with no knowledge
// of how it was made.
#pragma once

#include "export/script_reader.h"

#include <string>
#include <vector>

namespace kelvane::test {

/// Why `smooth` is no smooth drawing of `exact`, or an empty text. Both are the polygons (or
/// chains) of scripts of one picture, the last `strips` of them strips.
///
/// Strips are the same. The other outlines start at the left end of their lowest edge, have no
/// equal points nor collinear edges in a row, turn as the exact ones do, and touch, themselves or
/// another, only where the exact drawing does. In the maximum norm, no point of an outline is
/// further than `tolerance` (pixels, a multiple of 1/100) from the exact outline, nor the other way
/// round.
std::string smooth_fault(std::vector<Path> smooth, std::vector<Path> exact, std::size_t strips,
                         double tolerance);

/// Twice the area within a closed path in square sixteenths of a pixel; negative when clockwise.
long long doubled_area(const Path& path);

} // namespace kelvane::test
