#include "cli/open_picture.h"

#include "cli/utf8_path.h"
#include "image/file_error.h"
#include "image/picture_reader.h"
#include "image/size_limit.h"

namespace kelvane {

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
