#include "reduce/reduction.h"

#include "reduce/local_black_white.h"

#include <cstdlib>

namespace kelvane {

bool Neighbourhood::valid() const {
    return size % 2 != 0 && size >= kLeastNeighbourhood && size <= kLargestNeighbourhood &&
           std::abs(offset) <= kLargestOffset;
}

bool Reduction::possible() const {
    if (kind == ReductionKind::Colours && !channels.any()) return false;
    if (kind == ReductionKind::UnevenLight && !neighbourhood.valid()) return false;
    return largest_speck >= 0;
}

void reduce_by_kind(ImageView source, ImageView destination, const Reduction& reduction,
                    ProgressObserver* observer) {
    switch (reduction.kind) {
    case ReductionKind::Brightness:
        return BlackAndWhite(source, destination, reduction.limit, observer);
    case ReductionKind::Colours:
        return LineArt2(source, destination, reduction.limit, reduction.channels, observer);
    case ReductionKind::Edges:
        return EdgeDetect2(source, destination, reduction.limit, observer);
    case ReductionKind::UnevenLight:
        return LocalBlackWhite(source, destination, reduction.neighbourhood.size,
                               reduction.neighbourhood.offset, observer);
    }
}

} // namespace kelvane
