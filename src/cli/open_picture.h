// Opening the picture that a command works on.
#pragma once

#include "image/dib_section.h"

#include <functional>
#include <string>

namespace kelvane {

/// Reads the picture `file` (UTF-8) and, unless `full_size`, reduces it as opening does. Throws
/// `FileError` that begins with the file's name.
cDIBSection open_picture(const std::string& file, bool full_size);

/// Runs `work` and puts `file` before the message of a `FileError`.
void with_file_name(const std::string& file, const std::function<void()>& work);

} // namespace kelvane
