// Ends of bars at right angles to their sides.
#pragma once

#include "export/smooth_path.h"
#include "export/straight_pieces.h"

#include <vector>

namespace kelvane {

/// The digital image of a side of n pixels tells its direction only to about 60/n degrees. Where
/// the pieces on both sides of a shorter one are parallel, they tell it better: they are the sides
/// of a bar, the piece between is its end. It gets a line at right angles to them, if there is one
/// that follows the path as well, and several pieces between become one. Where no line does, the
/// longest of them learns the direction only (`across`).
///
/// In a ring the last piece comes before the first.
void square_ends(const ExactPath& path, const Tube& tube, bool ring,
                 std::vector<StraightPiece>& pieces);

} // namespace kelvane
