#include "dialogs/preview_size.h"

#include <algorithm>
#include <cmath>

namespace kelvane {
namespace {

int shorter_side(int shorter, int longer, int edge) {
    const double side = static_cast<double>(shorter) / std::max(1, longer) * edge;
    return std::max(1, static_cast<int>(std::nearbyint(side)));
}

} // namespace

PreviewSize preview_size(int width, int height, int edge) {
    if (width >= height) return {edge, shorter_side(height, width, edge)};
    return {shorter_side(width, height, edge), edge};
}

} // namespace kelvane
