#include "dialogs/frmSW.h"

#include "dialogs/field_input.h"
#include "dialogs/slider.h"
#include "dialogs/until_input.h"
#include "reduce/local_black_white.h"
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
    {IDC_REDUCE_UNEVEN, IDS_REDUCE_UNEVEN},
    {IDC_REDUCE_AUTO, IDS_REDUCE_AUTO},
    {IDC_REDUCE_SIZE_LABEL, IDS_REDUCE_SIZE},
    {IDC_REDUCE_OFFSET_LABEL, IDS_REDUCE_OFFSET},
    {IDC_REDUCE_INVERT, IDS_REDUCE_INVERT},
    {IDC_REDUCE_CLEAN, IDS_REDUCE_CLEAN},
    {IDC_REDUCE_SPECK_UNIT, IDS_REDUCE_SPECK_UNIT},
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

// By their kinds, in the order of the option buttons.
struct Slider {
    int id;
    OptionalSetting setting;
};
constexpr Slider kSliders[] = {
    {IDC_REDUCE_BRIGHTNESS_LIMIT, settings::kBrightnessLimit},
    {IDC_REDUCE_COLOUR_LIMIT, settings::kColourLimit},
    {IDC_REDUCE_EDGE_LIMIT, settings::kEdgeLimit},
};
constexpr int kLimitControls[] = {IDC_REDUCE_LIMIT_LABEL, IDC_REDUCE_LIMIT, IDC_REDUCE_AUTO,
                                  IDC_REDUCE_RED,         IDC_REDUCE_GREEN, IDC_REDUCE_BLUE};
constexpr int kUnevenControls[] = {IDC_REDUCE_SIZE_LABEL, IDC_REDUCE_SIZE,
                                   IDC_REDUCE_SIZE_SPIN,  IDC_REDUCE_OFFSET_LABEL,
                                   IDC_REDUCE_OFFSET,     IDC_REDUCE_OFFSET_SPIN};

constexpr SpinField kSize{IDC_REDUCE_SIZE, IDC_REDUCE_SIZE_SPIN, settings::kNeighbourhoodSize, 2};
constexpr SpinField kOffset{IDC_REDUCE_OFFSET, IDC_REDUCE_OFFSET_SPIN,
                            settings::kNeighbourhoodOffset};
static_assert(kSize.setting.lowest == kLeastNeighbourhood &&
              kSize.setting.highest == kLargestNeighbourhood &&
              kOffset.setting.highest == kLargestOffset);
constexpr SpinField kSpeck{IDC_REDUCE_SPECK, IDC_REDUCE_SPECK_SPIN, settings::kLargestSpeck};

struct ChannelBox {
    int id;
    NumberSetting setting;
};
constexpr ChannelBox kChannelBoxes[] = {
    {IDC_REDUCE_RED, settings::kUseRed},
    {IDC_REDUCE_GREEN, settings::kUseGreen},
    {IDC_REDUCE_BLUE, settings::kUseBlue},
};

// The option buttons stand in the order of the kinds.
int button_of(ReductionKind kind) {
    return IDC_REDUCE_BRIGHTNESS + static_cast<int>(kind) -
           static_cast<int>(ReductionKind::Brightness);
}

void prepare_slider(HWND slider, int position) {
    set_slider_range(slider, kHighestLimit, 1, 16);
    SendMessageW(slider, TBM_SETRANGEMIN, FALSE, kLowestLimit);
    set_slider_position(slider, position);
}

constexpr UINT_PTR kPauseTimer = 1;
constexpr UINT kPause = 120; // milliseconds; longer than a held arrow of a number field repeats

void repaint(HWND control) {
    RedrawWindow(control, nullptr, nullptr, RDW_INVALIDATE | RDW_UPDATENOW);
}

} // namespace

frmSW::frmSW(const SettingsFile& settings, const cDIBSection& picture)
    : Form(IDD_REDUCE, IDS_REDUCE_TITLE, kCaptions), settings_(settings), picture_(picture),
      preview_(picture) {
    register_sliders();
    register_spins();
}

void frmSW::load() {
    Form::load();
    result.reset();
    shown_.reset();
    density_changed();
    if (!preview_.detail_shows_all()) serve_keys();
    restore();
    show_kind();
    show_preview(); // the first one at once
}

// Lets the overview take the focus and the arrow keys, which move the frame in it.
void frmSW::serve_keys() const {
    const HWND overview = control(IDC_REDUCE_OVERVIEW);
    SetWindowLongW(overview, GWL_STYLE, GetWindowLongW(overview, GWL_STYLE) | WS_TABSTOP);
    win::take_arrow_keys(overview);
}

void frmSW::density_changed() {
    const cDIBSection& overview = preview_.overview();
    const PixelArea& detail = preview_.detail_area();
    if (overview.empty()) return;
    win::fit_picture_box(control(IDC_REDUCE_OVERVIEW), overview.Width(), overview.Height());
    win::fit_picture_box(control(IDC_REDUCE_DETAIL), detail.width, detail.height);
}

void frmSW::restore() {
    restore_limits();
    restore_numbers();
    check(IDC_REDUCE_INVERT, read_setting(settings_, settings::kInvertReduction) != 0);
    check(IDC_REDUCE_CLEAN, read_setting(settings_, settings::kRemoveSpecks) != 0);
    check_radio(
        IDC_REDUCE_BRIGHTNESS, IDC_REDUCE_UNEVEN,
        button_of(static_cast<ReductionKind>(read_setting(settings_, settings::kReductionKind))));
}

void frmSW::restore_limits() {
    for (const Slider& each : kSliders) {
        const int stored = read_setting(settings_, each.setting).value_or(kDesignedLimit);
        const bool usable = stored >= kLowestLimit && stored <= kHighestLimit;
        prepare_slider(control(each.id), usable ? stored : kDesignedLimit);
    }
    SendMessageW(control(IDC_REDUCE_LIMIT), EM_LIMITTEXT, 3, 0);
    // A channel without a key is unticked, unless all keys are missing: the reduction was then
    // never used, and all channels are ticked.
    const bool stored = std::ranges::any_of(kChannelBoxes, [this](const ChannelBox& box) {
        return !settings_.ReadIniValue(box.setting.section, box.setting.key).empty();
    });
    for (const ChannelBox& box : kChannelBoxes)
        check(box.id, !stored || read_setting(settings_, box.setting) != 0);
}

void frmSW::restore_numbers() {
    for (const SpinField& field : {kSize, kOffset, kSpeck}) {
        prepare_spin_field(window(), field);
        const int stored = read_setting(settings_, field.setting);
        // An even size can only come from a settings file written by hand.
        set_text(field.id, std::to_wstring(field.step == 2 ? stored | 1 : stored));
    }
}

ReductionKind frmSW::kind() const {
    for (const ReductionKind kind :
         {ReductionKind::Brightness, ReductionKind::Colours, ReductionKind::Edges})
        if (checked(button_of(kind))) return kind;
    return ReductionKind::UnevenLight;
}

Channels frmSW::channels() const {
    return {checked(IDC_REDUCE_RED), checked(IDC_REDUCE_GREEN), checked(IDC_REDUCE_BLUE)};
}

std::optional<int> frmSW::limit() const {
    return whole_number(text(IDC_REDUCE_LIMIT), kLowestLimit, kHighestLimit);
}

std::optional<int> frmSW::number(const SpinField& field) const {
    return number_for(field, text(field.id));
}

// Nothing while a field of the chosen reduction holds no number that it takes.
std::optional<Reduction> frmSW::chosen() const {
    Reduction reduction{.kind = kind(), .channels = channels()};
    reduction.inverted = checked(IDC_REDUCE_INVERT);
    if (reduction.has_limit()) {
        const std::optional<int> value = limit();
        if (!value) return std::nullopt;
        reduction.limit = *value;
    } else {
        const std::optional<int> size = number(kSize);
        const std::optional<int> offset = number(kOffset);
        if (!size || !offset) return std::nullopt;
        reduction.neighbourhood = {*size, *offset};
    }
    if (checked(IDC_REDUCE_CLEAN)) {
        const std::optional<int> most = number(kSpeck);
        if (!most) return std::nullopt;
        reduction.largest_speck = *most;
    }
    return reduction;
}

// Null for uneven light.
HWND frmSW::slider() const {
    const auto place = static_cast<std::size_t>(kind()) - 1;
    return place < std::size(kSliders) ? control(kSliders[place].id) : nullptr;
}

// Shows and enables the controls of the chosen reduction.
void frmSW::show_kind() {
    const auto show = [this](int id, bool on) { ShowWindow(control(id), on ? SW_SHOW : SW_HIDE); };
    const bool uneven = kind() == ReductionKind::UnevenLight;
    for (const Slider& each : kSliders)
        show(each.id, control(each.id) == slider());
    for (const int id : kLimitControls)
        show(id, !uneven);
    for (const int id : kUnevenControls)
        show(id, uneven);
    for (const ChannelBox& box : kChannelBoxes)
        enable(box.id, kind() == ReductionKind::Colours);
    enable(IDC_REDUCE_AUTO, kind() == ReductionKind::Brightness);
    for (const int id : {IDC_REDUCE_SPECK, IDC_REDUCE_SPECK_SPIN, IDC_REDUCE_SPECK_UNIT})
        enable(id, checked(IDC_REDUCE_CLEAN));
    if (uneven)
        refresh();
    else
        limit_moved();
}

void frmSW::show_hint() const {
    const bool no_channel = kind() == ReductionKind::Colours && !channels().any();
    int hint = IDS_REDUCE_HINT;
    if (kind() == ReductionKind::UnevenLight) hint = IDS_REDUCE_UNEVEN_HINT;
    if (no_channel) hint = IDS_REDUCE_NO_COLOUR;
    // No hint for edges: their limit is a difference between pixels.
    set_text(IDC_REDUCE_HINT, kind() == ReductionKind::Edges ? L"" : LoadString(hint));
}

// Incomplete input leaves the preview unchanged.
void frmSW::refresh() {
    show_hint();
    const std::optional<Reduction> reduction = chosen();
    if (!reduction || reduction == shown_) return;
    shown_ = reduction;
    follow_input();
}

// Shows the preview at once, or when the user pauses if it takes long.
void frmSW::follow_input() {
    if (shown_ && preview_.takes_long(*shown_))
        SetTimer(window(), kPauseTimer, kPause, nullptr);
    else
        show_preview();
}

void frmSW::show_preview(ProgressObserver* observer) {
    KillTimer(window(), kPauseTimer);
    if (!shown_) return;
    preview_.update(*shown_, observer);
    repaint(control(IDC_REDUCE_OVERVIEW));
    repaint(control(IDC_REDUCE_DETAIL));
}

void frmSW::show_preview_until_input() {
    UntilInput until_input;
    try {
        show_preview(&until_input);
    } catch (const Interrupted&) {
        follow_input();
    }
}

// The field follows the slider.
void frmSW::limit_moved() {
    set_text(IDC_REDUCE_LIMIT, std::to_wstring(slider_position(slider())));
    refresh();
}

// The slider follows the field.
void frmSW::limit_typed() {
    if (const std::optional<int> typed = limit()) set_slider_position(slider(), *typed);
    refresh();
}

// Otsu's limit 0, that of a picture of one grey, would mean "cancelled" to a document.
void frmSW::find_limit() {
    const int found = cImageProcessDIB().OtsuLimit(picture_).value_or(kDesignedLimit);
    set_slider_position(slider(), std::max(found, kLowestLimit));
    limit_moved();
}

// Says which number is not accepted. Only while `chosen` is nothing.
bool frmSW::refuse_number() const {
    const auto refuse_field = [this](int text, int field, int lowest, int highest) {
        return refuse(field, LoadString(text, {std::to_wstring(lowest), std::to_wstring(highest)}));
    };
    const auto range = [&](int text, const SpinField& field) {
        return refuse_field(text, field.id, field.setting.lowest, field.setting.highest);
    };
    const bool uneven = kind() == ReductionKind::UnevenLight;
    if (!uneven && !limit())
        return refuse_field(IDS_REDUCE_INVALID, IDC_REDUCE_LIMIT, kLowestLimit, kHighestLimit);
    if (uneven && !number(kSize)) return range(IDS_REDUCE_ODD, kSize);
    if (uneven && !number(kOffset)) return range(IDS_REDUCE_INVALID, kOffset);
    return range(IDS_REDUCE_INVALID, kSpeck);
}

bool frmSW::confirm() {
    const std::optional<Reduction> reduction = chosen();
    if (!reduction) return refuse_number();
    if (!reduction->possible()) {
        win::message_box(window(), LoadString(IDS_REDUCE_NO_COLOUR), LoadString(IDS_REDUCE_TITLE),
                         MB_OK | MB_ICONINFORMATION);
        return false;
    }
    result = reduction;
    return true;
}

void frmSW::on_command(int id, int notification) {
    if (notification == EN_CHANGE) return id == IDC_REDUCE_LIMIT ? limit_typed() : refresh();
    if (notification != BN_CLICKED) return;
    if (id == IDC_REDUCE_AUTO) return find_limit();
    const bool kind_button = id >= IDC_REDUCE_BRIGHTNESS && id <= IDC_REDUCE_UNEVEN;
    if (kind_button || id == IDC_REDUCE_CLEAN)
        show_kind();
    else
        refresh();
}

INT_PTR frmSW::on_message(UINT message, WPARAM w, LPARAM l) {
    switch (message) {
    case WM_HSCROLL:
        limit_moved();
        return TRUE;
    case WM_TIMER:
        show_preview_until_input();
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
        follow_input();
    return true;
}

// Sent by the overview while it has the focus.
bool frmSW::move_detail(WPARAM key) {
    const int right = key == VK_RIGHT ? 1 : key == VK_LEFT ? -1 : 0;
    const int down = key == VK_DOWN ? 1 : key == VK_UP ? -1 : 0;
    if (preview_.move_detail(right, down)) follow_input();
    return true;
}

} // namespace kelvane
