// The options of `kelvane-cli export`: as they stand on the command line, and understood.
#pragma once

#include "cli/picture_job.h"
#include "cli/size_arguments.h"
#include "export/board_report.h"
#include "export/export_options.h"

#include <optional>
#include <string>
#include <vector>

namespace kelvane {

/// Texts as given, or their defaults. They are read in `export_options` and in `output_name`, so
/// that every mistake gets a message of our own.
struct ExportArguments {
    PictureRequest picture;
    std::string output;
    std::string layer = std::to_string(ExportOptions().lay);
    SizeArguments size;
    std::string eagle{kEagleVersions.front().number};
    std::string trace = "full";
    std::string shape{kShapeNames.front()};
    std::optional<std::string> smooth; // a tolerance
    std::string min_line = "0.15mm";
    std::string min_gap = "0.15mm";
    bool mirror = false;
    bool strict = false;
    bool stats = false;
};

/// Declares them all.
void add_export_arguments(CLI::App& command, ExportArguments& arguments);

/// Gives --smooth the largest tolerance where no number follows it. CLI11 would take whatever
/// follows an option for its optional value, INPUT too.
std::vector<std::string> with_tolerance(std::vector<std::string> arguments);

/// All but the pixel size, which is left at 1. Throws `UsageError` with the option and what is
/// accepted.
ExportOptions export_options(const ExportArguments& arguments, const PixelSize& pixel_size);

/// What --min-line and --min-gap ask for; lengths without a unit are in `options.unit`. Throws
/// `UsageError`.
BoardLimits board_limits(const ExportArguments& arguments, const ExportOptions& options);

/// Whether --mirror and the operations together reverse the picture's writing.
bool is_mirrored(const ExportArguments& arguments);

/// Where the script goes: as given, else INPUT's name with .scr, else, for a picture out of a
/// stream, standard output.
std::string output_name(const ExportArguments& arguments);

} // namespace kelvane
