// The export from a black-and-white picture to a script file.
#pragma once

#include "export/export_options.h"
#include "export/script_writer.h"
#include "image/image_view.h"
#include "image/progress.h"

#include <cstdint>
#include <filesystem>

namespace kelvane {

/// What an export met and wrote.
struct ExportReport {
    std::uint64_t dark_pixels = 0;
    std::uint64_t runs = 0;
    ScriptCounts script;
    /// A coordinate left EAGLE's range; it was written all the same.
    bool RangeOVL = false;
};

/// Traces `image`, which is meant to hold only black and white, and writes the script `FileName`.
/// Each stage raises an initialising event with its own maximum and progress once per row of
/// pixels; the completion event comes once, at the end. Throws `FileError`, with any existing file
/// untouched.
ExportReport Vectorize(ConstImageView image, const std::filesystem::path& FileName,
                       const ExportOptions& options, ProgressObserver* observer = nullptr);

} // namespace kelvane
