#include "process/filters.h"

#include "process/combine.h"

#include <cstring>

namespace kelvane {
namespace {

// The filters overwrite the rest.
void copy_borders(ConstImageView from, ImageView to, int border) {
    const bool all_border = from.width <= 2 * border || from.height <= 2 * border;
    const auto row_bytes = static_cast<std::size_t>(from.width) * 3;
    const auto border_bytes = static_cast<std::size_t>(border) * 3;
    for (int y = 0; y < from.height; ++y) {
        if (all_border || y < border || y >= from.height - border) {
            std::memcpy(to.row(y), from.row(y), row_bytes);
            continue;
        }
        std::memcpy(to.row(y), from.row(y), border_bytes);
        std::memcpy(to.row(y) + row_bytes - border_bytes, from.row(y) + row_bytes - border_bytes,
                    border_bytes);
    }
}

RowDone copying_back(ConstImageView buffer, ImageView image) {
    return [=](int y) {
        std::memcpy(image.row(y), buffer.row(y), static_cast<std::size_t>(image.width) * 3);
    };
}

// Convolves into the buffer and adds that to the picture.
void convolve_and_add(ImageView image, ImageView buffer, const FilterKernel& kernel,
                      const ByteAdder& adder, ProgressObserver* observer) {
    copy_borders(image, buffer, kernel.half());
    convolve(image, buffer, kernel, observer,
             [&](int y) { adder.add(buffer.row(y), image.row(y), 3 * image.width); });
}

} // namespace

void convolve_in_place(ImageView image, ImageView buffer, const FilterKernel& kernel,
                       ProgressObserver* observer) {
    copy_borders(image, buffer, kernel.half());
    convolve(image, buffer, kernel, observer, copying_back(buffer, image));
}

void convolve_to_buffer(ConstImageView image, ImageView buffer, const FilterKernel& kernel,
                        ProgressObserver* observer) {
    copy_borders(image, buffer, kernel.half());
    convolve(image, buffer, kernel, observer);
}

void rank_in_place(ImageView image, ImageView buffer, Rank rank, ProgressObserver* observer) {
    copy_borders(image, buffer, 1);
    rank_filter(image, buffer, rank, observer, copying_back(buffer, image));
}

void unsharp(ImageView image, ImageView buffer, ProgressObserver* observer) {
    const ProgressReporter addition(observer);
    const ByteAdder twice_less_blurred({-1, 0, 0, 0}, {2, 0, 0, 0});
    convolve_and_add(image, buffer, predefined_kernel(kBlur), twice_less_blurred, observer);
    addition.complete();
}

void emboss(ImageView image, ImageView buffer, const FilterKernel& kernel,
            ProgressObserver* observer) {
    const ProgressReporter addition(observer);
    const ByteAdder lifted({1, 127, 127, 127}, {0, 0, 0, 0});
    convolve_and_add(image, buffer, kernel, lifted, observer);
    addition.complete();
}

} // namespace kelvane
