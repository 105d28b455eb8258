#include "cli/export_command.h"

#include "base/text.h"
#include "cli/board_text.h"
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

using Clock = std::chrono::steady_clock;

// An export from its arguments to what is told of it.
class Export {
  public:
    Export(const ExportArguments& arguments, const Console& console)
        : arguments_(arguments), console_(console), pixel_size_(arguments.size),
          job_(arguments.picture), output_(output_name(arguments)) {
        question_.options = export_options(arguments, pixel_size_);
        question_.limits = board_limits(arguments, question_.options);
        question_.mirrored = is_mirrored(arguments);
        question_.measures = arguments.stats || console.shows_progress;
        refuse_to_overwrite(job_.inputs(), output_);
        // Asked now: the file behind standard output may be the one that the script replaces.
        stats_ = is_standard_output(output_) ? &console.error : &console.out;
    }

    ExitCode run() {
        ConsoleProgress progress(console_);
        engine_.set_observer(&progress);
        const OpenedPicture opened = open();
        // Before the script is written: afterwards nothing may fail.
        board_ = check_board(opened.picture.view(), question_);
        if (arguments_.strict) count(CountExport(opened.picture.view(), question_.options));
        const bool writes = !arguments_.strict || board_.warnings.empty();
        if (writes) write(opened.picture);
        progress.wipe();
        tell(opened);
        if (!writes) return kExitWarned;
        return counts_.RangeOVL ? kExitOutOfRange : kExitDone;
    }

  private:
    // The picture that is traced; its size gives the pixels theirs.
    OpenedPicture open() {
        OpenedPicture opened = job_.run(engine_, console_.in, kExportLimit);
        cDIBSection& picture = opened.picture;
        if (arguments_.mirror) engine_.Mirror(picture);
        engine_.BlackAndWhite2(picture, picture, kExportLimit);
        with_file_name(shown_input(job_.inputs()[0]), [&] {
            question_.options.size =
                pixel_size_.of(picture.Width(), picture.Height(), opened.origin);
        });
        return opened;
    }

    void count(const ExportReport& counts) {
        counts_ = counts;
        add_objects(board_, counts);
    }

    void write(const cDIBSection& picture) {
        with_file_name(shown_output(output_), [&] {
            count(engine_.Vectorize(picture, utf8_path(output_), question_.options));
        });
    }

    void tell(const OpenedPicture& opened) const {
        if (arguments_.stats) print_stats(opened.picture);
        job_.tell(opened.origin, console_);
        std::ostream& error = console_.error;
        const std::string output = shown_output(output_);
        if (console_.shows_progress && !arguments_.stats)
            error << "kelvane-cli: " << output << ": " << summary_text(board_, counts_, question_)
                  << '\n';
        for (const BoardWarning warning : board_.warnings)
            error << "kelvane-cli: warning: " << warning_text(warning, board_, question_) << '\n';
        if (arguments_.strict && !board_.warnings.empty())
            error << "kelvane-cli: " << output << ": not written, because of --strict\n";
        else if (counts_.RangeOVL)
            error << "kelvane-cli: " << output << ": " << kRangeWarning << '\n';
    }

    void print_stats(const cDIBSection& picture) const {
        const double seconds = std::chrono::duration<double>(Clock::now() - start_).count();
        *stats_ << "{\"width\": " << picture.Width() << ", \"height\": " << picture.Height()
                << ", \"dark_pixels\": " << counts_.dark_pixels << ", \"runs\": " << counts_.runs
                << ", \"" << arguments_.shape << "s\": " << counts_.shapes
                << ", \"points\": " << counts_.points << ", \"bridges\": " << counts_.bridges
                << ", \"bytes\": " << counts_.bytes
                << ", \"out_of_range\": " << (counts_.RangeOVL ? "true" : "false")
                << ", \"seconds\": " << std::fixed << std::setprecision(6) << seconds << ", "
                << board_json(board_, question_) << "}\n";
    }

    const Clock::time_point start_ = Clock::now();
    const ExportArguments& arguments_;
    const Console& console_;
    const PixelSize pixel_size_;
    BoardQuestion question_;
    const PictureJob job_;
    const std::string output_;
    std::ostream* stats_;
    cImageProcessDIB engine_;
    ExportReport counts_; // what is written; with --strict and a warning, what would have been
    BoardReport board_;
};

} // namespace

void add_export_command(CLI::App& app, const Console& console, int& exit_code) {
    CLI::App* command = app.add_subcommand("export", "Write an EAGLE script of a picture");
    const auto arguments = std::make_shared<ExportArguments>();
    add_export_arguments(*command, *arguments);
    command->callback(
        [arguments, console, &exit_code] { exit_code = Export(*arguments, console).run(); });
}

} // namespace kelvane
