// A folder of one's own for temporary files.
#pragma once

#include <filesystem>

namespace kelvane {

/// A new, empty folder in the platform's folder for temporary files; no other object and no other
/// running program has the same. It goes with the object, with all that is in it, whatever has
/// happened; for what another program still holds open it waits for a moment.
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
};

} // namespace kelvane
