// The one error type of reading and writing files.
#pragma once

#include <cstddef>
#include <stdexcept>
#include <string>
#include <system_error>

namespace kelvane {

/// What is wrong, for programs that say it in other words than these errors do.
enum class FileFault {
    Other, // only the error's own words tell
    NotFound,
    NoAccess,
    NoSpace,
    IsFolder,
    Unreadable,
    Unwritable,
    Over2Gb,
    Empty,
    Damaged,
    UnknownFormat,
    NoPicture,
    NoPixels, // the width or the height is 0
    TooLarge,
    TooLargeForBitmap,
    NoMemory,
    NoColour, // in the line that `detail` names
};
inline constexpr std::size_t kFileFaults = 17;

/// Why a file could not be read or written: `what` is an English phrase for the user that follows
/// the file's name.
class FileError : public std::runtime_error {
  public:
    /// `detail` takes the place of %1 in the fault's phrase.
    explicit FileError(FileFault fault, std::string detail = {});
    /// What the system answered, in its words.
    explicit FileError(const std::error_code& error);
    /// A cause that only these words tell.
    explicit FileError(const std::string& words) : std::runtime_error(words) {}

    FileFault fault() const { return fault_; }
    const std::string& detail() const { return detail_; }

  private:
    FileFault fault_ = FileFault::Other;
    std::string detail_;
};

} // namespace kelvane
