// The help file, shown by the system's HTML help, whose library is loaded at first use.
#pragma once

#include "win/gdi.h"

#include <string>

namespace kelvane {

class Help {
  public:
    /// `file`: full path of the help file.
    explicit Help(std::wstring file) : file_(std::move(file)) {}
    /// Closes the help's windows.
    ~Help();
    Help(const Help&) = delete;
    Help& operator=(const Help&) = delete;

    /// Shows a page in the program's language; `page`: its German context number, IDH_... or a
    /// dialog's IDD_.... Throws `TextError` naming the file when it is missing, and
    /// `PlatformError` when the system has no HTML help or cannot show it.
    void show(HWND owner, int page);

  private:
    std::wstring file_;
    win::Module library_;
};

} // namespace kelvane
