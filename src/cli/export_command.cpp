#include "cli/export_command.h"

#include "cli/console_progress.h"
#include "cli/exit_code.h"
#include "cli/open_picture.h"
#include "cli/usage_error.h"
#include "cli/utf8_path.h"

#include <CLI/CLI.hpp>

#include <algorithm>
#include <array>
#include <chrono>
#include <iomanip>
#include <memory>
#include <ostream>

namespace kelvane {
namespace {

// No board is larger; and a coordinate stays a finite number.
constexpr double kLargestPixel = 1e9;

constexpr const char* kRangeWarning =
    "The Coordinates are out of range of EAGLE. This can cause an incomplete"
    " import into EAGLE. Please modify your unit setting or pixel size parameters.";

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

struct Request {
    PictureRequest picture;
    std::string output;
    std::int16_t layer = 20;
    std::string unit = "mil";
    double size = 1;
    std::string eagle = "4";
    std::string trace = "full";
    std::string shape = "polygon";
    bool stats = false;
};

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

void add_options(CLI::App& command, Request& request) {
    command.add_option("-o,--output", request.output,
                       "the script (default: INPUT's name with .scr)");
    command.add_option("--layer", request.layer, "EAGLE layer")
        ->capture_default_str()
        ->check(CLI::Range(1, kLayerCount));
    add_choice(command, "--unit", request.unit, kUnitChoices, "unit of length");
    command.add_option("--size", request.size, "edge of one pixel in the unit")
        ->capture_default_str();
    add_choice(command, "--eagle", request.eagle, kEagleChoices,
               "EAGLE version: 4 and later, 3 or 2");
    add_choice(command, "--trace", request.trace, kTraceChoices,
               "full: outlines of whole areas; lines: each run of pixels by itself");
    add_choice(command, "--shape", request.shape, kShapeChoices,
               "what to draw; rectangle only with --trace lines");
    command
        .add_option("--op", request.picture.operations,
                    "operation on the picture before it is traced, repeatable; "
                    "kelvane-cli ops lists them")
        ->allow_extra_args(false);
    add_picture_options(command, request.picture);
    command.add_flag("--stats", request.stats, "print what was done as one JSON object");
}

ExportOptions options_of(const Request& request) {
    if (!(request.size > 0 && request.size <= kLargestPixel))
        throw UsageError("--size must be greater than 0 and at most 1e9");
    ExportOptions options;
    options.exp = chosen(request.trace, kTraceChoices) != 0;
    options.optPoly = chosen(request.shape, kShapeChoices);
    options.lay = request.layer;
    options.size = request.size;
    options.unit = chosen(request.unit, kUnitChoices);
    options.ver = chosen(request.eagle, kEagleChoices);
    if (options.exp && options.optPoly == kShapeRectangle)
        throw UsageError("--shape rectangle goes with --trace lines only");
    return options;
}

std::filesystem::path output_of(const Request& request) {
    const std::filesystem::path input = utf8_path(request.picture.input);
    if (request.output.empty()) return std::filesystem::path(input).replace_extension(".scr");
    std::filesystem::path output = utf8_path(request.output);
    std::error_code ignored;
    if (std::filesystem::equivalent(input, output, ignored))
        throw UsageError("the script would replace the picture " + request.picture.input);
    return output;
}

void print_stats(const cDIBSection& picture, const ExportReport& report, const Request& request,
                 double seconds, std::ostream& out) {
    out << "{\"width\": " << picture.Width() << ", \"height\": " << picture.Height()
        << ", \"dark_pixels\": " << report.dark_pixels << ", \"runs\": " << report.runs << ", \""
        << request.shape << "s\": " << report.shapes << ", \"points\": " << report.points
        << ", \"bridges\": " << report.bridges << ", \"bytes\": " << report.bytes
        << ", \"out_of_range\": " << (report.RangeOVL ? "true" : "false")
        << ", \"seconds\": " << std::fixed << std::setprecision(6) << seconds << "}\n";
}

ExitCode export_picture(const Request& request, const Console& console) {
    using Clock = std::chrono::steady_clock;
    const auto start = Clock::now();
    const ExportOptions options = options_of(request);
    const std::filesystem::path output = output_of(request);

    ConsoleProgress progress(console);
    cImageProcessDIB engine;
    engine.set_observer(&progress);
    cDIBSection picture = prepared_picture(request.picture, engine);
    engine.BlackAndWhite2(picture, picture, kExportLimit);
    ExportReport report;
    with_file_name(utf8_text(output), [&] { report = engine.Vectorize(picture, output, options); });
    progress.wipe();

    if (request.stats)
        print_stats(picture, report, request,
                    std::chrono::duration<double>(Clock::now() - start).count(), console.out);
    if (!report.RangeOVL) return kExitDone;
    console.error << "kelvane-cli: " << utf8_text(output) << ": " << kRangeWarning << '\n';
    return kExitOutOfRange;
}

} // namespace

void add_export_command(CLI::App& app, const Console& console, int& exit_code) {
    CLI::App* command = app.add_subcommand("export", "Write an EAGLE script of a picture");
    const auto request = std::make_shared<Request>();
    add_options(*command, *request);
    command->callback(
        [request, console, &exit_code] { exit_code = export_picture(*request, console); });
}

} // namespace kelvane
