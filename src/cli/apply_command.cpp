#include "cli/apply_command.h"

#include "cli/console_progress.h"
#include "cli/open_picture.h"
#include "cli/operations.h"
#include "cli/utf8_path.h"
#include "image/bitmap_file.h"

#include <CLI/CLI.hpp>

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace kelvane {
namespace {

struct Request {
    std::string input;
    std::string output;
    std::vector<std::string> operations;
    std::optional<std::uint32_t> seed;
    bool full_size = false;
};

void apply_operations(const Request& request, const Console& console) {
    const std::vector<Operation> operations = parse_operations(request.operations);
    ConsoleProgress progress(console);
    cDIBSection picture = open_picture(request.input, request.full_size);
    cImageProcessDIB engine;
    engine.set_observer(&progress);
    run_operations(operations, request.seed, picture, engine);
    with_file_name(request.output, [&] { save_bitmap(picture.view(), utf8_path(request.output)); });
}

} // namespace

void add_apply_command(CLI::App& app, const Console& console) {
    const auto request = std::make_shared<Request>();
    CLI::App* command = app.add_subcommand(
        "apply", "Run operations on a picture and save it as a 24-bit Windows bitmap");
    command->add_option("INPUT", request->input, "the picture")->required()->type_name("");
    command->add_option("-o,--output", request->output, "the bitmap")
        ->required()
        ->type_name("FILE");
    command
        ->add_option("OP", request->operations,
                     "operations from left to right, NAME or NAME:ARG[,ARG...]; "
                     "kelvane-cli ops lists them")
        ->required()
        ->type_name("");
    command->add_option("--seed", request->seed, "makes the operation noise reproducible")
        ->type_name("N");
    command->add_flag("--full-size", request->full_size,
                      "keep a picture larger than about 3200 x 2400");
    command->footer("Example: kelvane-cli apply photo.jpg -o plan.bmp grayscale sharpen bw:128");
    command->callback([request, console] { apply_operations(*request, console); });
}

} // namespace kelvane
