#include "app/pixel_tip.h"

#include "export/export_options.h"
#include "process/dark_bounds.h"
#include "texts/string_table.h"
#include "win/dpi.h"

#include "ids.h"

#include <commctrl.h>

namespace kelvane {
namespace {

constexpr int kDistance = 16; // from the point, at 96 dots per inch

TTTOOLINFOW tool(HWND owner) {
    TTTOOLINFOW info{};
    info.cbSize = TTTOOLINFOW_V2_SIZE;
    info.uFlags = TTF_TRACK | TTF_ABSOLUTE | TTF_TRANSPARENT;
    info.hwnd = owner;
    return info;
}

HWND create(HWND owner) {
    const HWND tip = CreateWindowExW(WS_EX_TOPMOST | WS_EX_TRANSPARENT, TOOLTIPS_CLASSW, nullptr,
                                     WS_POPUP | TTS_ALWAYSTIP | TTS_NOPREFIX, CW_USEDEFAULT,
                                     CW_USEDEFAULT, CW_USEDEFAULT, CW_USEDEFAULT, owner, nullptr,
                                     GetModuleHandleW(nullptr), nullptr);
    TTTOOLINFOW info = tool(owner);
    wchar_t none[] = L"";
    info.lpszText = none;
    SendMessageW(tip, TTM_ADDTOOLW, 0, reinterpret_cast<LPARAM>(&info));
    // A tip with a largest width breaks lines.
    SendMessageW(tip, TTM_SETMAXTIPWIDTH, 0, win::scaled(owner, 400));
    return tip;
}

} // namespace

std::wstring pixel_text(const cDIBSection& picture, ViewPoint pixel) {
    const ConstImageView view = picture.view();
    const std::uint8_t* bytes = view.pixel(pixel.x, view.height - 1 - pixel.y);
    const bool black = DarkBounds({bytes, 1, 1, view.row_step}, kExportLimit).has_value();
    return LoadString(IDS_PIXEL_TIP, {std::to_wstring(pixel.x), std::to_wstring(pixel.y),
                                      std::to_wstring(bytes[2]), std::to_wstring(bytes[1]),
                                      std::to_wstring(bytes[0]),
                                      LoadString(black ? IDS_PIXEL_BLACK : IDS_PIXEL_WHITE)});
}

PixelTip::~PixelTip() {
    if (IsWindow(tip_)) DestroyWindow(tip_); // it may have gone with its owner
}

void PixelTip::show(HWND owner, POINT at, const std::wstring& text) {
    if (tip_ == nullptr) tip_ = create(owner_ = owner);
    TTTOOLINFOW info = tool(owner_);
    if (text != text_) {
        text_ = text;
        info.lpszText = text_.data();
        SendMessageW(tip_, TTM_UPDATETIPTEXTW, 0, reinterpret_cast<LPARAM>(&info));
    }
    place(at);
    if (!shown_) SendMessageW(tip_, TTM_TRACKACTIVATE, TRUE, reinterpret_cast<LPARAM>(&info));
    shown_ = true;
}

// Below and right of the point; on the other side of it where the monitor ends.
void PixelTip::place(POINT at) const {
    MONITORINFO monitor{};
    monitor.cbSize = sizeof monitor;
    GetMonitorInfoW(MonitorFromPoint(at, MONITOR_DEFAULTTONEAREST), &monitor);
    TTTOOLINFOW info = tool(owner_);
    const LRESULT size = SendMessageW(tip_, TTM_GETBUBBLESIZE, 0, reinterpret_cast<LPARAM>(&info));
    const LONG distance = win::scaled(owner_, kDistance);
    const auto beside = [distance](LONG point, LONG length, LONG end) {
        const LONG after = point + distance;
        return after + length <= end ? after : point - distance - length;
    };
    SendMessageW(tip_, TTM_TRACKPOSITION, 0,
                 MAKELPARAM(beside(at.x, LOWORD(size), monitor.rcWork.right),
                            beside(at.y, HIWORD(size), monitor.rcWork.bottom)));
}

void PixelTip::hide() {
    if (!shown_) return;
    TTTOOLINFOW info = tool(owner_);
    SendMessageW(tip_, TTM_TRACKACTIVATE, FALSE, reinterpret_cast<LPARAM>(&info));
    shown_ = false;
}

} // namespace kelvane
