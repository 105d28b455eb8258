#include "app/start_surface.h"

#include "app/commands.h"
#include "texts/string_table.h"
#include "win/dialog.h"
#include "win/dpi.h"

#include "ids.h"

#include <algorithm>
#include <cstdlib>

namespace kelvane {
namespace {

constexpr const wchar_t* kClassName = L"KelvaneStart";

// At 96 dots per inch.
constexpr int kSheetWidth = 560;
constexpr int kMargin = 28;    // between the sheet's edge and its texts
constexpr int kOutside = 16;   // at least between the sheet and the window's sides
constexpr int kParagraph = 20; // between two paragraphs
constexpr int kLine = 6;       // between two links

constexpr int kLargePercent = 170; // the hint's letters

win::Font enlarged(const win::Font& font, int percent) {
    LOGFONTW description{};
    GetObjectW(font.get(), sizeof description, &description);
    description.lfHeight = MulDiv(description.lfHeight, percent, 100);
    return win::Font(CreateFontIndirectW(&description));
}

void set_font(HWND control, const win::Font& font) {
    SendMessageW(control, WM_SETFONT, reinterpret_cast<WPARAM>(font.get()), FALSE);
}

// The system's colour of links, unless it is too light or too dark to be read on the sheet.
COLORREF link_colour() {
    const auto brightness = [](COLORREF colour) {
        return (2 * GetRValue(colour) + 5 * GetGValue(colour) + GetBValue(colour)) / 8;
    };
    constexpr int kReadable = 100;
    const COLORREF link = GetSysColor(COLOR_HOTLIGHT);
    const int difference = brightness(link) - brightness(GetSysColor(COLOR_WINDOW));
    return std::abs(difference) >= kReadable ? link : GetSysColor(COLOR_WINDOWTEXT);
}

} // namespace

bool StartSurface::create(HWND parent) {
    WNDCLASSEXW window_class{};
    window_class.lpszClassName = kClassName;
    window_class.hCursor = LoadCursorW(nullptr, IDC_ARROW);
    register_class(window_class);
    expect_window();
    if (CreateWindowExW(0, kClassName, L"", WS_CHILD | WS_CLIPCHILDREN | WS_CLIPSIBLINGS, 0, 0, 0,
                        0, parent, nullptr, GetModuleHandleW(nullptr), nullptr) == nullptr)
        return false;
    hint_ = add(L"Static", SS_CENTER | SS_NOPREFIX, 0);
    recent_title_ = add(L"Static", SS_NOPREFIX, 0);
    for (unsigned id = kCmdRecent1; id <= kCmdRecent4; ++id)
        links_.push_back(add(L"Button", BS_OWNERDRAW | WS_TABSTOP, static_cast<int>(id)));
    links_.push_back(add(L"Button", BS_OWNERDRAW | WS_TABSTOP, kCmdFirstLogo));
    return hint_ != nullptr && recent_title_ != nullptr &&
           std::ranges::find(links_, HWND{}) == links_.end();
}

HWND StartSurface::add(const wchar_t* kind, DWORD style, int id) {
    return CreateWindowExW(0, kind, L"", WS_CHILD | style, 0, 0, 0, 0, window(),
                           reinterpret_cast<HMENU>(static_cast<INT_PTR>(id)),
                           GetModuleHandleW(nullptr), nullptr);
}

void StartSurface::set_texts(const cMRUFileList& recent) {
    SetWindowTextW(hint_, LoadString(IDS_START_HINT).c_str());
    SetWindowTextW(recent_title_, LoadString(IDS_START_RECENT).c_str());
    for (std::size_t i = 0; i + 1 < links_.size(); ++i)
        SetWindowTextW(links_[i], recent.file(static_cast<int>(i) + 1).c_str());
    SetWindowTextW(links_.back(), LoadString(IDS_START_FIRST_LOGO).c_str());
    arrange();
}

void StartSurface::place(const RECT& area) {
    SetWindowPos(window(), HWND_TOP, area.left, area.top, area.right - area.left,
                 area.bottom - area.top, SWP_NOACTIVATE);
    set_fonts();
    arrange();
}

void StartSurface::set_fonts() {
    font_ = win::message_font(window());
    large_font_ = enlarged(font_, kLargePercent);
    set_font(hint_, large_font_);
    set_font(recent_title_, font_);
    for (const HWND link : links_)
        set_font(link, font_);
}

SIZE StartSurface::size_of(HWND control, LONG room) const {
    const win::WindowContext context(control);
    const auto font = reinterpret_cast<HGDIOBJ>(SendMessageW(control, WM_GETFONT, 0, 0));
    const win::Selected selected(context.get(), font);
    const std::wstring text = win::window_text(control);
    const UINT break_lines = control == hint_ ? DT_WORDBREAK : DT_SINGLELINE;
    RECT needed{0, 0, room, 0};
    DrawTextW(context.get(), text.c_str(), -1, &needed, DT_CALCRECT | DT_NOPREFIX | break_lines);
    return {control == hint_ ? room : std::min(needed.right, room), needed.bottom};
}

// All lines from top to bottom, at most `room` pixels wide. Without a size: those without a text.
std::vector<StartSurface::Line> StartSurface::lines(LONG room) const {
    std::vector<Line> lines;
    const auto add = [&](HWND control, int gap, bool shown) {
        lines.push_back(shown ? Line{control, win::scaled(window(), gap), size_of(control, room)}
                              : Line{control, 0, {}});
    };
    const auto has_text = [](HWND control) { return GetWindowTextLengthW(control) != 0; };
    add(hint_, 0, true);
    add(recent_title_, kParagraph, has_text(links_.front()));
    for (const HWND link : links_)
        add(link, link == links_.back() ? kParagraph : kLine, has_text(link));
    return lines;
}

void StartSurface::arrange() {
    const auto scaled = [this](int length) { return win::scaled(window(), length); };
    RECT area{};
    GetClientRect(window(), &area);
    const LONG width =
        std::max<LONG>(std::min<LONG>(scaled(kSheetWidth), area.right - 2 * scaled(kOutside)), 1);
    const LONG margin = scaled(kMargin);
    const std::vector<Line> sheet = lines(std::max<LONG>(width - 2 * margin, 1));
    LONG height = 2 * margin;
    for (const Line& line : sheet)
        height += line.gap + line.size.cy;
    const LONG left = (area.right - width) / 2;
    const LONG top = std::max<LONG>((area.bottom - height) / 2, 0);
    sheet_ = {left, top, left + width, top + height};
    LONG y = top + margin;
    for (const Line& line : sheet) {
        y += line.gap;
        MoveWindow(line.control, left + margin, y, line.size.cx, line.size.cy, FALSE);
        ShowWindow(line.control, line.size.cy != 0 ? SW_SHOWNA : SW_HIDE);
        y += line.size.cy;
    }
    RedrawWindow(window(), nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_ALLCHILDREN);
}

void StartSurface::show(bool show) {
    shown_ = show;
    ShowWindow(window(), show ? SW_SHOWNA : SW_HIDE);
}

void StartSurface::take_focus() const {
    for (const HWND link : links_)
        if (IsWindowVisible(link)) {
            SetFocus(link);
            return;
        }
}

// Only keys that are pressed: letters belong to the menu.
bool StartSurface::translate(MSG& message) const {
    return message.message == WM_KEYDOWN && IsChild(window(), message.hwnd) &&
           IsDialogMessageW(window(), &message);
}

LRESULT StartSurface::on_message(UINT message, WPARAM w, LPARAM l) {
    switch (message) {
    case WM_ERASEBKGND:
        draw_background(reinterpret_cast<HDC>(w));
        return TRUE;
    case WM_CTLCOLORSTATIC:
        SetTextColor(reinterpret_cast<HDC>(w), GetSysColor(COLOR_WINDOWTEXT));
        SetBkColor(reinterpret_cast<HDC>(w), GetSysColor(COLOR_WINDOW));
        return reinterpret_cast<LRESULT>(GetSysColorBrush(COLOR_WINDOW));
    case WM_DRAWITEM:
        draw_link(*reinterpret_cast<const DRAWITEMSTRUCT*>(l));
        return TRUE;
    case WM_SETCURSOR:
        if (std::ranges::find(links_, reinterpret_cast<HWND>(w)) == links_.end()) break;
        SetCursor(LoadCursorW(nullptr, IDC_HAND));
        return TRUE;
    case DM_GETDEFID: // what Enter presses
        return MAKELRESULT(GetDlgCtrlID(GetFocus()), DC_HASDEFID);
    case WM_COMMAND:
        if (HIWORD(w) == BN_CLICKED && LOWORD(w) > IDCANCEL)
            PostMessageW(GetParent(window()), WM_COMMAND, LOWORD(w), 0);
        return 0;
    default:
        break;
    }
    return default_procedure(message, w, l);
}

void StartSurface::draw_background(HDC context) const {
    RECT area{};
    GetClientRect(window(), &area);
    FillRect(context, &area, GetSysColorBrush(COLOR_APPWORKSPACE));
    FillRect(context, &sheet_, GetSysColorBrush(COLOR_WINDOW));
    FrameRect(context, &sheet_, GetSysColorBrush(COLOR_WINDOWFRAME));
}

// Underlined by a line of its own: an underlined font of the same size may be wider.
void StartSurface::draw_link(const DRAWITEMSTRUCT& item) const {
    RECT area = item.rcItem;
    FillRect(item.hDC, &area, GetSysColorBrush(COLOR_WINDOW));
    SetBkMode(item.hDC, TRANSPARENT);
    SetTextColor(item.hDC, link_colour());
    const std::wstring text = win::window_text(item.hwndItem);
    DrawTextW(item.hDC, text.c_str(), -1, &area, DT_SINGLELINE | DT_NOPREFIX | DT_PATH_ELLIPSIS);
    area.top = area.bottom - win::scaled(window(), 1);
    SetDCBrushColor(item.hDC, link_colour());
    FillRect(item.hDC, &area, static_cast<HBRUSH>(GetStockObject(DC_BRUSH)));
    if ((item.itemState & ODS_FOCUS) != 0 && (item.itemState & ODS_NOFOCUSRECT) == 0)
        DrawFocusRect(item.hDC, &item.rcItem);
}

} // namespace kelvane
