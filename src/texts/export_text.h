// What an export draws, in the program's language. Numbers have a point, as in the fields and the
// script.
#pragma once

#include "export/board_report.h"

#include <cstdint>
#include <optional>
#include <string>

namespace kelvane {

/// "22 polygons", by the options' kind of shape.
std::wstring objects_text(std::uint64_t count, const ExportOptions& options);

/// Number and EAGLE's name of a layer: "21 tPlace".
std::wstring layer_text(int layer);

/// The sizes of the picture and of its ink, the objects and the size of the script, in mm or inch
/// by the question's unit. Without `counts` objects and size are said to be counted still.
std::wstring board_sizes_text(const BoardReport& report, const std::optional<ExportReport>& counts,
                              const BoardQuestion& question);

/// The most serious warning, with an exclamation mark before it; empty without one.
std::wstring board_warning_text(const BoardReport& report,
                                const std::optional<ExportReport>& counts,
                                const BoardQuestion& question);

/// Unit of the lengths on the board that are shown for a pixel size in the options' unit: mm for
/// metric ones, else inch. An index into `kUnits`.
std::int16_t board_unit(const ExportOptions& options);

} // namespace kelvane
