// The one error type of reading and writing files.
#pragma once

#include <stdexcept>

namespace kelvane {

/// Why a file could not be read or written: a phrase for the user that follows the file's name.
class FileError : public std::runtime_error {
    using std::runtime_error::runtime_error;
};

} // namespace kelvane
