#include "process/filters.h"

#include "process/combine.h"

#include <algorithm>
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

// The bytes of one row that a kernel of this reach fills, none in the rows of the border.
struct Interior {
    int begin;
    int count;
};

Interior interior_of(const ImageView& image, int border, int y) {
    const bool empty = image.width <= 2 * border || y < border || y >= image.height - border;
    return {3 * border, empty ? 0 : 3 * (image.width - 2 * border)};
}

// Finished rows go straight from the target to the picture, whose row nobody reads any more.
RowDone copying_back(TargetRows target, ImageView image, int border) {
    return [=](int y) {
        const Interior interior = interior_of(image, border, y);
        std::memcpy(image.row(y) + interior.begin, target.row(y) + interior.begin,
                    static_cast<std::size_t>(interior.count));
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
    const TargetRows target(buffer, target_rows(kernel, buffer.height));
    convolve(image, target, kernel, observer, copying_back(target, image, kernel.half()));
}

void convolve_to_buffer(ConstImageView image, ImageView buffer, const FilterKernel& kernel,
                        ProgressObserver* observer) {
    copy_borders(image, buffer, kernel.half());
    convolve(image, buffer, kernel, observer);
}

void rank_in_place(ImageView image, ImageView buffer, Rank rank, ProgressObserver* observer) {
    const TargetRows target(buffer, 2);
    rank_filter(image, target, rank, observer, copying_back(target, image, 1));
}

void unsharp(ImageView image, ImageView buffer, ProgressObserver* observer) {
    const ProgressReporter addition(observer);
    const FilterKernel kernel = predefined_kernel(kBlur);
    const TargetRows blurred(buffer, target_rows(kernel, buffer.height));
    const ByteAdder twice_less_blurred({-1, 0, 0, 0}, {2, 0, 0, 0});
    // The border's blur is the border itself: twice less once leaves it as it is.
    convolve(image, blurred, kernel, observer, [&](int y) {
        const Interior interior = interior_of(image, kernel.half(), y);
        twice_less_blurred.add(blurred.row(y) + interior.begin, image.row(y) + interior.begin,
                               interior.count);
    });
    addition.complete();
}

void emboss(ImageView image, ImageView buffer, const FilterKernel& kernel,
            ProgressObserver* observer) {
    const ProgressReporter addition(observer);
    const TargetRows target(buffer, target_rows(kernel, buffer.height));
    const RowDone copy_back = copying_back(target, image, kernel.half());
    convolve(image, target, kernel, observer, [&](int y) {
        copy_back(y);
        lift(image.row(y), 3 * image.width);
    });
    addition.complete();
}

} // namespace kelvane
