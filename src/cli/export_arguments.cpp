#include "cli/export_arguments.h"

#include "base/output_file.h"
#include "base/strict_number.h"
#include "base/text.h"
#include "cli/file_argument.h"
#include "cli/layer_argument.h"
#include "cli/length_argument.h"
#include "cli/usage_error.h"
#include "export/length.h"

#include <CLI/CLI.hpp>

#include <algorithm>
#include <array>
#include <cstdint>
#include <functional>
#include <vector>

namespace kelvane {
namespace {

constexpr const char* kSmooth = "--smooth";

// A choice on the command line and the number that the options know it by.
struct Choice {
    std::string_view name;
    std::int16_t value;
};
// The entries of a table, known by their positions.
template <class Entry, std::size_t N, class Name>
constexpr std::array<Choice, N> by_position(const std::array<Entry, N>& table, Name name) {
    std::array<Choice, N> choices{};
    for (std::size_t i = 0; i < N; ++i)
        choices[i] = {std::invoke(name, table[i]), static_cast<std::int16_t>(i)};
    return choices;
}

constexpr auto kEagleChoices = by_position(kEagleVersions, &EagleVersion::number);
constexpr auto kShapeChoices = by_position(kShapeNames, std::identity());
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

// Numbers that are no tolerance are meant as one, "0,5" as well.
bool looks_like_tolerance(std::string_view text) {
    return !text.empty() && text.find_first_not_of("0123456789.,") == text.npos;
}

double smoothing(const ExportArguments& arguments, const ExportOptions& options) {
    if (!arguments.smooth) return 0;
    if (!options.exp) throw UsageError("--smooth goes with --trace full only");
    const std::optional<double> tolerance = strict_number<double>(*arguments.smooth);
    if (!tolerance || *tolerance < kLeastSmoothing || *tolerance > kMostSmoothing)
        throw UsageError("--smooth is a number of pixels from 0.05 to 0.5, not \"" +
                         *arguments.smooth + "\"");
    return *tolerance;
}

double limit_argument(const char* name, const std::string& text, const ExportOptions& options) {
    const Length limit = length_argument(name, text, LeastLength::Zero);
    return converted_length(limit.value, limit.unit.value_or(options.unit), kMillimetres);
}

} // namespace

void add_export_arguments(CLI::App& command, ExportArguments& arguments) {
    command
        .add_option("-o,--output", arguments.output,
                    "the script; - for standard output (default: INPUT's name with .scr)")
        ->type_name("FILE");
    command
        .add_option("--layer", arguments.layer,
                    "EAGLE layer, 1 to 255 or a name such as tPlace or bStop")
        ->capture_default_str()
        ->type_name("N|NAME");
    add_size_arguments(command, arguments.size);
    command.footer(layer_list());
    add_choice(command, "--eagle", arguments.eagle, kEagleChoices,
               "EAGLE version: 4 and later, 3 or 2");
    add_choice(command, "--trace", arguments.trace, kTraceChoices,
               "full: outlines of whole areas; lines: each run of pixels by itself");
    add_choice(command, "--shape", arguments.shape, kShapeChoices,
               "what to draw; rectangle only with --trace lines");
    command
        .add_option(kSmooth, arguments.smooth,
                    "slanted and round outlines instead of stairs, at most this far from them: "
                    "0.05 to 0.5 pixels, 0.5 when not given; only with --trace full")
        ->type_name("[TOLERANCE]");
    command
        .add_option("--op", arguments.picture.operations,
                    "operation on the picture before it is traced, repeatable; "
                    "kelvane-cli ops lists them")
        ->allow_extra_args(false);
    command
        .add_flag("--mirror", arguments.mirror,
                  "for layers seen from below; the same as --op mirror last")
        ->disable_flag_override();
    add_picture_options(command, arguments.picture);
    command.add_option("--min-line", arguments.min_line, "warn of thinner lines; 0 for never")
        ->capture_default_str()
        ->type_name("LENGTH");
    command.add_option("--min-gap", arguments.min_gap, "warn of thinner gaps; 0 for never")
        ->capture_default_str()
        ->type_name("LENGTH");
    command
        .add_flag("--strict", arguments.strict,
                  "write nothing when there is a warning, and end with 4")
        ->disable_flag_override();
    command
        .add_flag("--stats", arguments.stats,
                  "print what was done as one JSON object; on standard error when the script goes "
                  "to standard output")
        ->disable_flag_override();
}

std::vector<std::string> with_tolerance(std::vector<std::string> arguments) {
    for (auto argument = arguments.begin(); argument != arguments.end(); ++argument) {
        const auto next = argument + 1;
        if (*argument != kSmooth || (next != arguments.end() && looks_like_tolerance(*next)))
            continue;
        *argument += "=" + std::to_string(kMostSmoothing);
    }
    return arguments;
}

ExportOptions export_options(const ExportArguments& arguments, const PixelSize& pixel_size) {
    ExportOptions options;
    options.exp = chosen(arguments.trace, kTraceChoices) != 0;
    options.optPoly = chosen(arguments.shape, kShapeChoices);
    options.lay = layer_argument(arguments.layer);
    options.unit = pixel_size.unit();
    options.ver = chosen(arguments.eagle, kEagleChoices);
    if (options.exp && options.optPoly == kShapeRectangle)
        throw UsageError("--shape rectangle goes with --trace lines only");
    options.smooth = smoothing(arguments, options);
    return options;
}

BoardLimits board_limits(const ExportArguments& arguments, const ExportOptions& options) {
    return {limit_argument("--min-line", arguments.min_line, options),
            limit_argument("--min-gap", arguments.min_gap, options)};
}

bool is_mirrored(const ExportArguments& arguments) {
    const auto reversals =
        std::ranges::count_if(arguments.picture.operations, [](const std::string& operation) {
            return operation == "mirror" || operation == "flip";
        });
    return (reversals + (arguments.mirror ? 1 : 0)) % 2 != 0;
}

std::string output_name(const ExportArguments& arguments) {
    if (!arguments.output.empty()) return arguments.output;
    const std::filesystem::path input = utf8_path(arguments.picture.input);
    if (input == kStandardStream || is_stream(input)) return kStandardStream;
    return utf8_text(std::filesystem::path(input).replace_extension(".scr"));
}

} // namespace kelvane
