#include "cli/apply_command.h"

#include "cli/console_progress.h"
#include "cli/open_picture.h"
#include "cli/utf8_path.h"
#include "image/bitmap_file.h"

#include <CLI/CLI.hpp>

#include <memory>
#include <string>

namespace kelvane {
namespace {

struct Request {
    PictureRequest picture;
    std::string output;
};

void apply_operations(const Request& request, const Console& console) {
    ConsoleProgress progress(console);
    cImageProcessDIB engine;
    engine.set_observer(&progress);
    const cDIBSection picture = prepared_picture(request.picture, engine);
    with_file_name(request.output, [&] { save_bitmap(picture.view(), utf8_path(request.output)); });
}

} // namespace

void add_apply_command(CLI::App& app, const Console& console) {
    const auto request = std::make_shared<Request>();
    CLI::App* command = app.add_subcommand(
        "apply", "Run operations on a picture and save it as a 24-bit Windows bitmap");
    add_picture_options(*command, request->picture);
    command->add_option("-o,--output", request->output, "the bitmap")
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
