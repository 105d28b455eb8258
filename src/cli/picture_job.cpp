#include "cli/picture_job.h"

#include "base/file_bytes.h"
#include "base/file_error.h"
#include "base/text.h"
#include "cli/file_argument.h"
#include "cli/number_argument.h"
#include "image/picture_reader.h"
#include "image/size_limit.h"

#include <CLI/CLI.hpp>

#include <limits>

namespace kelvane {

void add_picture_options(CLI::App& command, PictureRequest& request) {
    command.add_option("INPUT", request.input, "the picture; - for standard input")
        ->required()
        ->type_name("");
    command.add_option("--seed", request.seed, "makes the operation noise reproducible")
        ->type_name("N");
    command
        .add_flag("--full-size", request.full_size, "keep a picture larger than about 3200 x 2400")
        ->disable_flag_override();
}

PictureJob::PictureJob(const PictureRequest& request)
    : operations_(parse_operations(request.operations)), inputs_(operations_.files),
      full_size_(request.full_size) {
    inputs_.insert(inputs_.begin(), request.input);
    if (request.seed)
        seed_ = number_argument<std::uint32_t>("--seed", *request.seed, 0,
                                               std::numeric_limits<std::uint32_t>::max());
}

cDIBSection PictureJob::run(cImageProcessDIB& engine, std::istream& standard_input) const {
    cDIBSection picture;
    with_file_name(shown_input(inputs_[0]), [&] { picture = open(standard_input); });
    run_operations(operations_, seed_, picture, engine);
    return picture;
}

cDIBSection PictureJob::open(std::istream& standard_input) const {
    cDIBSection picture = inputs_[0] == kStandardStream
                              ? decode_picture(read_stream_bytes(standard_input))
                              : read_picture(utf8_path(inputs_[0]));
    if (!full_size_ && !Render2(picture))
        throw FileError("there is not enough memory to reduce the picture");
    return picture;
}

void with_file_name(const std::string& file, const std::function<void()>& work) {
    try {
        work();
    } catch (const FileError& error) {
        throw FileError(file + ": " + error.what());
    }
}

} // namespace kelvane
