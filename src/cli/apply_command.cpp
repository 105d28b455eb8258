#include "cli/apply_command.h"

#include "cli/operations.h"
#include "cli/utf8_path.h"
#include "image/bitmap_file.h"
#include "image/file_error.h"
#include "image/picture_reader.h"
#include "image/size_limit.h"

#include <CLI/CLI.hpp>

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace kelvane {
namespace {

struct ApplyOptions {
    std::string input;
    std::string output;
    std::vector<std::string> operations;
    std::optional<std::uint32_t> seed;
    bool full_size = false;
};

cDIBSection open_input(const ApplyOptions& options) try {
    cDIBSection picture = read_picture(utf8_path(options.input));
    if (!options.full_size && !Render2(picture))
        throw FileError("there is not enough memory for the picture");
    return picture;
} catch (const FileError& error) {
    throw FileError(options.input + ": " + error.what());
}

void save_output(const cDIBSection& picture, const ApplyOptions& options) try {
    save_bitmap(picture.view(), utf8_path(options.output));
} catch (const FileError& error) {
    throw FileError(options.output + ": " + error.what());
}

void run(const ApplyOptions& options) {
    // All are understood before the first file is touched.
    std::vector<Operation> steps;
    for (const std::string& text : options.operations)
        steps.push_back(parse_operation(text));
    cDIBSection picture = open_input(options);
    cImageProcessDIB engine;
    if (options.seed) engine.seed_noise(*options.seed);
    for (const Operation& step : steps)
        step(picture, engine);
    save_output(picture, options);
}

} // namespace

void add_apply_command(CLI::App& app) {
    const auto options = std::make_shared<ApplyOptions>();
    CLI::App* command = app.add_subcommand(
        "apply", "Run operations on a picture, left to right, and save a 24-bit Windows bitmap.");
    command->add_option("INPUT", options->input, "Picture file")->required();
    command->add_option("-o,--output", options->output, "Bitmap file to write")->required();
    command
        ->add_option("OP", options->operations,
                     "Operations: NAME or NAME:ARG[,ARG...]; see kelvane-cli ops")
        ->required();
    command->add_option("--seed", options->seed, "Whole number that makes noise reproducible");
    command->add_flag("--full-size", options->full_size,
                      "Do not reduce pictures larger than 3200 x 2400");
    command->footer("Example: kelvane-cli apply photo.jpg -o plan.bmp grayscale sharpen bw:128");
    command->callback([options] { run(*options); });
}

} // namespace kelvane
