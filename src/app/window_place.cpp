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

bool is_on_monitor(LONG x, LONG y) {
    return MonitorFromPoint({x, y}, MONITOR_DEFAULTTONULL) != nullptr;
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

RECT within_reach(const RECT& normal) {
    // Two points of the title bar, right of the icon and left of the buttons.
    const LONG y = normal.top + GetSystemMetrics(SM_CYCAPTION) / 2;
    const LONG third = (normal.right - normal.left) / 3;
    if (is_on_monitor(normal.left + third, y) && is_on_monitor(normal.right - third, y))
        return normal;
    MONITORINFO monitor{};
    monitor.cbSize = sizeof monitor;
    GetMonitorInfoW(MonitorFromRect(&normal, MONITOR_DEFAULTTONEAREST), &monitor);
    const RECT& work = monitor.rcWork;
    const LONG width = std::min(normal.right - normal.left, work.right - work.left);
    const LONG height = std::min(normal.bottom - normal.top, work.bottom - work.top);
    const LONG left = std::clamp(normal.left, work.left, work.right - width);
    const LONG top = std::clamp(normal.top, work.top, work.bottom - height);
    return {left, top, left + width, top + height};
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
