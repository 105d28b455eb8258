// Sliders (trackbar controls).
#pragma once

#include <windows.h>

#include <commctrl.h>

namespace kelvane {

/// Makes the slider class known to the system; before the first dialog that has one is shown.
inline void register_sliders() {
    INITCOMMONCONTROLSEX classes{};
    classes.dwSize = sizeof classes;
    classes.dwICC = ICC_BAR_CLASSES;
    InitCommonControlsEx(&classes);
}

/// Gives a slider the positions 0 to `highest` with a tick every `page`, the step of the page
/// keys; the arrow keys step by `line`.
inline void set_slider_range(HWND slider, int highest, int line, int page) {
    SendMessageW(slider, TBM_SETRANGEMIN, FALSE, 0);
    SendMessageW(slider, TBM_SETRANGEMAX, FALSE, highest);
    SendMessageW(slider, TBM_SETLINESIZE, 0, line);
    SendMessageW(slider, TBM_SETPAGESIZE, 0, page);
    SendMessageW(slider, TBM_SETTICFREQ, static_cast<WPARAM>(page), 0);
}
/// Moves a slider, which does not tell its dialog.
inline void set_slider_position(HWND slider, int position) {
    SendMessageW(slider, TBM_SETPOS, TRUE, position);
}
inline int slider_position(HWND slider) {
    return static_cast<int>(SendMessageW(slider, TBM_GETPOS, 0, 0));
}

} // namespace kelvane
