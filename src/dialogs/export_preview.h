// The preview of an export.
#pragma once

#include "export/board_report.h"
#include "image/dib_section.h"

namespace kelvane {

/// `traced` scaled to the preview's size, by interpolation. Pixels that show a line or gap which is
/// too thin are red. Empty when memory runs out.
cDIBSection export_preview(const cDIBSection& traced, const BoardReport& report);

} // namespace kelvane
