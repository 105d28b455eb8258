// The export from a black-and-white picture to a script file.
#pragma once

#include "export/export_options.h"
#include "image/image_view.h"
#include "image/progress.h"

#include <cstdint>
#include <filesystem>

namespace kelvane {

/// What an export met and wrote.
struct ExportReport {
    std::uint64_t dark_pixels = 0;
    std::uint64_t runs = 0;
    /// Polygons without bridge strips, single wires, or rectangles.
    std::uint64_t shapes = 0;
    std::uint64_t bridges = 0;
    std::uint64_t points = 0;
    std::uint64_t bytes = 0;
    /// A coordinate left EAGLE's range; it was written all the same.
    bool RangeOVL = false;
};

/// Traces `image`, which is meant to hold only black and white, and writes the script `FileName`.
/// Each stage raises an initialising event with its own maximum and progress at most once per row
/// of pixels in each pass, and again with the same position within long outlines; the completion
/// event comes once, at the end. Throws `FileError`, with any existing file untouched. An unknown
/// shape kind is scanned and completed, but writes nothing.
ExportReport Vectorize(ConstImageView image, const std::filesystem::path& FileName,
                       const ExportOptions& options, ProgressObserver* observer = nullptr);

/// What `Vectorize` would report, in about the same time and without a file. An exception of
/// `observer` stops it.
ExportReport CountExport(ConstImageView image, const ExportOptions& options,
                         ProgressObserver* observer = nullptr);

/// Draws what `Vectorize` would write over the whole of `drawing`, a preview of any size: dark
/// areas black, the rest white, with anti-aliasing. Wires are drawn as the areas that they enclose.
/// `image` has pixels. An exception of `observer` stops it.
void DrawExport(ConstImageView image, const ExportOptions& options, ImageView drawing,
                ProgressObserver* observer = nullptr);

} // namespace kelvane
