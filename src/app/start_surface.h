// What the main window shows while no picture is open.
#pragma once

#include "app/mru_file_list.h"
#include "win/gdi.h"
#include "win/window.h"

#include <windows.h>

#include <vector>

namespace kelvane {

/// A sheet in the middle of the document area: how to open a picture, the recent files and the way
/// to the help's first steps. Files and steps are buttons drawn as links, so that Tab, arrow keys
/// and Enter reach them; pressed, they send their command to the parent as WM_COMMAND,
/// `kCmdRecent1` and the following or `kCmdFirstLogo`.
class StartSurface : public win::Window {
  public:
    /// Makes the window, hidden. False when there can be none.
    bool create(HWND parent);
    /// Sets texts in the program's language, and the files.
    void set_texts(const cMRUFileList& recent);
    /// Fills the document area with the surface; for every change of its size or density.
    void place(const RECT& area);
    void show(bool show);
    bool shown() const { return shown_; }
    /// Gives the first link the focus.
    void take_focus() const;
    /// Handles the keys that move among the links.
    bool translate(MSG& message) const;

  protected:
    LRESULT on_message(UINT message, WPARAM w, LPARAM l) override;

  private:
    struct Line {
        HWND control;
        LONG gap; // to the line above
        SIZE size;
    };
    HWND add(const wchar_t* kind, DWORD style, int id);
    void set_fonts();
    std::vector<Line> lines(LONG room) const;
    void arrange();
    void draw_background(HDC context) const;
    void draw_link(const DRAWITEMSTRUCT& item) const;
    SIZE size_of(HWND control, LONG room) const;

    HWND hint_ = nullptr;
    HWND recent_title_ = nullptr;
    std::vector<HWND> links_; // the recent files, then the first steps
    bool shown_ = false;
    RECT sheet_{};
    win::Font font_;
    win::Font large_font_;
};

} // namespace kelvane
