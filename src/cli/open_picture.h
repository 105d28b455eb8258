// Opening and preparing the picture that a command works on.
#pragma once

#include "engine/image_process.h"
#include "image/dib_section.h"

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace CLI {
class App;
}

namespace kelvane {

/// A picture on the command line and what is done to it first.
struct PictureRequest {
    std::string input; ///< file name, UTF-8
    std::vector<std::string> operations;
    std::optional<std::uint32_t> seed; ///< makes the noise of `operations` reproducible
    bool full_size = false;            ///< unless set, the picture is reduced as opening does
};

/// Declares INPUT, --seed and --full-size. How operations are given is the command's own.
void add_picture_options(CLI::App& command, PictureRequest& request);

/// Reads the picture and runs the operations on it with `engine`. Throws `UsageError` for an
/// operation that is not understood, before any file is touched, and `FileError` that begins with
/// the file's name.
cDIBSection prepared_picture(const PictureRequest& request, cImageProcessDIB& engine);

/// Reads the picture `file` (UTF-8) and, unless `full_size`, reduces it as opening does. Throws
/// `FileError` that begins with the file's name.
cDIBSection open_picture(const std::string& file, bool full_size);

/// Runs `work` and puts `file` before the message of a `FileError`.
void with_file_name(const std::string& file, const std::function<void()>& work);

} // namespace kelvane
