#include "cli/open_picture.h"

#include "cli/operations.h"
#include "cli/utf8_path.h"
#include "image/file_error.h"
#include "image/picture_reader.h"
#include "image/size_limit.h"

#include <CLI/CLI.hpp>

namespace kelvane {

void add_picture_options(CLI::App& command, PictureRequest& request) {
    command.add_option("INPUT", request.input, "the picture")->required()->type_name("");
    command.add_option("--seed", request.seed, "makes the operation noise reproducible")
        ->type_name("N");
    command.add_flag("--full-size", request.full_size,
                     "keep a picture larger than about 3200 x 2400");
}

cDIBSection prepared_picture(const PictureRequest& request, cImageProcessDIB& engine) {
    const std::vector<Operation> operations = parse_operations(request.operations);
    cDIBSection picture = open_picture(request.input, request.full_size);
    run_operations(operations, request.seed, picture, engine);
    return picture;
}

cDIBSection open_picture(const std::string& file, bool full_size) {
    cDIBSection picture;
    with_file_name(file, [&] {
        picture = read_picture(utf8_path(file));
        if (!full_size && !Render2(picture))
            throw FileError("there is not enough memory to reduce the picture");
    });
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
