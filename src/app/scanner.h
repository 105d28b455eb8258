// Scanning through EZTW32.DLL, which is loaded at first use.
#pragma once

#include "win/gdi.h"

#include <string>

namespace kelvane {

/// The scanner library. Its functions run their own message loops and return when the user has
/// finished with the scanner's dialog.
class Scanner {
  public:
    /// Loads the library from the program's folder. Throws `TextError` saying what to install when
    /// it is not there or is no library for this program.
    Scanner();

    /// Lets the user choose one of the scanners.
    void TWAIN_SelectImageSource(HWND owner) const;
    /// Scans into a bitmap file. False when the user cancelled. Throws `PlatformError`.
    bool TWAIN_AcquireToFilename(HWND owner, const std::wstring& file) const;

  private:
    win::Module library_;
};

} // namespace kelvane
