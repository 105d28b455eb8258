// A board report in the command line's words.
#pragma once

#include "export/board_report.h"

#include <string>

namespace kelvane {

/// A warning as one sentence without a full stop.
std::string warning_text(BoardWarning warning, const BoardReport& report,
                         const BoardQuestion& question);

/// One line: the size of picture and ink in the unit, objects, bytes, the thinnest line.
std::string summary_text(const BoardReport& report, const ExportReport& counts,
                         const BoardQuestion& question);

/// The report's members of a JSON object, `"unit": "mm", ...`; null for what is not known.
std::string board_json(const BoardReport& report, const BoardQuestion& question);

} // namespace kelvane
