// A file that is needed for a moment.
#pragma once

#include "settings/folders.h"

#include <windows.h>

#include <string>

namespace kelvane {

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
