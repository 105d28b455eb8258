// The wait cursor.
#pragma once

#include <windows.h>

namespace kelvane::win {

/// Shows the wait cursor at once and restores the previous cursor in the destructor. A window that
/// handles WM_SETCURSOR may change the cursor meanwhile when the mouse moves.
class WaitCursor {
  public:
    WaitCursor() : before_(SetCursor(LoadCursorW(nullptr, IDC_WAIT))) {}
    ~WaitCursor() { SetCursor(before_); }
    WaitCursor(const WaitCursor&) = delete;
    WaitCursor& operator=(const WaitCursor&) = delete;

  private:
    HCURSOR before_;
};

/// Lets the window of this thread under the mouse choose its cursor, which else stays as it is
/// until the mouse moves.
void renew_cursor();

} // namespace kelvane::win
