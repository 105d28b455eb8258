// What an export would draw, worked out while the user chooses its options.
#pragma once

#include "export/board_report.h"
#include "image/dib_section.h"
#include "image/progress.h"

#include <optional>

namespace kelvane {

/// Sizes are known at once. The check of lines and gaps and the count of objects are two steps that
/// take long for large pictures.
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
    bool complete() const { return checked_ && counts_; }

    const BoardReport& report() const { return report_; }
    /// Nothing until they are counted.
    const std::optional<ExportReport>& counts() const { return counts_; }
    /// The picture that is traced: black and white, mirrored if the question says so.
    const cDIBSection& traced() const { return traced_; }

  private:
    cDIBSection traced_;
    bool mirrored_ = false;
    BoardQuestion question_;
    BoardReport report_;
    bool checked_ = false;
    std::optional<ExportReport> counts_;
};

} // namespace kelvane
