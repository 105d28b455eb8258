// Where the main window stands, remembered for each computer.
#pragma once

#include "settings/settings_file.h"

#include <windows.h>

#include <optional>
#include <string>

namespace kelvane {

struct WindowPlace {
    /// Neither maximised nor minimised. In workspace coordinates, those of window placements: in
    /// them a monitor's work area begins at the corner of the monitor.
    RECT normal{};
    bool maximised = false;
};

/// The place as the settings file has it, "<left> <top> <width> <height> <maximised>", and back.
/// Nothing for any other text and for a window without a size.
std::wstring place_text(const WindowPlace& place);
std::optional<WindowPlace> parsed_place(const std::wstring& text);

/// Moves a window whose title bar could not be reached with the mouse into the work area of the
/// nearest monitor, no larger than that. Workspace coordinates, as in `WindowPlace`.
RECT within_reach(const RECT& normal);
/// What `within_reach` does when `monitor` is the nearest one.
RECT moved_into(const RECT& normal, const MONITORINFO& monitor);

/// What the settings file remembers for this computer, within reach.
std::optional<WindowPlace> remembered_place(const SettingsFile& settings);
void remember_place(const SettingsFile& settings, HWND window);
/// Puts a window that is not shown yet where `place` says, its maximised state apart.
void put_window(HWND window, const WindowPlace& place);

} // namespace kelvane
