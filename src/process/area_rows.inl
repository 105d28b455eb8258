// The inner loops over runs, compiled once per processor level: everything has internal linkage and
// nothing comes from the standard library, so that the linker cannot merge code of different
// levels.

#include "process/area_rows.h"

namespace kelvane {
namespace {

using Word = BitWord;

RunNumber count_ones(Word word) {
    return static_cast<RunNumber>(__builtin_popcountll(word));
}

// Calls action(bit) for every one.
template <typename Action> void for_each_one(Word word, Action action) {
    for (; word != 0; word &= word - 1)
        action(__builtin_ctzll(word));
}

// The words of a row moved one pixel to the right, word by word.
class Shifted {
  public:
    Word next(Word word) {
        const Word shifted = word << 1 | carry_;
        carry_ = word >> (kWordBits - 1);
        return shifted;
    }

  private:
    Word carry_ = 0;
};

Word ones_of(const RowBand& band, std::size_t i) {
    return band.lower[i] | band.upper[i];
}

RunNumber count(const RowBand& band) {
    Shifted shifted;
    RunNumber runs = 0;
    for (std::size_t i = 0; i < band.words; ++i)
        runs += count_ones(ones_of(band, i) & ~shifted.next(ones_of(band, i)));
    return runs;
}

void find(const RowBand& band, const RunStarts& starts, const RunForest& forest, RunCount& so_far) {
    Shifted shifted;
    RunCount all = so_far;
    for (std::size_t i = 0; i < band.words; ++i) {
        const Word ones = ones_of(band, i);
        starts.columns[i] = ones & ~shifted.next(ones);
        starts.first[i] = all.runs;
        for_each_one(starts.columns[i], [&](int bit) {
            const Word before = (Word{1} << bit) - 1;
            forest.parent[all.runs] = all.runs;
            forest.pixels[all.runs++] = all.pixels + count_ones(band.lower[i] & before) +
                                        count_ones(band.upper[i] & before);
        });
        all.pixels += count_ones(band.lower[i]) + count_ones(band.upper[i]);
    }
    so_far = all;
}

// The run at a column of word i or, where that is 0, at the column before it.
RunNumber run_at(const RunStarts& starts, std::size_t i, int bit) {
    return starts.first[i] + count_ones(starts.columns[i] << (kWordBits - 1 - bit)) - 1;
}

RunNumber root(RunNumber* parent, RunNumber run) {
    while (parent[run] != run)
        run = parent[run] = parent[parent[run]];
    return run;
}

void unite(RunNumber* parent, RunNumber a, RunNumber b) {
    a = root(parent, a);
    b = root(parent, b);
    const bool in_order = a < b;
    parent[in_order ? b : a] = in_order ? a : b;
}

// Where a span of columns begins that have ones in both rows, two runs touch for the first time.
void unite_sides(const Word* row, const RunStarts& starts, const Word* before,
                 const RunStarts& starts_before, std::size_t words, const RunForest& forest) {
    Shifted shifted;
    for (std::size_t i = 0; i < words; ++i) {
        const Word both = row[i] & before[i];
        for_each_one(both & ~shifted.next(both), [&](int bit) {
            unite(forest.parent, run_at(starts_before, i, bit), run_at(starts, i, bit));
        });
    }
}

// Corners instead of pixels: pixel x has the corners x and x + 1. Where a run of either band starts
// within a span of common corners, another pair of runs touches.
void unite_corners(const Word* row, const RunStarts& starts, const Word* before,
                   const RunStarts& starts_before, std::size_t words, const RunForest& forest) {
    Shifted shifted, shifted_before, shifted_both;
    for (std::size_t i = 0; i < words; ++i) {
        const Word both =
            (row[i] | shifted.next(row[i])) & (before[i] | shifted_before.next(before[i]));
        const Word begins = ~shifted_both.next(both) | starts.columns[i] | starts_before.columns[i];
        for_each_one(both & begins, [&](int bit) {
            unite(forest.parent, run_at(starts_before, i, bit), run_at(starts, i, bit));
        });
    }
}

// Adding a one to a run's first column carries it to the 0 behind the run: ones that vanish from
// the sum are the run's.
void clear(const RowBand& band, const RunForest& forest, std::uint32_t most, RunNumber& run) {
    Shifted shifted;
    Word carry = 0;
    for (std::size_t i = 0; i < band.words; ++i) {
        const Word ones = ones_of(band, i);
        Word small = 0;
        for_each_one(ones & ~shifted.next(ones), [&](int bit) {
            small |= Word{forest.pixels[forest.parent[run++]] <= most} << bit;
        });
        Word sum = 0;
        const bool once = __builtin_add_overflow(ones, small, &sum);
        const bool twice = __builtin_add_overflow(sum, carry, &sum);
        carry = once || twice;
        band.lower[i] &= sum;
        band.upper[i] &= sum;
    }
}

constexpr AreaRows kRows{count, find, unite_sides, unite_corners, clear};

} // namespace
} // namespace kelvane
