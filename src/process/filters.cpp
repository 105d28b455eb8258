#include "process/filters.h"

#include "process/combine.h"

namespace kelvane {

void convolve_in_place(ImageView image, ImageView buffer, const FilterKernel& kernel,
                       ProgressObserver* observer) {
    copy_pixels(image, buffer);
    convolve(image, buffer, kernel, observer);
    copy_pixels(buffer, image);
}

void rank_in_place(ImageView image, ImageView buffer, Rank rank, ProgressObserver* observer) {
    copy_pixels(image, buffer);
    rank_filter(image, buffer, rank, observer);
    copy_pixels(buffer, image);
}

void unsharp(ImageView image, ImageView buffer, ProgressObserver* observer) {
    copy_pixels(image, buffer);
    convolve(image, buffer, predefined_kernel(kBlur), observer);
    AddImages(buffer, image, {-1, 0, 0, 0}, {2, 0, 0, 0}, observer);
}

void emboss(ImageView image, ImageView buffer, const FilterKernel& kernel,
            ProgressObserver* observer) {
    copy_pixels(image, buffer);
    convolve(image, buffer, kernel, observer);
    AddImages(buffer, image, {1, 127, 127, 127}, {0, 0, 0, 0}, observer);
}

} // namespace kelvane
