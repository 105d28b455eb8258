// Lengths and sizes as people read them, with a point whatever the locale.
#pragma once

#include "export/export_options.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace kelvane {

/// Name of the options' unit in running text: "mm", "inch", where scripts have "Inch".
std::string_view unit_word(const ExportOptions& options);

/// A length in the options' unit, without its name, to about a hundredth of a millimetre.
std::string length_text(double millimetres, const ExportOptions& options);

/// The width of a line or gap: with a decimal more, so that one just below a limit does not read
/// like it.
std::string width_text(double millimetres, const ExportOptions& options);

/// The size of a file: "812 bytes", "21.4 kB", "1.4 MB".
std::string byte_text(std::uint64_t bytes);

} // namespace kelvane
