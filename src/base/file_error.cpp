#include "base/file_error.h"

#include <iterator>
#include <utility>

namespace kelvane {
namespace {

// In the order of the faults.
constexpr const char* kPhrases[] = {
    "unknown cause",
    "No such file or directory",
    "Permission denied",
    "No space left on device",
    "is a folder",
    "cannot be read",
    "cannot be written",
    "is larger than 2 GB",
    "the file is empty",
    "the picture is damaged or cut short",
    "not a picture that can be read",
    "there is no picture in the file",
    "the picture has no pixels",
    "the picture is too large",
    "the picture is too large for a bitmap file",
    "there is not enough memory for the picture",
    "line %1 is not three numbers from 0 to 255",
};
static_assert(std::size(kPhrases) == kFileFaults);

std::string phrase(FileFault fault, const std::string& detail) {
    std::string text = kPhrases[static_cast<std::size_t>(fault)];
    if (const std::size_t at = text.find("%1"); at != std::string::npos)
        text.replace(at, 2, detail);
    return text;
}

FileFault fault_of(const std::error_code& error) {
    if (error == std::errc::no_such_file_or_directory) return FileFault::NotFound;
    if (error == std::errc::permission_denied || error == std::errc::operation_not_permitted ||
        error == std::errc::read_only_file_system)
        return FileFault::NoAccess;
    return error == std::errc::no_space_on_device ? FileFault::NoSpace : FileFault::Other;
}

} // namespace

FileError::FileError(FileFault fault, std::string detail)
    : std::runtime_error(phrase(fault, detail)), fault_(fault), detail_(std::move(detail)) {}

FileError::FileError(const std::error_code& error)
    : std::runtime_error(error.message()), fault_(fault_of(error)) {}

} // namespace kelvane
