#include "view/axis_scale.h"

#include <algorithm>
#include <cstdint>

namespace kelvane {

int AxisScale::pixel_at(int position) const {
    const std::int64_t inside = std::clamp(position, 0, extent - 1);
    return static_cast<int>((2 * inside + 1) * size / (2 * std::int64_t{extent}));
}

// The smallest position with pixel_at(position) >= pixel.
int AxisScale::edge_of(int pixel) const {
    return static_cast<int>((2 * std::int64_t{pixel} * extent + size - 1) /
                            (2 * std::int64_t{size}));
}

} // namespace kelvane
