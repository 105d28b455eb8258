#include "process/filter_kernel.h"

#include <algorithm>
#include <cstdlib>

namespace kelvane {
namespace {

// Calls cell_value(i, j) for every cell; the weight becomes their sum.
template <typename CellValue> FilterKernel build(int size, CellValue cell_value) {
    FilterKernel kernel(size);
    std::int32_t sum = 0;
    for (int i = -kernel.half(); i <= kernel.half(); ++i)
        for (int j = -kernel.half(); j <= kernel.half(); ++j) {
            kernel.set_cell(i, j, cell_value(i, j));
            sum += kernel.cell(i, j);
        }
    kernel.set_weight(sum);
    return kernel;
}

FilterKernel blur(int size) {
    return build(size, [](int, int) { return 1; });
}

// The centre is size x size / 2, halves to the even neighbour: 4.5 gives 4, 12.5 gives 12.
FilterKernel soften(int size) {
    return build(size, [size](int i, int j) {
        const int distance = std::max(std::abs(i), std::abs(j));
        return distance > 0 ? size / 2 - distance + 1 : size * size / 2;
    });
}

FilterKernel sharpen() {
    return build(3, [](int i, int j) { return i == 0 && j == 0 ? 15 : -1; });
}

FilterKernel sharpen_more() {
    return build(3, [](int i, int j) { return i == 0 && j == 0 ? 5 : i == 0 || j == 0 ? -1 : 0; });
}

FilterKernel emboss() {
    FilterKernel kernel(3, 1);
    kernel.set_cell(-1, -1, -1);
    kernel.set_cell(1, 1, 1);
    return kernel;
}

// Both passes of Emphasize use this kernel with fixed weights in place of its sum.
FilterKernel emphasize(std::int32_t weight) {
    FilterKernel kernel = sharpen();
    kernel.set_weight(weight);
    return kernel;
}

} // namespace

bool has_predefined_kernel(int filter_type) {
    return (filter_type >= kBlur && filter_type <= kSharpenMore) || filter_type == kEmboss ||
           filter_type == kEmphasizeFirst || filter_type == kEmphasizeSecond;
}

FilterKernel predefined_kernel(int filter_type) {
    switch (filter_type) {
    case kBlurMore:
        return blur(5);
    case kSoften:
        return soften(3);
    case kSoftenMore:
        return soften(5);
    case kSharpen:
        return sharpen();
    case kSharpenMore:
        return sharpen_more();
    case kEmboss:
        return emboss();
    case kEmphasizeFirst:
        return emphasize(20);
    case kEmphasizeSecond:
        return emphasize(1);
    default:
        return blur(3);
    }
}

} // namespace kelvane
