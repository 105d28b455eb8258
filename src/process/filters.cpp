#include "process/filters.h"

#include "process/combine.h"

#include <algorithm>
#include <cstring>

namespace kelvane {
namespace {

// Calls action(byte, count, y) for the bytes that a kernel of this reach does not fill.
template <typename Action> void for_each_border(int width, int height, int border, Action action) {
    const bool all_border = width <= 2 * border || height <= 2 * border;
    for (int y = 0; y < height; ++y) {
        if (all_border || y < border || y >= height - border) {
            action(0, 3 * width, y);
            continue;
        }
        action(0, 3 * border, y);
        action(3 * (width - border), 3 * border, y);
    }
}

PartDone copying_to(ImageView image) {
    return [=](int byte, int count, int y, const std::uint8_t* filtered) {
        std::memcpy(image.row(y) + byte, filtered, static_cast<std::size_t>(count));
    };
}

// Adds 127, limited to 255.
void lift(std::uint8_t* bytes, int count) {
    for (int k = 0; k < count; ++k)
        bytes[k] = static_cast<std::uint8_t>(std::min<std::uint8_t>(bytes[k], 128) + 127);
}

} // namespace

void convolve_in_place(ImageView image, ImageView buffer, const FilterKernel& kernel,
                       ProgressObserver* observer) {
    const TargetRows target(buffer, rows_in_use(kernel));
    convolve(image, target, kernel, observer, copying_to(image));
}

void convolve_to_buffer(ConstImageView image, ImageView buffer, const FilterKernel& kernel,
                        ProgressObserver* observer) {
    for_each_border(image.width, image.height, kernel.half(), [&](int byte, int count, int y) {
        std::memcpy(buffer.row(y) + byte, image.row(y) + byte, static_cast<std::size_t>(count));
    });
    convolve(image, buffer, kernel, observer);
}

void rank_in_place(ImageView image, ImageView buffer, Rank rank, ProgressObserver* observer) {
    const TargetRows target(buffer, 2);
    rank_filter(image, target, rank, observer, copying_to(image));
}

void unsharp(ImageView image, ImageView buffer, ProgressObserver* observer) {
    const ProgressReporter addition(observer);
    const FilterKernel kernel = predefined_kernel(kBlur);
    const ByteAdder twice_less_blurred({-1, 0, 0, 0}, {2, 0, 0, 0});
    // On the border the blur is the picture itself: 2 x picture - blur leaves it unchanged.
    convolve(image, TargetRows(buffer, rows_in_use(kernel)), kernel, observer,
             [&](int byte, int count, int y, const std::uint8_t* blurred) {
                 twice_less_blurred.add(blurred, image.row(y) + byte, count);
             });
    addition.complete();
}

void emboss(ImageView image, ImageView buffer, const FilterKernel& kernel,
            ProgressObserver* observer) {
    const ProgressReporter addition(observer);
    const PartDone copy = copying_to(image);
    convolve(image, TargetRows(buffer, rows_in_use(kernel)), kernel, observer,
             [&](int byte, int count, int y, const std::uint8_t* filtered) {
                 copy(byte, count, y, filtered);
                 lift(image.row(y) + byte, count);
             });
    for_each_border(image.width, image.height, kernel.half(),
                    [&](int byte, int count, int y) { lift(image.row(y) + byte, count); });
    addition.complete();
}

} // namespace kelvane
