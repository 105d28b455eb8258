// Failures of files in the program's language.
#pragma once

#include "base/file_error.h"

#include <string>

namespace kelvane {

/// What is wrong with the file, as a phrase for the end of a message: the string table's, or the
/// error's own words where it has none.
std::wstring file_error_text(const FileError& error);

} // namespace kelvane
