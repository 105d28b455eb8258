#include "cli/export_arguments.h"

#include "base/output_file.h"
#include "base/text.h"
#include "cli/file_argument.h"
#include "cli/number_argument.h"
#include "cli/usage_error.h"

#include <CLI/CLI.hpp>

#include <algorithm>
#include <array>
#include <cstdint>
#include <vector>

namespace kelvane {
namespace {

// No board is larger; and a coordinate stays a finite number.
constexpr double kLargestPixel = 1e9;

// A choice on the command line and the number that the options know it by.
struct Choice {
    const char* name;
    std::int16_t value;
};
constexpr std::array kUnitChoices{Choice{"mil", 0}, Choice{"inch", 1}, Choice{"mic", 2},
                                  Choice{"mm", 3}};
constexpr std::array kEagleChoices{Choice{"4", 0}, Choice{"3", 1}, Choice{"2", 2}};
constexpr std::array kShapeChoices{Choice{"polygon", kShapePolygon}, Choice{"wire", kShapeWire},
                                   Choice{"rectangle", kShapeRectangle}};
constexpr std::array kTraceChoices{Choice{"full", 1}, Choice{"lines", 0}};

template <std::size_t N>
void add_choice(CLI::App& command, const char* flag, std::string& value,
                const std::array<Choice, N>& choices, const char* help) {
    std::vector<std::string> names;
    for (const Choice& choice : choices)
        names.emplace_back(choice.name);
    command.add_option(flag, value, help)->capture_default_str()->check(CLI::IsMember(names));
}

template <std::size_t N>
std::int16_t chosen(const std::string& name, const std::array<Choice, N>& choices) {
    return std::find_if(choices.begin(), choices.end(),
                        [&](const Choice& choice) { return choice.name == name; })
        ->value;
}

double smoothing(const ExportArguments& arguments, const ExportOptions& options) {
    if (!arguments.smooth) return 0;
    if (!options.exp) throw UsageError("--smooth goes with --trace full only");
    if (arguments.smooth->empty()) return kMostSmoothing;
    const std::optional<double> tolerance = decimal_number<double>(*arguments.smooth);
    if (!tolerance || *tolerance < kLeastSmoothing || *tolerance > kMostSmoothing)
        throw UsageError("--smooth is a number of pixels from 0.05 to 0.5, not \"" +
                         *arguments.smooth + "\"");
    return *tolerance;
}

double pixel_size(const std::string& text) {
    const std::optional<double> size = decimal_number<double>(text);
    if (!size || !(*size > 0) || *size > kLargestPixel)
        throw UsageError("--size is a number greater than 0 and at most 1e9, not \"" + text + "\"");
    return *size;
}

} // namespace

void add_export_arguments(CLI::App& command, ExportArguments& arguments) {
    command
        .add_option("-o,--output", arguments.output,
                    "the script; - for standard output (default: INPUT's name with .scr)")
        ->type_name("FILE");
    command.add_option("--layer", arguments.layer, "EAGLE layer, 1 to 255")
        ->capture_default_str()
        ->type_name("N");
    add_choice(command, "--unit", arguments.unit, kUnitChoices, "unit of length");
    command.add_option("--size", arguments.size, "edge of one pixel in the unit")
        ->capture_default_str()
        ->type_name("X");
    add_choice(command, "--eagle", arguments.eagle, kEagleChoices,
               "EAGLE version: 4 and later, 3 or 2");
    add_choice(command, "--trace", arguments.trace, kTraceChoices,
               "full: outlines of whole areas; lines: each run of pixels by itself");
    add_choice(command, "--shape", arguments.shape, kShapeChoices,
               "what to draw; rectangle only with --trace lines");
    command
        .add_option("--smooth", arguments.smooth,
                    "slanted and round outlines instead of stairs, at most this far from them: "
                    "0.05 to 0.5 pixels, 0.5 when not given; only with --trace full")
        ->expected(0, 1)
        ->type_name("[TOLERANCE]");
    command
        .add_option("--op", arguments.picture.operations,
                    "operation on the picture before it is traced, repeatable; "
                    "kelvane-cli ops lists them")
        ->allow_extra_args(false);
    add_picture_options(command, arguments.picture);
    command
        .add_flag("--stats", arguments.stats,
                  "print what was done as one JSON object; on standard error when the script goes "
                  "to standard output")
        ->disable_flag_override();
}

ExportOptions export_options(const ExportArguments& arguments) {
    ExportOptions options;
    options.exp = chosen(arguments.trace, kTraceChoices) != 0;
    options.optPoly = chosen(arguments.shape, kShapeChoices);
    options.lay =
        static_cast<std::int16_t>(number_argument("--layer", arguments.layer, 1, kLayerCount));
    options.size = pixel_size(arguments.size);
    options.unit = chosen(arguments.unit, kUnitChoices);
    options.ver = chosen(arguments.eagle, kEagleChoices);
    if (options.exp && options.optPoly == kShapeRectangle)
        throw UsageError("--shape rectangle goes with --trace lines only");
    options.smooth = smoothing(arguments, options);
    return options;
}

std::string output_name(const ExportArguments& arguments) {
    if (!arguments.output.empty()) return arguments.output;
    const std::filesystem::path input = utf8_path(arguments.picture.input);
    if (input == kStandardStream || is_stream(input)) return kStandardStream;
    return utf8_text(std::filesystem::path(input).replace_extension(".scr"));
}

} // namespace kelvane
