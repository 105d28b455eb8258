#include "cli/apply_command.h"

#include "base/output_file.h"
#include "base/text.h"
#include "cli/console_progress.h"
#include "cli/file_argument.h"
#include "cli/picture_job.h"
#include "cli/same_letters.h"
#include "cli/usage_error.h"
#include "image/bitmap_file.h"
#include "process/dark_bounds.h"

#include <CLI/CLI.hpp>

#include <memory>
#include <string>

namespace kelvane {
namespace {

struct Request {
    PictureRequest picture;
    std::string output;
};

void refuse_other_formats(const std::string& output) {
    if (output == kStandardStream || is_stream(utf8_path(output))) return;
    if (!same_letters(utf8_text(utf8_path(output).extension()), ".bmp"))
        throw UsageError("apply writes a Windows bitmap: the name " + output +
                         " would have to end in .bmp");
}

void apply_operations(const Request& request, const Console& console) {
    const PictureJob job(request.picture);
    refuse_to_overwrite(job.inputs(), request.output);
    refuse_other_formats(request.output);

    ConsoleProgress progress(console);
    cImageProcessDIB engine;
    engine.set_observer(&progress);
    const OpenedPicture opened = job.run(engine, console.in, kAnyGrey);
    with_file_name(shown_output(request.output),
                   [&] { save_bitmap(opened.picture.view(), utf8_path(request.output)); });
    progress.wipe();
    job.tell(opened.origin, console);
}

} // namespace

void add_apply_command(CLI::App& app, const Console& console) {
    const auto request = std::make_shared<Request>();
    CLI::App* command = app.add_subcommand(
        "apply", "Run operations on a picture and save it as a 24-bit Windows bitmap");
    add_picture_options(*command, request->picture);
    command
        ->add_option("-o,--output", request->output, "the bitmap, NAME.bmp; - for standard output")
        ->required()
        ->type_name("FILE");
    command
        ->add_option("OP", request->picture.operations,
                     "operations from left to right, NAME or NAME:ARG[,ARG...]; "
                     "kelvane-cli ops lists them")
        ->required()
        ->type_name("");
    command->footer("Example: kelvane-cli apply photo.jpg -o plan.bmp grayscale sharpen bw:128");
    command->callback([request, console] { apply_operations(*request, console); });
}

} // namespace kelvane
