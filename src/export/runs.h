// First stage of an export: the dark pixels of each row as runs.
#pragma once

#include "export/export_options.h"
#include "image/image_view.h"
#include "image/progress.h"

#include <cstddef>
#include <cstdint>
#include <vector>

namespace kelvane {

/// A pixel whose blue byte is below this is dark; the other bytes are not read.
inline constexpr int kDarkBelow = kExportLimit + 1;

/// Neighbouring dark pixels of one row: columns `begin` up to and without `end`.
struct Run {
    std::int32_t begin;
    std::int32_t end;

    friend bool operator==(const Run&, const Run&) = default;
};

/// Index of a run; runs are numbered by row from the bottom up, then by column.
using RunIndex = std::uint32_t;

/// All runs of a picture, sorted by row, then column.
class RunList {
  public:
    /// Collects the runs of `image`, whose pixels are meant to be black or white already. Raises
    /// the initialising event with the last byte offset of a row, then one event per row.
    ///
    /// A quirk that scripts in use depend on: when the first dark pixel of all lies at column 1 of
    /// row 0, its run is lost.
    static RunList extract(ConstImageView image, ProgressObserver* observer = nullptr);

    RunIndex size() const { return static_cast<RunIndex>(runs_.size()); }
    const Run& operator[](RunIndex index) const { return runs_[index]; }
    int rows() const { return static_cast<int>(row_begin_.size()) - 1; }
    /// First run of row `y`, 0 <= y <= rows(); that of row y + 1 is the end of row y.
    RunIndex row_begin(int y) const { return row_begin_[static_cast<std::size_t>(y)]; }
    std::uint64_t dark_pixels() const;

  private:
    std::vector<Run> runs_;
    std::vector<RunIndex> row_begin_;
};

} // namespace kelvane
