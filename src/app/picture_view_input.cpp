// Mouse and keys of PictureView: zoom, selection, moving the picture, and the value of a pixel.
#include "app/picture_view.h"

#include <windowsx.h>

#include <algorithm>
#include <cstdlib>

namespace kelvane {
namespace {

constexpr UINT_PTR kDragTimer = 1;
constexpr UINT kDragPause = 40; // milliseconds between two steps while the mouse is outside
constexpr int kFastStep = 10;   // pixels that a key with Ctrl moves the selection's corner

POINT point_of(LPARAM l) {
    return {GET_X_LPARAM(l), GET_Y_LPARAM(l)};
}

bool is_down(int key) {
    return GetKeyState(key) < 0;
}

// How far a position lies outside of 0 to `size` - 1.
int excess(LONG position, int size) {
    const auto inside = std::clamp<LONG>(position, 0, std::max(size - 1, 0));
    return static_cast<int>(position - inside);
}

// The mouse may have come to rest before a menu opened: a tip would cover it.
bool menu_is_open() {
    GUITHREADINFO state{};
    state.cbSize = sizeof state;
    return GetGUIThreadInfo(GetCurrentThreadId(), &state) && (state.flags & GUI_INMENUMODE) != 0;
}

bool is_drag(POINT from, POINT to) {
    return std::abs(from.x - to.x) >= GetSystemMetrics(SM_CXDRAG) ||
           std::abs(from.y - to.y) >= GetSystemMetrics(SM_CYDRAG);
}

} // namespace

std::optional<LRESULT> PictureView::handle_mouse(UINT message, WPARAM w, LPARAM l) {
    switch (message) {
    case WM_MOUSEWHEEL:
        tip_.hide();
        if ((LOWORD(w) & MK_CONTROL) != 0) {
            POINT point = point_of(l);
            ScreenToClient(window_, &point);
            zoom_by_wheel(GET_WHEEL_DELTA_WPARAM(w), point);
        } else {
            wheel((LOWORD(w) & MK_SHIFT) == 0, GET_WHEEL_DELTA_WPARAM(w));
        }
        return 0;
    case WM_MOUSEHWHEEL:
        wheel(0, -GET_WHEEL_DELTA_WPARAM(w));
        return 0;
    case WM_LBUTTONDOWN:
        press(point_of(l), is_down(VK_SPACE));
        return 0;
    case WM_MBUTTONDOWN:
        press(point_of(l), true);
        return 0;
    case WM_MOUSEMOVE:
        if (drag_ != Drag::None)
            drag_to(point_of(l));
        else
            hover(point_of(l));
        return 0;
    case WM_TIMER:
        if (w != kDragTimer) break;
        if (is_outside(drag_point_)) drag_to(drag_point_);
        return 0;
    case WM_LBUTTONUP:
    case WM_MBUTTONUP:
        release();
        return 0;
    case WM_CAPTURECHANGED:
        end_drag();
        return 0;
    case WM_MOUSEHOVER:
        if (drag_ == Drag::None && !menu_is_open()) show_tip(point_of(l));
        return 0;
    case WM_MOUSELEAVE:
        tip_.hide();
        return 0;
    case WM_RBUTTONDOWN:
        tip_.hide();
        break; // the menu comes when the button is released
    case WM_SETCURSOR:
        if (LOWORD(l) != HTCLIENT || !is_down(VK_SPACE)) break;
        SetCursor(LoadCursorW(nullptr, IDC_SIZEALL));
        return TRUE;
    default:
        break;
    }
    return std::nullopt;
}

bool PictureView::is_outside(POINT point) const {
    return excess(point.x, geometry_.window().width) != 0 ||
           excess(point.y, geometry_.window().height) != 0;
}

void PictureView::press(POINT point, bool pan) {
    if (drag_ != Drag::None) return; // a second button changes nothing
    tip_.hide();
    drag_ = pan ? Drag::Pan : Drag::Press;
    drag_from_ = drag_point_ = point;
    drag_start_ = pan ? geometry_.scroll() : geometry_.pixel_at({point.x, point.y});
    drag_start_outside_ = beyond_picture(point);
    SetCapture(window_);
    if (pan)
        SetCursor(LoadCursorW(nullptr, IDC_SIZEALL));
    else
        SetTimer(window_, kDragTimer, kDragPause, nullptr);
}

// Outside of the window a selection scrolls the picture by what the mouse is outside.
void PictureView::drag_to(POINT point) {
    drag_point_ = point;
    if (drag_ == Drag::Pan)
        return scroll_to(
            {drag_start_.x + drag_from_.x - point.x, drag_start_.y + drag_from_.y - point.y});
    if (drag_ == Drag::Press && !is_drag(drag_from_, point)) return;
    drag_ = Drag::Select;
    const int right = excess(point.x, geometry_.window().width);
    const int down = excess(point.y, geometry_.window().height);
    const ViewPoint scrolled = geometry_.scroll();
    scroll_to({scrolled.x + right, scrolled.y + down});
    const Sides outside = beyond_picture(point);
    if ((outside.right && drag_start_outside_.right) ||
        (outside.below && drag_start_outside_.below))
        return clear_selection(); // the rectangle lies beside the picture
    selection_.span(drag_start_, geometry_.pixel_at({point.x - right, point.y - down}));
    redraw();
}

PictureView::Sides PictureView::beyond_picture(POINT point) const {
    const ViewPoint scroll = geometry_.scroll();
    const ViewSize extent = geometry_.extent();
    return {point.x + scroll.x >= extent.width, point.y + scroll.y >= extent.height};
}

// A click that was no drag removes the selection.
void PictureView::release() {
    if (drag_ == Drag::Press) clear_selection();
    end_drag();
}

void PictureView::end_drag() {
    if (drag_ == Drag::None) return;
    drag_ = Drag::None;
    KillTimer(window_, kDragTimer);
    if (GetCapture() == window_) ReleaseCapture();
}

// Finer wheels send parts of a step.
void PictureView::zoom_by_wheel(int delta, POINT point) {
    zoom_rest_ += delta;
    for (; zoom_rest_ >= WHEEL_DELTA; zoom_rest_ -= WHEEL_DELTA)
        zoom_about(geometry_.larger_zoom(), point);
    for (; zoom_rest_ <= -WHEEL_DELTA; zoom_rest_ += WHEEL_DELTA)
        zoom_about(geometry_.smaller_zoom(), point);
}

// A tip that is there follows the mouse; otherwise it comes when the mouse rests.
void PictureView::hover(POINT point) {
    if (tip_.shown()) show_tip(point);
    TRACKMOUSEEVENT track{};
    track.cbSize = sizeof track;
    track.dwFlags = TME_LEAVE | (tip_.shown() ? 0 : TME_HOVER);
    track.hwndTrack = window_;
    track.dwHoverTime = HOVER_DEFAULT;
    TrackMouseEvent(&track);
}

void PictureView::show_tip(POINT point) {
    const ViewPoint at{point.x, point.y};
    if (!geometry_.covers(at) ||
        geometry_.picture() != ViewSize{document_.ImageWidth(), document_.ImageHeight()})
        return tip_.hide();
    const std::wstring text = pixel_text(document_.picture(), geometry_.pixel_at(at));
    ClientToScreen(window_, &point);
    tip_.show(window_, point, text);
}

bool PictureView::key(WPARAM key) {
    const bool control = is_down(VK_CONTROL);
    tip_.hide();
    if (select_by_key(key)) return true;
    switch (key) {
    case VK_ESCAPE:
        if (drag_ == Drag::None && !selection_) return false;
        end_drag();
        clear_selection();
        return true;
    case VK_SPACE:
        return true; // held down, it makes the mouse move the picture
    case VK_OEM_PLUS:
    case VK_ADD:
        if (control) zoom_in();
        return control;
    case VK_OEM_MINUS:
    case VK_SUBTRACT:
        if (control) zoom_out();
        return control;
    case '0':
    case VK_NUMPAD0:
        if (control) zoom_one_to_one();
        return control;
    case '9':
    case VK_NUMPAD9:
        if (control) zoom_to_fit();
        return control;
    case 'A':
        if (control) select_all();
        return control;
    default:
        return scroll_by_key(key);
    }
}

// Shift and an arrow move the corner of the selection by a pixel, with Ctrl by ten; the first time
// they begin one at the upper left pixel that is seen. Ctrl alone moves the whole selection.
bool PictureView::select_by_key(WPARAM key) {
    const bool shift = is_down(VK_SHIFT);
    const bool control = is_down(VK_CONTROL);
    const int right = (key == VK_RIGHT) - (key == VK_LEFT);
    const int down = (key == VK_DOWN) - (key == VK_UP);
    if ((right == 0 && down == 0) || !(shift || (control && selection_))) return false;
    if (shift) {
        const int step = control ? kFastStep : 1;
        if (!selection_) selection_.span(geometry_.pixel_at({}), geometry_.pixel_at({}));
        selection_.move_corner(right * step, down * step, geometry_.picture());
    } else {
        selection_.move(right, down, geometry_.picture());
    }
    geometry_.show_pixel(selection_.corner());
    scroll_to(geometry_.scroll());
    const PixelRect place =
        geometry_.place_of({selection_.corner().x, selection_.corner().y, 1, 1});
    show_tip({place.left + place.width / 2, place.top + place.height / 2});
    return true;
}

void PictureView::select_all() {
    const ViewSize size = geometry_.picture();
    selection_.span({0, 0}, {size.width - 1, size.height - 1});
    redraw();
}

void PictureView::clear_selection() {
    selection_.clear();
    redraw();
}

} // namespace kelvane
