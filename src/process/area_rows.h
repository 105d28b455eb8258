// The inner loops over runs of ones, one set for each kind of processor: the faster one counts bits
// in one instruction.
#pragma once

#include "process/bit_word.h"

#include <cstddef>
#include <cstdint>

namespace kelvane {

/// Number of a run; runs are numbered by band, then by column.
using RunNumber = std::uint32_t;

/// The ones of a band, one or two neighbouring rows of `words` words, form runs: spans of
/// columns with a one in either row.
struct RowBand {
    BitWord* lower;
    BitWord* upper; // 0 throughout where the band has one row
    std::size_t words;
};

/// Where a band's runs start, by word: their first columns, and the number of the first of them.
struct RunStarts {
    BitWord* columns;
    RunNumber* first;
};

/// Runs as trees, each of which is an area. A parent's number is not above its child's, and a root
/// is its own parent.
struct RunForest {
    RunNumber* parent;
    /// Changes its meaning from pass to pass: the ones in all runs before this one, then the ones
    /// of this run, then for a root those of its whole tree.
    std::uint32_t* pixels;
};

/// Runs and ones met so far.
struct RunCount {
    RunNumber runs = 0;
    std::uint32_t pixels = 0;
};

struct AreaRows {
    /// The number of a band's runs.
    RunNumber (*count)(const RowBand& band);
    /// Finds a band's runs and makes each a tree of its own.
    void (*find)(const RowBand& band, const RunStarts& starts, const RunForest& forest,
                 RunCount& so_far);
    /// Unites the runs of two bands that share a side, or that share a corner. `row` is the band's
    /// lowest row, `before` the topmost row of the band below.
    void (*unite_sides)(const BitWord* row, const RunStarts& starts, const BitWord* before,
                        const RunStarts& starts_before, std::size_t words, const RunForest& forest);
    void (*unite_corners)(const BitWord* row, const RunStarts& starts, const BitWord* before,
                          const RunStarts& starts_before, std::size_t words,
                          const RunForest& forest);
    /// Clears the band's runs that belong to areas of at most `most` pixels; `run` is the number of
    /// the first and becomes that of the next band's.
    void (*clear)(const RowBand& band, const RunForest& forest, std::uint32_t most, RunNumber& run);
};

extern const AreaRows kBaselineAreaRows;
extern const AreaRows kAvx2AreaRows;

/// The fastest set this processor may use.
const AreaRows& area_rows();

} // namespace kelvane
