// A document's picture in its window: drawing, zoom, scrolling, selection, and what the mouse and
// the keys do with them.
#pragma once

#include "app/image_document.h"
#include "app/picture_painter.h"
#include "app/pixel_tip.h"
#include "view/selection.h"
#include "view/view_geometry.h"

#include <windows.h>

#include <array>
#include <functional>
#include <optional>

namespace kelvane {

class PictureView {
  public:
    /// `document` outlives the view; `zoom_changed` is called after every change of the zoom.
    PictureView(const ImageDocument& document, std::function<void()> zoom_changed)
        : document_(document), zoom_changed_(std::move(zoom_changed)) {}

    /// `window` shows the picture. It is made with WS_HSCROLL and WS_VSCROLL and passes every
    /// message to `handle` first.
    void attach(HWND window);
    /// The result of a message that is completely handled; nothing for all others.
    std::optional<LRESULT> handle(UINT message, WPARAM w, LPARAM l);
    /// The picture has changed. Another size ends the selection.
    void picture_changed();

    /// The client area as it would be without scroll bars.
    SIZE area() const;
    /// The zoomed picture's size with the scroll bars that it needs in an area of this size.
    SIZE size_with_bars(SIZE area) const;

    /// In percent.
    int zoom() const;
    /// These keep the picture's point under the cursor in its place, or the one in the middle of
    /// the window if the cursor is elsewhere.
    void zoom_in();
    void zoom_out();
    void zoom_one_to_one();
    void zoom_to_fit();
    /// While it lives, a zoom keeps this point of the window in place instead of the one under the
    /// cursor: for commands of a menu, over which the cursor is.
    class FixedPoint {
      public:
        FixedPoint(PictureView& view, POINT point) : view_(view) { view.fixed_point_ = point; }
        ~FixedPoint() { view_.fixed_point_.reset(); }
        FixedPoint(const FixedPoint&) = delete;
        FixedPoint& operator=(const FixedPoint&) = delete;

      private:
        PictureView& view_;
    };

    /// The selected pixels; nothing without a selection.
    std::optional<PixelRect> selection() const { return selection_.rect(); }
    /// What the tool-tip under the cursor says; empty while there is none.
    std::wstring tip_text() const { return tip_.shown() ? tip_.text() : std::wstring(); }

  private:
    enum class Drag { None, Press, Select, Pan };
    // The picture begins in the window's upper left corner: there is nothing on the other sides.
    struct Sides {
        bool right;
        bool below;
    };

    // picture_view.cpp
    void layout();
    void redraw() const { InvalidateRect(window_, nullptr, FALSE); }
    void paint();
    void draw(HDC context);
    void draw_selection(HDC context) const;
    void draw_size(HDC context, const RECT& frame) const;
    void zoom_to(int zoom);
    void zoom_about(int zoom, POINT fixed);
    POINT fixed_point() const;

    // picture_view_scroll.cpp; index 0 is the horizontal bar, 1 the vertical one.
    void update_bars();
    void scroll(int bar, UINT request);
    void scroll_to(int bar, int position);
    void scroll_to(ViewPoint position);
    void wheel(int bar, int delta);
    bool scroll_by_key(WPARAM key);
    int position(int bar) const;

    // picture_view_input.cpp
    std::optional<LRESULT> handle_mouse(UINT message, WPARAM w, LPARAM l);
    bool is_outside(POINT point) const;
    Sides beyond_picture(POINT point) const;
    void press(POINT point, bool pan);
    void drag_to(POINT point);
    void release();
    void end_drag();
    void zoom_by_wheel(int delta, POINT point);
    void hover(POINT point);
    void show_tip(POINT point);
    bool key(WPARAM key);
    bool select_by_key(WPARAM key);
    void select_all();
    void clear_selection();

    const ImageDocument& document_;
    std::function<void()> zoom_changed_;
    HWND window_ = nullptr;
    ViewGeometry geometry_;
    PicturePainter painter_;
    Selection selection_;
    PixelTip tip_;
    std::array<int, 2> wheel_rest_{}; // turns too small for a step yet
    int zoom_rest_ = 0;
    bool laying_out_ = false;
    std::optional<POINT> fixed_point_;

    Drag drag_ = Drag::None;
    POINT drag_from_{};      // where the button went down
    POINT drag_point_{};     // where the mouse is now
    ViewPoint drag_start_{}; // selecting: the first pixel; moving: the scroll position then
    Sides drag_start_outside_{};
};

} // namespace kelvane
