#include "image/size_limit.h"

#include <algorithm>

namespace kelvane {
namespace {

int times_over(int side, int limit) {
    return side / limit + (side % limit != 0 ? 1 : 0);
}

int reduction_factor(int width, int height) {
    const double across = static_cast<double>(width) / kWidthLimit;
    const double up = static_cast<double>(height) / kHeightLimit;
    return up >= across ? times_over(height, kHeightLimit) : times_over(width, kWidthLimit);
}

} // namespace

bool Render2(cDIBSection& picture) {
    const int width = picture.Width();
    const int height = picture.Height();
    if (width / kWidthLimit == 0 && height / kHeightLimit == 0) return true;
    const int factor = reduction_factor(width, height);
    if (factor == 1) return true;
    cDIBSection reduced =
        picture.Resample(std::max(height / factor, 1), std::max(width / factor, 1));
    if (reduced.empty()) return false;
    picture = std::move(reduced);
    return true;
}

} // namespace kelvane
