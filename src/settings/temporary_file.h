// Temporary files; see private_folder.h for folders.
#pragma once

#include <windows.h>

#include <string>

namespace kelvane {

/// The platform's folder for temporary files, with a backslash at its end. Throws `PlatformError`.
std::wstring TempDir();

/// Makes an empty file with a new name in `folder` (when empty: in `TempDir`) and returns its
/// path; the name begins with the first three characters of `prefix`. Throws `PlatformError`.
std::wstring TempFileName(const std::wstring& prefix, const std::wstring& folder);

/// An empty file in the platform's folder for temporary files; deleted with the object, whatever
/// has become of it. Throws `PlatformError`.
class TemporaryFile {
  public:
    TemporaryFile() : path_(TempFileName(L"VBIM", {})) {}
    ~TemporaryFile() { DeleteFileW(path_.c_str()); }
    TemporaryFile(const TemporaryFile&) = delete;
    TemporaryFile& operator=(const TemporaryFile&) = delete;
    const std::wstring& path() const { return path_; }

  private:
    std::wstring path_;
};

} // namespace kelvane
