// A folder of one's own for temporary files.
#pragma once

#include "win/unique_handle.h"

#include <filesystem>

namespace kelvane {

/// A new, empty folder in the platform's folder for temporary files; no other object and no other
/// running program has the same. The destructor removes it with all that is in it; for what
/// another program still holds open it waits for a moment.
///
/// What a program left behind that was ended before its destructors ran is removed when the next
/// such folder is made, by whatever program.
class PrivateFolder {
  public:
    /// Throws `PlatformError` when it cannot be made.
    PrivateFolder();
    ~PrivateFolder();
    PrivateFolder(const PrivateFolder&) = delete;
    PrivateFolder& operator=(const PrivateFolder&) = delete;

    const std::filesystem::path& path() const { return path_; }
    std::filesystem::path operator/(const std::filesystem::path& name) const {
        return path_ / name;
    }

  private:
    std::filesystem::path path_;
    // The folder itself: while it is open, others can neither remove nor rename it.
    UniqueHandle in_use_;
};

} // namespace kelvane
