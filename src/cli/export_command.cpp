#include "cli/export_command.h"

#include "base/text.h"
#include "cli/console_progress.h"
#include "cli/exit_code.h"
#include "cli/export_arguments.h"
#include "cli/file_argument.h"

#include <CLI/CLI.hpp>

#include <chrono>
#include <iomanip>
#include <memory>
#include <ostream>

namespace kelvane {
namespace {

constexpr const char* kRangeWarning =
    "The Coordinates are out of range of EAGLE. This can cause an incomplete"
    " import into EAGLE. Please modify your unit setting or pixel size parameters.";

void print_stats(const cDIBSection& picture, const ExportReport& report, const std::string& shape,
                 double seconds, std::ostream& out) {
    out << "{\"width\": " << picture.Width() << ", \"height\": " << picture.Height()
        << ", \"dark_pixels\": " << report.dark_pixels << ", \"runs\": " << report.runs << ", \""
        << shape << "s\": " << report.shapes << ", \"points\": " << report.points
        << ", \"bridges\": " << report.bridges << ", \"bytes\": " << report.bytes
        << ", \"out_of_range\": " << (report.RangeOVL ? "true" : "false")
        << ", \"seconds\": " << std::fixed << std::setprecision(6) << seconds << "}\n";
}

ExitCode export_picture(const ExportArguments& arguments, const Console& console) {
    using Clock = std::chrono::steady_clock;
    const auto start = Clock::now();
    const ExportOptions options = export_options(arguments);
    const PictureJob job(arguments.picture);
    const std::string output = output_name(arguments);
    refuse_to_overwrite(job.inputs(), output);
    // Before the file behind standard output is replaced, if it is the same.
    std::ostream& stats = is_standard_output(output) ? console.error : console.out;

    ConsoleProgress progress(console);
    cImageProcessDIB engine;
    engine.set_observer(&progress);
    cDIBSection picture = job.run(engine, console.in);
    engine.BlackAndWhite2(picture, picture, kExportLimit);
    ExportReport report;
    with_file_name(shown_output(output),
                   [&] { report = engine.Vectorize(picture, utf8_path(output), options); });
    progress.wipe();

    if (arguments.stats)
        print_stats(picture, report, arguments.shape,
                    std::chrono::duration<double>(Clock::now() - start).count(), stats);
    if (!report.RangeOVL) return kExitDone;
    console.error << "kelvane-cli: " << shown_output(output) << ": " << kRangeWarning << '\n';
    return kExitOutOfRange;
}

} // namespace

void add_export_command(CLI::App& app, const Console& console, int& exit_code) {
    CLI::App* command = app.add_subcommand("export", "Write an EAGLE script of a picture");
    const auto arguments = std::make_shared<ExportArguments>();
    add_export_arguments(*command, *arguments);
    command->callback(
        [arguments, console, &exit_code] { exit_code = export_picture(*arguments, console); });
}

} // namespace kelvane
