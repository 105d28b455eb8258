#include "app/status_bar.h"

#include "win/dpi.h"

#include <commctrl.h>

#include <algorithm>
#include <array>
#include <iterator>

namespace kelvane {
namespace {

// Widths at 96 dots per inch; the message takes what remains. In a narrow window the progress bar
// and the title become narrower, so that the message can still be read.
constexpr int kTitleWidth = 240;
constexpr int kTitlePart = 4; // the title gets at most a quarter of what it shares with the message
constexpr int kSizeWidth = 110;
constexpr int kProgressWidth = 180;
constexpr int kProgressPart = 6; // the bar gets at most a sixth of the window
constexpr int kZoomWidth = 60;   // without the grip
constexpr int kProgressField = 3;
constexpr int kZoomField = 4;
constexpr int kMargin = 2; // pixels between the field's frame and the progress bar

} // namespace

void StatusBar::create(HWND parent) {
    const HINSTANCE instance = GetModuleHandleW(nullptr);
    bar_ = CreateWindowExW(0, STATUSCLASSNAMEW, L"", WS_CHILD | WS_VISIBLE | SBARS_SIZEGRIP, 0, 0,
                           0, 0, parent, nullptr, instance, nullptr);
    progress_ = CreateWindowExW(0, PROGRESS_CLASSW, L"", WS_CHILD, 0, 0, 0, 0, bar_, nullptr,
                                instance, nullptr);
}

int StatusBar::layout() {
    font_ = win::message_font(bar_);
    SendMessageW(bar_, WM_SETFONT, reinterpret_cast<WPARAM>(font_.get()), FALSE);
    SendMessageW(bar_, WM_SIZE, 0, 0);
    RECT area{};
    GetClientRect(bar_, &area);
    const LONG zoom_from =
        area.right - win::scaled(bar_, kZoomWidth) - win::system_metric(bar_, SM_CXVSCROLL);
    const LONG progress_from =
        zoom_from - std::min<LONG>(win::scaled(bar_, kProgressWidth), area.right / kProgressPart);
    const LONG size_from = progress_from - win::scaled(bar_, kSizeWidth);
    const LONG title_from =
        size_from - std::min<LONG>(win::scaled(bar_, kTitleWidth), size_from / kTitlePart);
    std::array<int, 5> ends{static_cast<int>(title_from), static_cast<int>(size_from),
                            static_cast<int>(progress_from), static_cast<int>(zoom_from), -1};
    for (int& end : ends)
        if (end != -1) end = std::max(end, 1);
    SendMessageW(bar_, SB_SETPARTS, ends.size(), reinterpret_cast<LPARAM>(ends.data()));

    RECT field{};
    SendMessageW(bar_, SB_GETRECT, kProgressField, reinterpret_cast<LPARAM>(&field));
    MoveWindow(progress_, field.left + kMargin, field.top + kMargin,
               std::max<LONG>(field.right - field.left - 2 * kMargin, 0),
               std::max<LONG>(field.bottom - field.top - 2 * kMargin, 0), TRUE);
    return static_cast<int>(area.bottom);
}

void StatusBar::SetStatus(const std::wstring& message, const std::wstring& title,
                          const std::wstring& size) {
    const std::array<const std::wstring*, 3> fields{&message, &title, &size};
    for (std::size_t field = 0; field < fields.size(); ++field) {
        if (*fields[field] == L"#") continue;
        const std::wstring shown = L" " + *fields[field];
        SendMessageW(bar_, SB_SETTEXTW, field, reinterpret_cast<LPARAM>(shown.c_str()));
    }
    UpdateWindow(bar_);
}

void StatusBar::SetZoom(const std::wstring& zoom) {
    SendMessageW(bar_, SB_SETTEXTW, kZoomField, reinterpret_cast<LPARAM>((L" " + zoom).c_str()));
}

void StatusBar::ProgressMax(long maximum) {
    SendMessageW(progress_, PBM_SETRANGE32, 0, maximum);
    ProgressValue(0);
}

void StatusBar::ProgressValue(long position) {
    SendMessageW(progress_, PBM_SETPOS, static_cast<WPARAM>(position), 0);
}

void StatusBar::ShowProgress(bool show) {
    ShowWindow(progress_, show ? SW_SHOWNA : SW_HIDE);
}

std::wstring StatusBar::text(int field) const {
    const auto part = static_cast<WPARAM>(field);
    const LRESULT length = LOWORD(SendMessageW(bar_, SB_GETTEXTLENGTHW, part, 0));
    std::wstring text(static_cast<std::size_t>(length) + 1, L'\0');
    SendMessageW(bar_, SB_GETTEXTW, part, reinterpret_cast<LPARAM>(text.data()));
    text.resize(static_cast<std::size_t>(length));
    return text;
}

} // namespace kelvane
