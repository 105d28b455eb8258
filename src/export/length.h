// Lengths on the board: units, and the pixel sizes that make a picture as large as wanted.
#pragma once

#include "export/export_options.h"

#include <cstddef>
#include <cstdint>

namespace kelvane {

inline constexpr std::int16_t kMillimetres = 3; // index into `kUnits`
inline constexpr double kNanometresPerMillimetre = 1e6;
inline constexpr double kNanometresPerInch = 25.4e6;

/// `length` of unit `from` in unit `to`; both are indices into `kUnits`.
constexpr double converted_length(double length, std::int16_t from, std::int16_t to) {
    return length * kUnits[static_cast<std::size_t>(from)].nanometres /
           kUnits[static_cast<std::size_t>(to)].nanometres;
}

/// `length` of the options' unit in millimetres; 0 for a unit outside the table.
constexpr double in_millimetres(double length, const ExportOptions& options) {
    return length * unit_of(options).nanometres / kNanometresPerMillimetre;
}
/// The opposite; `options.unit` lies in the table.
constexpr double from_millimetres(double millimetres, const ExportOptions& options) {
    return millimetres * kNanometresPerMillimetre / unit_of(options).nanometres;
}

/// The pixel size at which `pixels` become `length` long. It is not rounded: the 15 digits of a
/// coordinate then tell the far edge of the picture as `length`, whatever the number of pixels. A
/// size rounded to 15 digits first can end in 9.90000000000002.
constexpr double pixel_size_for_length(double length, int pixels) {
    return length / pixels;
}

/// The pixel size in unit `unit` (an index into `kUnits`) of `dpi` pixels per inch.
constexpr double pixel_size_for_resolution(double dpi, std::int16_t unit) {
    return kNanometresPerInch / dpi / kUnits[static_cast<std::size_t>(unit)].nanometres;
}

} // namespace kelvane
