#include "process/convolution.h"

#include "process/column_strips.h"
#include "process/filter_rows.h"
#include "process/strips.h"

#include <algorithm>
#include <cstdlib>

namespace kelvane {
namespace {

// True when no pixels can take the sum out of 16 signed bits, intermediate sums included.
bool fits_narrow(const FilterKernel& kernel) {
    std::int64_t largest = 0;
    for (int j = -kernel.half(); j <= kernel.half(); ++j)
        for (int i = -kernel.half(); i <= kernel.half(); ++i)
            largest += std::abs(std::int64_t{kernel.cell(i, j)}) * 255;
    return kernel.weight() > 0 && largest <= 32767;
}

// Index of the kernel's column i among the distinct columns; a new one is added.
int place_of_column(NarrowKernel& narrow, const FilterKernel& kernel, int i) {
    std::int16_t* column = narrow.cell[narrow.columns];
    for (int j = -kernel.half(); j <= kernel.half(); ++j)
        column[j + kernel.half()] = static_cast<std::int16_t>(kernel.cell(i, j));
    for (int known = 0; known < narrow.columns; ++known)
        if (std::equal(column, column + narrow.size, narrow.cell[known])) return known;
    return narrow.columns++;
}

NarrowKernel narrow_kernel(const FilterKernel& kernel) {
    NarrowKernel narrow{};
    narrow.size = kernel.size();
    narrow.weight = kernel.weight();
    for (int i = -kernel.half(); i <= kernel.half(); ++i)
        narrow.column_at[i + kernel.half()] = place_of_column(narrow, kernel, i);
    return narrow;
}

Taps taps_of(const FilterKernel& kernel, std::ptrdiff_t row_step) {
    Taps taps;
    taps.weight = kernel.weight();
    const auto add = [&](int i, int j) {
        taps.offset[taps.count] = j * row_step + 3 * i;
        taps.coefficient[taps.count] = kernel.cell(i, j);
        ++taps.count;
    };
    for (int j = -kernel.half(); j <= kernel.half(); ++j)
        for (int i = -kernel.half(); i <= kernel.half(); ++i)
            if (kernel.cell(i, j) != 0) add(i, j);
    return taps;
}

bool fits_bytes(const Taps& taps) {
    return std::all_of(taps.coefficient, taps.coefficient + taps.count,
                       [](std::int32_t value) { return value >= -128 && value <= 127; });
}

// The row functions for one kernel and picture.
class Convolver {
  public:
    Convolver(const FilterKernel& kernel, std::ptrdiff_t row_step)
        : row_step_(row_step), taps_(taps_of(kernel, row_step)), narrow_(fits_narrow(kernel)) {
        if (!narrow_) return;
        columns_ = narrow_kernel(kernel);
        // Sharing columns pays for large kernels with few distinct ones.
        const bool shares = kernel.size() > 3 && columns_.columns < kernel.size();
        few_ = rows_.few && !shares && fits_bytes(taps_);
    }

    void convolve_span(const std::uint8_t* from, std::uint8_t* to, int count) const {
        if (few_)
            rows_.few(from, to, count, taps_);
        else if (narrow_)
            rows_.narrow(from, row_step_, to, count, columns_);
        else
            rows_.wide(from, to, count, taps_);
    }

  private:
    const FilterRows& rows_ = filter_rows();
    std::ptrdiff_t row_step_;
    Taps taps_;
    NarrowKernel columns_{};
    bool narrow_;
    bool few_ = false;
};

// Larger kernels are slow enough to need progress in smaller steps.
int strip_for(const FilterKernel& kernel, ConstImageView picture) {
    const int strip = strip_pixels(picture.width, picture.height);
    return kernel.size() <= 5 ? strip : std::min(strip, kLongestSpan / 3);
}

} // namespace

void convolve(ConstImageView from, TargetRows to, const FilterKernel& kernel,
              ProgressObserver* observer, const PartDone& done) {
    const ProgressReporter progress(observer);
    const Convolver convolver(kernel, from.row_step);
    walk_interior(from, kernel.half(), strip_for(kernel, from), to, progress, done,
                  [&](int byte, int count, int y) {
                      convolver.convolve_span(from.row(y) + byte, to.row(y) + byte, count);
                  });
}

} // namespace kelvane
