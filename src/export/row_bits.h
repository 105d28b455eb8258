// The pixels of one row as bits, 64 a word (pixel x is bit x % 64 of word x / 64), and as runs.
#pragma once

#include "export/runs.h"

#include <bit>
#include <cstdint>
#include <vector>

namespace kelvane {

/// Bit i of the result tells whether pixel i is dark; `count` pixels, at most 64, whose first blue
/// byte is `*blue`.
inline std::uint64_t dark_bits(const std::uint8_t* blue, int count) {
    std::uint64_t bits = 0;
    for (int i = 0; i < count; ++i)
        bits |= static_cast<std::uint64_t>(blue[3 * i] < kDarkBelow) << i;
    return bits;
}

/// Appends the runs of a row of `width` pixels. `word_at(i)` is word i; its bits beyond the width
/// are clear.
template <typename WordAt>
void append_runs_of_row(int width, WordAt word_at, std::vector<Run>& runs) {
    bool inside = false;
    for (int x = 0; x < width; x += 64) {
        const std::uint64_t dark = word_at(x / 64);
        // A set bit marks a column that differs from its left-hand neighbour.
        std::uint64_t changes = dark ^ (dark << 1 | std::uint64_t{inside});
        for (; changes != 0; changes &= changes - 1) {
            const std::int32_t column = x + std::countr_zero(changes);
            if (inside)
                runs.back().end = column;
            else
                runs.push_back({column, width});
            inside = !inside;
        }
    }
}

/// Whether an export loses the first run of row 0, which begins at column `begin`.
constexpr bool is_lost(std::int32_t begin) {
    return begin == 1;
}

/// Word `i` of a row without the bits outside the run; it holds some of the run.
inline std::uint64_t word_of_run(const std::uint64_t* row, int i, const Run& run) {
    std::uint64_t word = row[i];
    if (i == run.begin / 64) word &= ~std::uint64_t{0} << run.begin % 64;
    if (i == (run.end - 1) / 64) word &= ~std::uint64_t{0} >> (63 - (run.end - 1) % 64);
    return word;
}

/// The first column of a run of at least one pixel at which a bit is set, or the run's end.
inline std::int32_t first_bit(const std::uint64_t* row, const Run& run) {
    for (int i = run.begin / 64; i <= (run.end - 1) / 64; ++i)
        if (const std::uint64_t word = word_of_run(row, i, run); word != 0)
            return 64 * i + std::countr_zero(word);
    return run.end;
}

/// How many bits are set in a run of at least one pixel.
inline std::int64_t count_bits(const std::uint64_t* row, const Run& run) {
    std::int64_t count = 0;
    for (int i = run.begin / 64; i <= (run.end - 1) / 64; ++i)
        count += std::popcount(word_of_run(row, i, run));
    return count;
}

} // namespace kelvane
