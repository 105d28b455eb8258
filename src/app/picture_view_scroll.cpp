// Scrolling of PictureView: by bars, wheel and keys, in window pixels. A bar shows only while the
// picture does not fit beside the other bar.
#include "app/picture_view.h"

#include "win/dpi.h"

#include <algorithm>

namespace kelvane {
namespace {

constexpr int kLine = 16; // pixels that one click on an arrow moves
constexpr std::array<int, 2> kBars{SB_HORZ, SB_VERT};

SCROLLINFO scroll_info(HWND window, int bar) {
    SCROLLINFO info{};
    info.cbSize = sizeof info;
    info.fMask = SIF_ALL;
    GetScrollInfo(window, kBars[static_cast<std::size_t>(bar)], &info);
    return info;
}

ViewSize bar_sizes(HWND window) {
    return {win::system_metric(window, SM_CXVSCROLL), win::system_metric(window, SM_CYHSCROLL)};
}

ViewSize view_size(SIZE size) {
    return {static_cast<int>(size.cx), static_cast<int>(size.cy)};
}

} // namespace

SIZE PictureView::size_with_bars(SIZE area) const {
    const ViewSize bars = bar_sizes(window_);
    const auto [across, down] = geometry_.bars_within(view_size(area), bars);
    const ViewSize extent = geometry_.extent();
    return {extent.width + (down ? bars.width : 0), extent.height + (across ? bars.height : 0)};
}

void PictureView::update_bars() {
    const ViewSize bars = bar_sizes(window_);
    ViewSize room = view_size(area());
    const auto [across, down] = geometry_.bars_within(room, bars);
    if (down) room.width -= bars.width;
    if (across) room.height -= bars.height;
    geometry_.set_window({std::max(room.width, 0), std::max(room.height, 0)});

    const ViewSize extent = geometry_.extent();
    const std::array<int, 2> whole{extent.width, extent.height};
    const std::array<int, 2> seen{geometry_.window().width, geometry_.window().height};
    const std::array<bool, 2> shown{across, down};
    for (std::size_t bar = 0; bar < kBars.size(); ++bar) {
        SCROLLINFO info{};
        info.cbSize = sizeof info;
        info.fMask = SIF_RANGE | SIF_PAGE | SIF_POS;
        info.nMax = std::max(whole[bar] - 1, 0);
        info.nPage = static_cast<UINT>(seen[bar]);
        info.nPos = position(static_cast<int>(bar));
        SetScrollInfo(window_, kBars[bar], &info, TRUE);
        ShowScrollBar(window_, kBars[bar], shown[bar]);
    }
}

int PictureView::position(int bar) const {
    return bar == 0 ? geometry_.scroll().x : geometry_.scroll().y;
}

void PictureView::scroll(int bar, UINT request) {
    const SCROLLINFO info = scroll_info(window_, bar);
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

void PictureView::scroll_to(int bar, int position) {
    ViewPoint to = geometry_.scroll();
    (bar == 0 ? to.x : to.y) = position;
    scroll_to(to);
}

void PictureView::scroll_to(ViewPoint to) {
    geometry_.scroll_to(to);
    for (std::size_t bar = 0; bar < kBars.size(); ++bar)
        SetScrollPos(window_, kBars[bar], position(static_cast<int>(bar)), TRUE);
    redraw();
}

void PictureView::wheel(int bar, int delta) {
    UINT lines = 3;
    SystemParametersInfoW(SPI_GETWHEELSCROLLLINES, 0, &lines, 0);
    if (lines == WHEEL_PAGESCROLL) return scroll(bar, delta > 0 ? SB_PAGEUP : SB_PAGEDOWN);
    int& rest = wheel_rest_[static_cast<std::size_t>(bar)];
    rest += delta * static_cast<int>(lines) * kLine;
    scroll_to(bar, position(bar) - rest / WHEEL_DELTA);
    rest %= WHEEL_DELTA;
}

bool PictureView::scroll_by_key(WPARAM key) {
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
