#include "dialogs/frmSW.h"

#include "dialogs/slider.h"
#include "settings/catalogue.h"
#include "win/arrow_keys.h"
#include "win/picture_box.h"

#include "ids.h"

#include <windowsx.h>

#include <algorithm>

namespace kelvane {
namespace {

constexpr Caption kCaptions[] = {
    {IDC_REDUCE_TYPE, IDS_REDUCE_TYPE},
    {IDC_REDUCE_BRIGHTNESS, IDS_REDUCE_BRIGHTNESS},
    {IDC_REDUCE_COLOURS, IDS_REDUCE_COLOURS},
    {IDC_REDUCE_EDGES, IDS_REDUCE_EDGES},
    {IDC_REDUCE_LIMIT_LABEL, IDS_REDUCE_LIMIT},
    {IDC_REDUCE_RED, IDS_REDUCE_RED},
    {IDC_REDUCE_GREEN, IDS_REDUCE_GREEN},
    {IDC_REDUCE_BLUE, IDS_REDUCE_BLUE},
    {IDC_REDUCE_PREVIEW_LABEL, IDS_REDUCE_PREVIEW},
    {IDOK, IDS_REDUCE_OK},
    {IDCANCEL, IDS_REDUCE_CANCEL},
};

constexpr int kLowestLimit = 1;
constexpr int kHighestLimit = kLargestLimit;
// Slider position before a reduction was first used; for brightness the limit of the export.
constexpr int kDesignedLimit = kExportLimit;

struct Slider {
    int id;
    OptionalSetting setting;
};
constexpr Slider kSliders[] = {
    {IDC_REDUCE_BRIGHTNESS_LIMIT, settings::kBrightnessLimit},
    {IDC_REDUCE_COLOUR_LIMIT, settings::kColourLimit},
    {IDC_REDUCE_EDGE_LIMIT, settings::kEdgeLimit},
};

struct ChannelBox {
    int id;
    NumberSetting setting;
};
constexpr ChannelBox kChannelBoxes[] = {
    {IDC_REDUCE_RED, settings::kUseRed},
    {IDC_REDUCE_GREEN, settings::kUseGreen},
    {IDC_REDUCE_BLUE, settings::kUseBlue},
};

void prepare_slider(HWND slider, int position) {
    set_slider_range(slider, kHighestLimit, 1, 16);
    SendMessageW(slider, TBM_SETRANGEMIN, FALSE, kLowestLimit);
    set_slider_position(slider, position);
}

void repaint(HWND control) {
    RedrawWindow(control, nullptr, nullptr, RDW_INVALIDATE | RDW_UPDATENOW);
}

} // namespace

frmSW::frmSW(const SettingsFile& settings, const cDIBSection& picture)
    : Form(IDD_REDUCE, IDS_REDUCE_TITLE, kCaptions), settings_(settings), preview_(picture) {
    register_sliders();
}

void frmSW::load() {
    Form::load();
    result.reset();
    density_changed();
    if (!preview_.detail_shows_all()) serve_keys();
    restore();
    show_kind();
}

// Lets the overview take the focus and the arrow keys, which move the frame in it.
void frmSW::serve_keys() const {
    const HWND overview = control(IDC_REDUCE_OVERVIEW);
    SetWindowLongW(overview, GWL_STYLE, GetWindowLongW(overview, GWL_STYLE) | WS_TABSTOP);
    win::take_arrow_keys(overview);
}

void frmSW::density_changed() {
    fit_preview(IDC_REDUCE_OVERVIEW);
    fit_preview(IDC_REDUCE_DETAIL);
}

void frmSW::restore() {
    for (const Slider& each : kSliders) {
        const int stored = read_setting(settings_, each.setting).value_or(kDesignedLimit);
        const bool usable = stored >= kLowestLimit && stored <= kHighestLimit;
        prepare_slider(control(each.id), usable ? stored : kDesignedLimit);
    }
    // A channel without a key is unticked, unless all keys are missing: the reduction was then
    // never used, and all channels are ticked.
    const bool stored = std::ranges::any_of(kChannelBoxes, [this](const ChannelBox& box) {
        return !settings_.ReadIniValue(box.setting.section, box.setting.key).empty();
    });
    for (const ChannelBox& box : kChannelBoxes)
        check(box.id, !stored || read_setting(settings_, box.setting) != 0);
    check_radio(IDC_REDUCE_BRIGHTNESS, IDC_REDUCE_EDGES, IDC_REDUCE_BRIGHTNESS);
}

Reduction frmSW::chosen() const {
    Reduction reduction{
        ReductionKind::Brightness,
        slider_position(slider()),
        {checked(IDC_REDUCE_RED), checked(IDC_REDUCE_GREEN), checked(IDC_REDUCE_BLUE)}};
    if (checked(IDC_REDUCE_COLOURS)) reduction.kind = ReductionKind::Colours;
    if (checked(IDC_REDUCE_EDGES)) reduction.kind = ReductionKind::Edges;
    return reduction;
}

HWND frmSW::slider() const {
    if (checked(IDC_REDUCE_COLOURS)) return control(IDC_REDUCE_COLOUR_LIMIT);
    return control(checked(IDC_REDUCE_EDGES) ? IDC_REDUCE_EDGE_LIMIT : IDC_REDUCE_BRIGHTNESS_LIMIT);
}

// Shows and enables the controls of the chosen reduction.
void frmSW::show_kind() {
    for (const Slider& each : kSliders)
        ShowWindow(control(each.id), control(each.id) == slider() ? SW_SHOW : SW_HIDE);
    for (const ChannelBox& box : kChannelBoxes)
        enable(box.id, checked(IDC_REDUCE_COLOURS));
    show_preview();
}

void frmSW::show_preview() {
    set_text(IDC_REDUCE_LIMIT, std::to_wstring(slider_position(slider())));
    // No hint for edges: their limit is a difference between pixels.
    if (!chosen().possible())
        set_text(IDC_REDUCE_HINT, LoadString(IDS_REDUCE_NO_COLOUR));
    else
        set_text(IDC_REDUCE_HINT, checked(IDC_REDUCE_EDGES) ? L"" : LoadString(IDS_REDUCE_HINT));
    preview_.update(chosen());
    repaint(control(IDC_REDUCE_OVERVIEW));
    repaint(control(IDC_REDUCE_DETAIL));
}

bool frmSW::confirm() {
    if (!chosen().possible()) {
        win::message_box(window(), LoadString(IDS_REDUCE_NO_COLOUR), LoadString(IDS_REDUCE_TITLE),
                         MB_OK | MB_ICONINFORMATION);
        return false;
    }
    result = chosen();
    return true;
}

void frmSW::on_command(int id, int notification) {
    if (notification != BN_CLICKED) return;
    if (id >= IDC_REDUCE_BRIGHTNESS && id <= IDC_REDUCE_EDGES) show_kind();
    if (id >= IDC_REDUCE_RED && id <= IDC_REDUCE_BLUE) show_preview();
}

INT_PTR frmSW::on_message(UINT message, WPARAM w, LPARAM l) {
    switch (message) {
    case WM_HSCROLL:
        show_preview();
        return TRUE;
    case WM_SETCURSOR:
        return show_hand();
    case WM_LBUTTONDOWN:
        dragging_ = pick_detail(l);
        if (dragging_) SetCapture(window());
        return TRUE;
    case WM_KEYDOWN:
        return move_detail(w);
    case WM_MOUSEMOVE:
        if (dragging_ && (w & MK_LBUTTON) != 0) pick_detail(l);
        return TRUE;
    case WM_LBUTTONUP:
        if (dragging_) ReleaseCapture();
        return TRUE;
    case WM_CAPTURECHANGED:
        dragging_ = false;
        return TRUE;
    default:
        return Form::on_message(message, w, l);
    }
}

void frmSW::draw(const DRAWITEMSTRUCT& box) {
    const bool is_overview = box.CtlID == IDC_REDUCE_OVERVIEW;
    draw_preview(box, is_overview ? preview_.overview() : preview_.detail());
    if (is_overview) draw_frame(box);
}

// Marks in the overview what the detail shows, unless that is everything. The frame is thick while
// the overview has the focus.
void frmSW::draw_frame(const DRAWITEMSTRUCT& box) const {
    if (preview_.detail_shows_all()) return;
    const double zoom = win::picture_zoom(window());
    const PixelArea area = preview_.detail_in_overview();
    const auto zoomed = [zoom](int pixels) { return static_cast<LONG>(pixels * zoom); };
    RECT frame{zoomed(area.left), zoomed(area.top), zoomed(area.left + area.width),
               zoomed(area.top + area.height)};
    const int strength = GetFocus() == box.hwndItem ? 3 : 1;
    for (int line = 0; line < strength; ++line) {
        FrameRect(box.hDC, &frame, GetSysColorBrush(COLOR_HIGHLIGHT));
        InflateRect(&frame, -1, -1);
    }
}

// Hand as mouse pointer over the overview, whose frame can be dragged.
INT_PTR frmSW::show_hand() const {
    POINT pointer{};
    RECT area{};
    GetCursorPos(&pointer);
    GetWindowRect(control(IDC_REDUCE_OVERVIEW), &area);
    if (!PtInRect(&area, pointer)) return FALSE;
    SetCursor(LoadCursorW(nullptr, IDC_HAND));
    SetWindowLongPtrW(window(), DWLP_MSGRESULT, TRUE);
    return TRUE;
}

// Moves the detail to the place of the mouse in the overview. `position`: lParam of a mouse message
// of the dialog. False outside the overview, unless the frame is being dragged: it then follows the
// mouse along the border.
bool frmSW::pick_detail(LPARAM position) {
    const HWND box = control(IDC_REDUCE_OVERVIEW);
    POINT place{GET_X_LPARAM(position), GET_Y_LPARAM(position)};
    MapWindowPoints(window(), box, &place, 1);
    RECT area{};
    GetClientRect(box, &area);
    if (!dragging_ && !PtInRect(&area, place)) return false;
    if (!preview_.detail_shows_all()) SetFocus(box);
    const double zoom = win::picture_zoom(window());
    if (preview_.centre_detail_at(static_cast<int>(place.x / zoom),
                                  static_cast<int>(place.y / zoom)))
        show_preview();
    return true;
}

// Sent by the overview while it has the focus.
bool frmSW::move_detail(WPARAM key) {
    const int right = key == VK_RIGHT ? 1 : key == VK_LEFT ? -1 : 0;
    const int down = key == VK_DOWN ? 1 : key == VK_UP ? -1 : 0;
    if (preview_.move_detail(right, down)) show_preview();
    return true;
}

} // namespace kelvane
