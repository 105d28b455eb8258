// Scrolling of frmImage by bars, wheel and keys, in pixels. A bar is shown only while the picture
// does not fit into the room that the other bar leaves.
#include "app/image_window.h"

#include "win/dpi.h"

#include <algorithm>

namespace kelvane {
namespace {

constexpr int kLine = 16; // pixels of one click on an arrow
constexpr std::array<int, 2> kBars{SB_HORZ, SB_VERT};

SCROLLINFO scroll_info(HWND window, int bar) {
    SCROLLINFO info{};
    info.cbSize = sizeof info;
    info.fMask = SIF_ALL;
    GetScrollInfo(window, kBars[static_cast<std::size_t>(bar)], &info);
    return info;
}

bool has_bar(HWND window, LONG style) {
    return (GetWindowLongW(window, GWL_STYLE) & style) != 0;
}

} // namespace

int frmImage::position(int bar) const {
    return scroll_info(window(), bar).nPos;
}

// The client area as it would be without bars.
SIZE frmImage::view_size() const {
    RECT client{};
    GetClientRect(window(), &client);
    SIZE size{client.right, client.bottom};
    if (has_bar(window(), WS_VSCROLL)) size.cx += win::system_metric(window(), SM_CXVSCROLL);
    if (has_bar(window(), WS_HSCROLL)) size.cy += win::system_metric(window(), SM_CYHSCROLL);
    return size;
}

// Which bars the picture needs in a client area of this size. Each bar reduces the other side.
frmImage::Bars frmImage::bars_within(SIZE view) const {
    const int width = document_.ImageWidth();
    const int height = document_.ImageHeight();
    const bool across = width > view.cx;
    const bool down = height > view.cy - (across ? win::system_metric(window(), SM_CYHSCROLL) : 0);
    return {width > view.cx - (down ? win::system_metric(window(), SM_CXVSCROLL) : 0), down};
}

// The picture's size with the bars that it needs in a client area of this size.
SIZE frmImage::size_with_bars(SIZE view) const {
    const auto [across, down] = bars_within(view);
    return {document_.ImageWidth() + (down ? win::system_metric(window(), SM_CXVSCROLL) : 0),
            document_.ImageHeight() + (across ? win::system_metric(window(), SM_CYHSCROLL) : 0)};
}

void frmImage::layout() {
    if (laying_out_ || IsIconic(window())) return; // showing a bar changes the size again
    laying_out_ = true;
    SIZE view = view_size();
    const auto [across, down] = bars_within(view);
    if (down) view.cx -= win::system_metric(window(), SM_CXVSCROLL);
    if (across) view.cy -= win::system_metric(window(), SM_CYHSCROLL);

    const std::array<int, 2> picture{document_.ImageWidth(), document_.ImageHeight()};
    const std::array<LONG, 2> seen{view.cx, view.cy};
    const std::array<bool, 2> shown{across, down};
    for (std::size_t bar = 0; bar < kBars.size(); ++bar) {
        SCROLLINFO info{};
        info.cbSize = sizeof info;
        info.fMask = SIF_RANGE | SIF_PAGE;
        info.nMax = std::max(picture[bar] - 1, 0);
        info.nPage = static_cast<UINT>(std::max<LONG>(seen[bar], 0));
        SetScrollInfo(window(), kBars[bar], &info, TRUE);
        ShowScrollBar(window(), kBars[bar], shown[bar]);
    }
    laying_out_ = false;
    InvalidateRect(window(), nullptr, FALSE);
}

void frmImage::scroll(int bar, UINT request) {
    const SCROLLINFO info = scroll_info(window(), bar);
    const int page = std::max(static_cast<int>(info.nPage), 1);
    switch (request) {
    case SB_LINEUP:
        return scroll_to(bar, info.nPos - kLine);
    case SB_LINEDOWN:
        return scroll_to(bar, info.nPos + kLine);
    case SB_PAGEUP:
        return scroll_to(bar, info.nPos - page);
    case SB_PAGEDOWN:
        return scroll_to(bar, info.nPos + page);
    case SB_THUMBTRACK:
    case SB_THUMBPOSITION:
        return scroll_to(bar, info.nTrackPos); // 32 bits wide, unlike the message's own
    case SB_TOP:
        return scroll_to(bar, 0);
    case SB_BOTTOM:
        return scroll_to(bar, info.nMax);
    default:
        return;
    }
}

void frmImage::scroll_to(int bar, int position) {
    SCROLLINFO info{};
    info.cbSize = sizeof info;
    info.fMask = SIF_POS;
    info.nPos = std::max(position, 0); // the system limits it to the last page
    SetScrollInfo(window(), kBars[static_cast<std::size_t>(bar)], &info, TRUE);
    InvalidateRect(window(), nullptr, FALSE);
}

void frmImage::wheel(int bar, int delta) {
    UINT lines = 3;
    SystemParametersInfoW(SPI_GETWHEELSCROLLLINES, 0, &lines, 0);
    if (lines == WHEEL_PAGESCROLL) return scroll(bar, delta > 0 ? SB_PAGEUP : SB_PAGEDOWN);
    int& rest = wheel_rest_[static_cast<std::size_t>(bar)];
    rest += delta * static_cast<int>(lines) * kLine;
    scroll_to(bar, position(bar) - rest / WHEEL_DELTA);
    rest %= WHEEL_DELTA;
}

bool frmImage::key(WPARAM key) {
    struct Scroll {
        WPARAM key;
        int bar;
        UINT request;
    };
    static constexpr std::array<Scroll, 10> kKeys{{
        {VK_LEFT, 0, SB_LINEUP},
        {VK_RIGHT, 0, SB_LINEDOWN},
        {VK_UP, 1, SB_LINEUP},
        {VK_DOWN, 1, SB_LINEDOWN},
        {VK_PRIOR, 1, SB_PAGEUP},
        {VK_NEXT, 1, SB_PAGEDOWN},
        {VK_HOME, 0, SB_TOP},
        {VK_HOME, 1, SB_TOP},
        {VK_END, 0, SB_BOTTOM},
        {VK_END, 1, SB_BOTTOM},
    }};
    bool used = false;
    for (const Scroll& entry : kKeys) {
        if (entry.key != key) continue;
        scroll(entry.bar, entry.request);
        used = true;
    }
    return used;
}

} // namespace kelvane
