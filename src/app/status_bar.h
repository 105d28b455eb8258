// The main window's last line: three fields, the progress bar and the zoom.
#pragma once

#include "win/gdi.h"

#include <windows.h>

#include <string>

namespace kelvane {

class StatusBar {
  public:
    /// Makes the bar at the bottom of `parent`, which owns its window.
    void create(HWND parent);
    /// Fits the bar to the parent's width and to the density of its monitor; its height.
    int layout();

    /// Shows each text with a blank before it; "#" leaves the field as it is.
    void SetStatus(const std::wstring& message, const std::wstring& title,
                   const std::wstring& size);
    /// Shows the zoom in the last field; an empty text clears it.
    void SetZoom(const std::wstring& zoom);
    /// Sets the end of the progress bar's range and puts the bar to 0.
    void ProgressMax(long maximum);
    void ProgressValue(long position);
    void ShowProgress(bool show);
    /// The text of a field as it is shown: 0 message, 1 title, 2 size, 4 zoom.
    std::wstring text(int field) const;

    HWND window() const { return bar_; }
    HWND progress() const { return progress_; }

  private:
    HWND bar_ = nullptr;
    HWND progress_ = nullptr;
    win::Font font_;
};

} // namespace kelvane
