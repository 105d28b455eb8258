// What an export would draw, worked out while the user chooses its options.
#pragma once

#include "export/bit_picture.h"
#include "export/board_report.h"
#include "image/dib_section.h"
#include "image/progress.h"

#include <optional>

namespace kelvane {

/// Sizes are known at once. Smooth outlines, the check of lines, that of gaps and the count of
/// objects are steps that take long for large pictures. A new question keeps what it does not
/// change.
class ExportEstimate {
  public:
    ExportEstimate() = default; // of no picture
    /// Takes a copy of the picture and reduces it as an export does; empty without memory.
    explicit ExportEstimate(const cDIBSection& picture);

    /// Asks anew. What is unknown then is warned of only when it is worked out.
    void ask(const BoardQuestion& question);
    const BoardQuestion& question() const { return question_; }
    /// Does the next step. An exception of `observer` stops it; the next call begins it anew.
    void work(ProgressObserver* observer);
    bool complete() const { return outlines_known_ && lines_ && gaps_ && counts_; }

    const BoardReport& report() const { return report_; }
    /// Nothing until they are counted.
    const std::optional<ExportReport>& counts() const { return counts_; }
    /// What is drawn, to be scaled to the preview: the picture that is traced, black and white,
    /// mirrored if the question says so; or smooth outlines, already of the preview's size, when
    /// they are asked for and known.
    const cDIBSection& drawing() const { return outlines_.empty() ? traced_ : outlines_; }

  private:
    void forget_changed(const BoardQuestion& before);
    void turn();
    void draw_outlines(ProgressObserver* observer);
    void report_anew();

    cDIBSection traced_;
    BitPicture drawn_; // the dark pixels of `traced_`
    bool mirrored_ = false;
    BoardQuestion question_;

    cDIBSection outlines_; // smooth ones, if they are asked for
    bool outlines_known_ = false;
    std::optional<BoardWidths> lines_;
    std::optional<BoardWidths> gaps_;
    std::optional<ExportReport> counts_;
    BoardReport report_;
};

} // namespace kelvane
