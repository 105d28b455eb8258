// The options of `kelvane-cli export`: as they stand on the command line, and understood.
#pragma once

#include "cli/picture_job.h"
#include "export/export_options.h"

#include <optional>
#include <string>

namespace kelvane {

/// Texts as given, or their defaults. They are read in `export_options` and in `output_name`, so
/// that every mistake gets a message of our own.
struct ExportArguments {
    PictureRequest picture;
    std::string output;
    std::string layer = "20";
    std::string unit = "mil";
    std::string size = "1";
    std::string eagle = "4";
    std::string trace = "full";
    std::string shape = "polygon";
    std::optional<std::string> smooth; // a tolerance, or empty for the largest
    bool stats = false;
};

/// Declares them all.
void add_export_arguments(CLI::App& command, ExportArguments& arguments);

/// Throws `UsageError` with the option and what is accepted.
ExportOptions export_options(const ExportArguments& arguments);

/// Where the script goes: as given, else INPUT's name with .scr, else, for a picture out of a
/// stream, standard output.
std::string output_name(const ExportArguments& arguments);

} // namespace kelvane
