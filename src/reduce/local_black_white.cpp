#include "reduce/local_black_white.h"

#include "process/point_rows.h"
#include "reduce/local_rows.h"

#include <algorithm>
#include <cstddef>
#include <vector>

namespace kelvane {
namespace {

// The greys of the rows that a neighbourhood reaches, read before the result overwrites them.
class GreyRows {
  public:
    GreyRows(ConstImageView source, int count)
        : source_(source), count_(std::min(count, source.height)),
          greys_(static_cast<std::size_t>(source.width) * static_cast<std::size_t>(count_)) {}

    /// Row y, the nearest where there is none. Rows are asked for in ascending order; each stays
    /// until `count` later ones were read.
    const std::uint8_t* row(int y) {
        y = std::clamp(y, 0, source_.height - 1);
        for (; read_ <= y; ++read_)
            point_rows().luminance(source_.row(read_), place(read_), source_.width);
        return place(y);
    }

  private:
    std::uint8_t* place(int y) {
        return greys_.data() + std::ptrdiff_t{y % count_} * source_.width;
    }

    ConstImageView source_;
    int count_;
    int read_ = 0; // rows
    std::vector<std::uint8_t> greys_;
};

// Sums of the greys in a neighbourhood that moves up row by row.
class MovingSums {
  public:
    MovingSums(GreyRows& greys, int width, int height, int half)
        : greys_(greys), width_(width), half_(half), columns_(static_cast<std::size_t>(width)),
          sums_(static_cast<std::size_t>(width + 2 * half) + 1) {
        // One row below the picture: the lowest row stands for those below it, the topmost for
        // those above.
        add(0, half + 2);
        for (int y = 1; y < std::min(half, height); ++y)
            add(y, 1);
        if (half > height) add(height - 1, half - height);
    }

    /// Moves to row y. The sum of the columns around column x, repeated at the edges, is the
    /// difference of sums()[x + 2 half + 1] and sums()[x].
    void move_to(int y) {
        const std::uint8_t* leaves = greys_.row(y - 1 - half_);
        const std::uint8_t* enters = greys_.row(y + half_);
        const std::uint32_t first = columns_[0] + static_cast<std::uint32_t>(enters[0] - leaves[0]);
        std::uint32_t* sum = repeat(sums_.data(), first);
        rows_.advance(enters, leaves, columns_.data(), sum, width_);
        repeat(sum + width_, columns_.back());
    }
    const std::uint32_t* sums() const { return sums_.data(); }

  private:
    void add(int y, int times) {
        const std::uint8_t* row = greys_.row(y);
        for (std::size_t x = 0; x < columns_.size(); ++x)
            columns_[x] += static_cast<std::uint32_t>(times * row[x]);
    }

    // Half a neighbourhood of equal columns.
    std::uint32_t* repeat(std::uint32_t* sum, std::uint32_t column) const {
        for (const std::uint32_t* end = sum + half_; sum < end; ++sum)
            sum[1] = sum[0] + column;
        return sum;
    }

    const LocalRows& rows_ = local_rows();
    GreyRows& greys_;
    int width_;
    int half_;
    std::vector<std::uint32_t> columns_;
    std::vector<std::uint32_t> sums_; // of all columns before; the first is 0
};

} // namespace

void LocalBlackWhite(ImageView source, ImageView destination, int size, int offset,
                     ProgressObserver* observer) {
    const ProgressReporter progress(observer);
    const PointRows& rows = point_rows();
    GreyRows greys(source, size + 1);
    MovingSums sums(greys, source.width, source.height, size / 2);
    std::vector<std::uint8_t> light(static_cast<std::size_t>(source.width));
    progress.init(source.height - 1);
    for (int y = 0; y < source.height; ++y) {
        sums.move_to(y);
        local_rows().compare(greys.row(y), sums.sums(), size, offset, light.data(), source.width);
        rows.spread(light.data(), source.row(y), source.width);
        if (destination.bits != source.bits)
            rows.spread(light.data(), destination.row(y), source.width);
        progress.at(y);
    }
    progress.complete();
}

} // namespace kelvane
