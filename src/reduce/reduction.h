// A reduction to black and white as one value: what the reduction dialog answers and the engine
// carries out.
#pragma once

#include "reduce/black_white.h"

namespace kelvane {

/// `BlackAndWhite`, `LineArt2`, `EdgeDetect2` and `LocalBlackWhite`, by their numbers in the
/// reduction dialog.
enum class ReductionKind { Brightness = 1, Colours = 2, Edges = 3, UnevenLight = 4 };

/// The arguments of `LocalBlackWhite`.
struct Neighbourhood {
    int size = 0;
    int offset = 0;

    /// False for numbers that `LocalBlackWhite` does not take.
    bool valid() const;
    bool operator==(const Neighbourhood&) const = default;
};

/// A reduction with its arguments. The steps: the kind's own, the exchange of black and white, the
/// removal of specks.
struct Reduction {
    ReductionKind kind = ReductionKind::Brightness;
    int limit = 0;                 ///< not for `UnevenLight`
    Channels channels{};           ///< for `Colours` only
    Neighbourhood neighbourhood{}; ///< for `UnevenLight` only
    bool inverted = false;         ///< see `NegativeImage`
    int largest_speck = 0;         ///< pixels, see `Despeckle`; 0 leaves all specks

    bool has_limit() const { return kind != ReductionKind::UnevenLight; }
    /// A pixel of the result depends on pixels farther away than its direct neighbours.
    bool looks_around() const { return kind == ReductionKind::UnevenLight || largest_speck > 0; }
    /// False for arguments that the kind does not take.
    bool possible() const;
    bool operator==(const Reduction&) const = default;
};

/// Carries out the first step, that of the kind. `reduction` is `possible`.
void reduce_by_kind(ImageView source, ImageView destination, const Reduction& reduction,
                    ProgressObserver* observer = nullptr);

} // namespace kelvane
