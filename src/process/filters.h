// The filters as they are run on a picture and its work buffer.
#pragma once

#include "process/convolution.h"
#include "process/rank.h"

namespace kelvane {

// `image` and `buffer` have one size and share no pixels; except by `convolve_to_buffer` the
// buffer's content is lost. Borders that the kernel does not fit into keep their pixels, as does a
// picture smaller than the kernel. The events are those of each step of a filter: the last two
// filters raise `Complete` twice, for the convolution and for the sum.

/// The picture becomes the picture convolved.
void convolve_in_place(ImageView image, ImageView buffer, const FilterKernel& kernel,
                       ProgressObserver* observer = nullptr);
/// The picture stays, the buffer becomes the picture convolved.
void convolve_to_buffer(ConstImageView image, ImageView buffer, const FilterKernel& kernel,
                        ProgressObserver* observer = nullptr);
/// The picture becomes the rank filter's result.
void rank_in_place(ImageView image, ImageView buffer, Rank rank,
                   ProgressObserver* observer = nullptr);
/// Twice the picture less its 3 x 3 blur.
void unsharp(ImageView image, ImageView buffer, ProgressObserver* observer = nullptr);
/// The picture convolved, and 127 added everywhere, borders included.
void emboss(ImageView image, ImageView buffer, const FilterKernel& kernel,
            ProgressObserver* observer = nullptr);

} // namespace kelvane
