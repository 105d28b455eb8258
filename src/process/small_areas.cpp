// Rows are walked in bands whose runs are connected: a band is one row or, where corners connect,
// two, as ones in neighbouring columns of two rows touch in any case. Runs of neighbouring bands
// that touch are united to areas.
#include "process/small_areas.h"

#include "process/area_rows.h"

#include <algorithm>
#include <memory>
#include <utility>
#include <vector>

namespace kelvane {
namespace {

class SmallAreas {
  public:
    SmallAreas(BitRows& picture, Neighbours neighbours)
        : picture_(picture), corners_connect_(neighbours == Neighbours::Eight),
          blank_(picture.words()) {}

    void clear(std::uint32_t most, const std::function<void(int)>& band_done) {
        if (most > 0) clear_single_pixels();
        const RunNumber runs = count_runs();
        const auto parents = std::make_unique_for_overwrite<RunNumber[]>(runs);
        const auto pixels = std::make_unique_for_overwrite<std::uint32_t[]>(std::size_t{runs} + 1);
        const RunForest forest{parents.get(), pixels.get()};
        unite_runs(forest, band_done);
        sum_up(forest, runs);
        RunNumber run = 0;
        for (int y = 0; y < picture_.height(); y += band_rows()) {
            rows_.clear(band(y), forest, most, run);
            band_done(picture_.height() + y);
        }
    }

  private:
    struct Starts {
        explicit Starts(std::size_t words) : columns(words), first(words) {}
        RunStarts view() { return {columns.data(), first.data()}; }
        std::vector<BitWord> columns;
        std::vector<RunNumber> first;
    };

    int band_rows() const { return corners_connect_ ? 2 : 1; }
    BitWord* row_or_blank(int y) { return y < picture_.height() ? picture_.row(y) : blank_.data(); }
    RowBand band(int y) {
        return {picture_.row(y), corners_connect_ ? row_or_blank(y + 1) : blank_.data(),
                picture_.words()};
    }

    // Isolated ones need no run, and dither patterns are full of them.
    void clear_single_pixels() {
        const std::size_t words = picture_.words();
        std::vector<BitWord> row(words), below(words);
        for (int y = 0; y < picture_.height(); ++y) {
            const BitWord* above = row_or_blank(y + 1);
            std::copy_n(picture_.row(y), words, row.begin());
            for (std::size_t i = 0; i < words; ++i) {
                BitWord neighbours = beside(row.data(), i) | above[i] | below[i];
                if (corners_connect_) neighbours |= beside(above, i) | beside(below.data(), i);
                picture_.row(y)[i] &= neighbours;
            }
            std::swap(row, below);
        }
    }

    // Pixels that are left or right of a one.
    BitWord beside(const BitWord* row, std::size_t i) const {
        const BitWord before = i > 0 ? row[i - 1] : 0;
        const BitWord after = i + 1 < picture_.words() ? row[i + 1] : 0;
        constexpr int kLast = kWordBits - 1;
        return row[i] << 1 | before >> kLast | row[i] >> 1 | after << kLast;
    }

    RunNumber count_runs() {
        RunNumber runs = 0;
        for (int y = 0; y < picture_.height(); y += band_rows())
            runs += rows_.count(band(y));
        return runs;
    }

    void unite_runs(const RunForest& forest, const std::function<void(int)>& band_done) {
        const auto unite = corners_connect_ ? rows_.unite_corners : rows_.unite_sides;
        Starts starts(picture_.words()), before(picture_.words());
        RunCount so_far;
        for (int y = 0; y < picture_.height(); y += band_rows()) {
            rows_.find(band(y), starts.view(), forest, so_far);
            if (y > 0)
                unite(picture_.row(y), starts.view(), picture_.row(y - 1), before.view(),
                      picture_.words(), forest);
            std::swap(starts, before);
            band_done(y);
        }
        forest.pixels[so_far.runs] = so_far.pixels;
    }

    // Afterwards every run's parent is a root, which knows the pixels of its area.
    static void sum_up(const RunForest& forest, RunNumber runs) {
        for (RunNumber run = 0; run < runs; ++run) {
            const RunNumber root = forest.parent[forest.parent[run]];
            forest.parent[run] = root;
            forest.pixels[run] = forest.pixels[run + 1] - forest.pixels[run];
            if (root != run) forest.pixels[root] += forest.pixels[run];
        }
    }

    const AreaRows& rows_ = area_rows();
    BitRows& picture_;
    bool corners_connect_;
    std::vector<BitWord> blank_; // stays 0
};

} // namespace

void clear_small_areas(BitRows& picture, Neighbours neighbours, std::uint32_t most,
                       const std::function<void(int)>& band_done) {
    SmallAreas(picture, neighbours).clear(most, band_done);
}

} // namespace kelvane
