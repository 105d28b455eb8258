#include "app/window_place.h"

#include "settings/catalogue.h"

#include <algorithm>
#include <cwchar>

namespace kelvane {
namespace {

constexpr LONG kLargest = 32767; // sides and positions beyond are no window's

std::wstring computer_name() {
    wchar_t name[MAX_COMPUTERNAME_LENGTH + 1] = L"";
    DWORD length = std::size(name);
    return GetComputerNameW(name, &length) ? name : L"";
}

MONITORINFO info_of(HMONITOR monitor) {
    MONITORINFO info{};
    info.cbSize = sizeof info;
    GetMonitorInfoW(monitor, &info);
    return info;
}

bool is_in_work_area(POINT point) {
    const HMONITOR monitor = MonitorFromPoint(point, MONITOR_DEFAULTTONULL);
    if (monitor == nullptr) return false;
    const RECT work = info_of(monitor).rcWork;
    return PtInRect(&work, point) != FALSE;
}

bool has_reachable_title(const RECT& on_screen) {
    // Two points of the title bar, right of the icon and left of the buttons.
    const LONG y = on_screen.top + GetSystemMetrics(SM_CYCAPTION) / 2;
    const LONG third = (on_screen.right - on_screen.left) / 3;
    return is_in_work_area({on_screen.left + third, y}) &&
           is_in_work_area({on_screen.right - third, y});
}

// Where workspace coordinates count from: a task bar at the top or left moves them.
POINT workspace_origin(const MONITORINFO& monitor) {
    return {monitor.rcWork.left - monitor.rcMonitor.left,
            monitor.rcWork.top - monitor.rcMonitor.top};
}

RECT moved(const RECT& rect, LONG right, LONG down) {
    return {rect.left + right, rect.top + down, rect.right + right, rect.bottom + down};
}

WINDOWPLACEMENT placement_of(HWND window) {
    WINDOWPLACEMENT placement{};
    placement.length = sizeof placement;
    GetWindowPlacement(window, &placement);
    return placement;
}

} // namespace

std::wstring place_text(const WindowPlace& place) {
    const RECT& normal = place.normal;
    return std::to_wstring(normal.left) + L' ' + std::to_wstring(normal.top) + L' ' +
           std::to_wstring(normal.right - normal.left) + L' ' +
           std::to_wstring(normal.bottom - normal.top) + (place.maximised ? L" 1" : L" 0");
}

std::optional<WindowPlace> parsed_place(const std::wstring& text) {
    long left = 0, top = 0, width = 0, height = 0;
    int maximised = 0;
    if (std::swscanf(text.c_str(), L"%6ld %6ld %6ld %6ld %1d", &left, &top, &width, &height,
                     &maximised) != 5)
        return std::nullopt;
    if (std::max({std::abs(left), std::abs(top), width, height}) > kLargest || width <= 0 ||
        height <= 0)
        return std::nullopt;
    return WindowPlace{{left, top, left + width, top + height}, maximised == 1};
}

RECT moved_into(const RECT& normal, const MONITORINFO& monitor) {
    const POINT origin = workspace_origin(monitor);
    const RECT work = moved(monitor.rcWork, -origin.x, -origin.y);
    const LONG width = std::min(normal.right - normal.left, work.right - work.left);
    const LONG height = std::min(normal.bottom - normal.top, work.bottom - work.top);
    const LONG left = std::clamp(normal.left, work.left, work.right - width);
    const LONG top = std::clamp(normal.top, work.top, work.bottom - height);
    return {left, top, left + width, top + height};
}

RECT within_reach(const RECT& normal) {
    const MONITORINFO monitor = info_of(MonitorFromRect(&normal, MONITOR_DEFAULTTONEAREST));
    const POINT origin = workspace_origin(monitor);
    const bool reachable = has_reachable_title(moved(normal, origin.x, origin.y));
    return reachable ? normal : moved_into(normal, monitor);
}

std::optional<WindowPlace> remembered_place(const SettingsFile& settings) {
    auto place = parsed_place(settings.ReadIniValue(settings::kWindowSection, computer_name()));
    if (place) place->normal = within_reach(place->normal);
    return place;
}

void remember_place(const SettingsFile& settings, HWND window) {
    const WINDOWPLACEMENT placement = placement_of(window);
    const bool maximised =
        IsZoomed(window) || (IsIconic(window) && (placement.flags & WPF_RESTORETOMAXIMIZED) != 0);
    settings.WriteIniValue(settings::kWindowSection, computer_name(),
                           place_text({placement.rcNormalPosition, maximised}));
}

void put_window(HWND window, const WindowPlace& place) {
    WINDOWPLACEMENT placement = placement_of(window);
    placement.showCmd = SW_HIDE;
    placement.rcNormalPosition = place.normal;
    SetWindowPlacement(window, &placement);
}

} // namespace kelvane
