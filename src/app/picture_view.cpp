#include "app/picture_view.h"

#include "win/dpi.h"
#include "win/gdi.h"

#include <algorithm>
#include <string>

namespace kelvane {
namespace {

// WM_DPICHANGED_AFTERPARENT, which the headers know for later systems only: the main window has
// come to a monitor of another density.
constexpr UINT kDensityChanged = 0x02E3;

// Far outside of every window, and within what GDI can draw.
LONG near_window(LONG position, LONG window) {
    constexpr LONG kOutside = 16;
    return std::clamp(position, -kOutside, window + kOutside);
}

} // namespace

void PictureView::attach(HWND window) {
    window_ = window;
    geometry_.set_picture({document_.ImageWidth(), document_.ImageHeight()});
}

void PictureView::picture_changed() {
    const ViewSize size{document_.ImageWidth(), document_.ImageHeight()};
    if (size != geometry_.picture()) {
        end_drag();
        selection_.clear();
    }
    geometry_.set_picture(size);
    painter_.forget();
    tip_.hide();
    layout();
}

SIZE PictureView::area() const {
    RECT client{};
    GetClientRect(window_, &client);
    const LONG style = GetWindowLongW(window_, GWL_STYLE);
    if ((style & WS_VSCROLL) != 0) client.right += win::system_metric(window_, SM_CXVSCROLL);
    if ((style & WS_HSCROLL) != 0) client.bottom += win::system_metric(window_, SM_CYHSCROLL);
    return {client.right, client.bottom};
}

// Shows the bars that the picture needs and tells the geometry what room they leave.
void PictureView::layout() {
    if (laying_out_ || IsIconic(window_)) return; // showing a bar changes the size again
    laying_out_ = true;
    update_bars();
    laying_out_ = false;
    redraw();
}

int PictureView::zoom() const {
    return (geometry_.zoom() + 50) / 100;
}

void PictureView::zoom_in() {
    zoom_to(geometry_.larger_zoom());
}

void PictureView::zoom_out() {
    zoom_to(geometry_.smaller_zoom());
}

void PictureView::zoom_one_to_one() {
    zoom_to(ViewGeometry::kOneToOne);
}

void PictureView::zoom_to_fit() {
    const SIZE room = area();
    zoom_to(geometry_.fitting_zoom({static_cast<int>(room.cx), static_cast<int>(room.cy)}));
}

void PictureView::zoom_to(int zoom) {
    zoom_about(zoom, fixed_point());
}

void PictureView::zoom_about(int zoom, POINT fixed) {
    if (zoom == geometry_.zoom()) return;
    geometry_.zoom_to(zoom, {fixed.x, fixed.y});
    tip_.hide();
    layout();
    zoom_changed_();
}

POINT PictureView::fixed_point() const {
    if (fixed_point_) return *fixed_point_;
    RECT client{};
    POINT point{};
    GetClientRect(window_, &client);
    GetCursorPos(&point);
    const HWND under = WindowFromPoint(point);
    ScreenToClient(window_, &point);
    if (under == window_ && PtInRect(&client, point)) return point;
    return {client.right / 2, client.bottom / 2};
}

std::optional<LRESULT> PictureView::handle(UINT message, WPARAM w, LPARAM l) {
    switch (message) {
    case WM_PAINT:
        paint();
        return 0;
    case WM_ERASEBKGND:
        return TRUE; // `paint` covers everything
    case WM_SIZE:
        layout();
        return std::nullopt; // DefMDIChildProc handles it as well
    case kDensityChanged:
        layout(); // scroll bars have another width
        return 0;
    case WM_HSCROLL:
    case WM_VSCROLL:
        scroll(message == WM_VSCROLL, LOWORD(w));
        return 0;
    case WM_SYSKEYDOWN: // opens a menu or changes to another program
    case WM_KILLFOCUS:
        tip_.hide(); // it would stay in front of everything
        return std::nullopt;
    case WM_KEYDOWN:
        return key(w) ? std::optional<LRESULT>(0) : std::nullopt;
    default:
        return handle_mouse(message, w, l);
    }
}

// Drawn in memory first: the selection over the picture would flicker.
void PictureView::paint() {
    const win::Paint paint(window_);
    RECT client{};
    GetClientRect(window_, &client);
    const win::MemoryContext memory(CreateCompatibleDC(paint.context()));
    const win::Bitmap bitmap(CreateCompatibleBitmap(paint.context(), client.right, client.bottom));
    if (!memory || !bitmap) return draw(paint.context());
    const win::Selected selected(memory.get(), bitmap.get());
    draw(memory.get());
    const RECT& area = paint.area();
    BitBlt(paint.context(), area.left, area.top, area.right - area.left, area.bottom - area.top,
           memory.get(), area.left, area.top, SRCCOPY);
}

void PictureView::draw(HDC context) {
    RECT client{};
    GetClientRect(window_, &client);
    FillRect(context, &client, GetSysColorBrush(COLOR_APPWORKSPACE));
    painter_.draw(context, document_.picture(), geometry_);
    if (selection_) draw_selection(context);
}

// Dots in black on white, around the selected pixels where the picture does not end there.
void PictureView::draw_selection(HDC context) const {
    const PixelRect place = geometry_.place_of(*selection_.rect());
    const ViewPoint scroll = geometry_.scroll();
    const ViewSize extent = geometry_.extent();
    const ViewSize room = geometry_.window();
    const LONG right = std::min(place.left + place.width, extent.width - scroll.x - 1);
    const LONG bottom = std::min(place.top + place.height, extent.height - scroll.y - 1);
    const RECT frame{near_window(std::max(place.left - 1, -scroll.x), room.width),
                     near_window(std::max(place.top - 1, -scroll.y), room.height),
                     near_window(right, room.width), near_window(bottom, room.height)};
    const win::Pen pen(CreatePen(PS_DOT, 1, RGB(0, 0, 0)));
    const win::Selected dots(context, pen.get());
    const win::Selected hollow(context, GetStockObject(NULL_BRUSH));
    SetBkMode(context, OPAQUE);
    SetBkColor(context, RGB(255, 255, 255));
    Rectangle(context, frame.left, frame.top, frame.right + 1, frame.bottom + 1);
    draw_size(context, frame);
}

// "<width> x <height>" below and right of the selection, or inside where the window ends.
void PictureView::draw_size(HDC context, const RECT& frame) const {
    const PixelRect pixels = *selection_.rect();
    const std::wstring text =
        L' ' + std::to_wstring(pixels.width) + L" x " + std::to_wstring(pixels.height) + L' ';
    const win::Font font = win::message_font(window_);
    const win::Selected selected(context, font.get());
    SIZE size{};
    GetTextExtentPoint32W(context, text.c_str(), static_cast<int>(text.size()), &size);
    const LONG gap = win::scaled(window_, 3);
    const ViewSize room = geometry_.window();
    RECT box{};
    box.left = std::max(std::min(frame.right + gap, room.width - size.cx - gap), 0L);
    box.top = std::max(std::min(frame.bottom + gap, room.height - size.cy - gap), 0L);
    box.right = box.left + size.cx;
    box.bottom = box.top + size.cy;
    SetTextColor(context, GetSysColor(COLOR_INFOTEXT));
    SetBkColor(context, GetSysColor(COLOR_INFOBK));
    ExtTextOutW(context, box.left, box.top, ETO_OPAQUE, &box, text.c_str(),
                static_cast<UINT>(text.size()), nullptr);
}

} // namespace kelvane
