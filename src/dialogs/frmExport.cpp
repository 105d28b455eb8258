#include "dialogs/frmExport.h"

#include "base/lenient_number.h"
#include "base/text.h"
#include "dialogs/drop_down_list.h"
#include "dialogs/export_preview.h"
#include "dialogs/preview_size.h"
#include "dialogs/until_input.h"
#include "export/layers.h"
#include "export/length.h"
#include "export/length_text.h"
#include "texts/export_text.h"
#include "texts/layer_names.h"
#include "win/key_filter.h"
#include "win/picture_box.h"
#include "win/placement.h"
#include "win/type_ahead.h"

#include "ids.h"

#include <commctrl.h>

#include <charconv>
#include <cstdint>
#include <iterator>

namespace kelvane {
namespace {

constexpr Caption kCaptions[] = {
    {IDC_EXPORT_OPTIONS, IDS_EXPORT_OPTIONS},
    {IDC_EXPORT_LAYER_LABEL, IDS_EXPORT_LAYER},
    {IDC_EXPORT_VERSION_LABEL, IDS_EXPORT_VERSION},
    {IDC_EXPORT_SIZE_LABEL, IDS_EXPORT_SIZE},
    {IDC_EXPORT_UNIT_LABEL, IDS_EXPORT_UNIT},
    {IDC_EXPORT_WIDTH_LABEL, IDS_EXPORT_WIDTH},
    {IDC_EXPORT_MIRROR, IDS_EXPORT_MIRROR},
    {IDC_EXPORT_TRACING, IDS_EXPORT_TRACING},
    {IDC_EXPORT_FULL, IDS_EXPORT_FULL},
    {IDC_EXPORT_FULL_POLYGON, IDS_EXPORT_FULL_POLYGON},
    {IDC_EXPORT_FULL_WIRE, IDS_EXPORT_FULL_WIRE},
    {IDC_EXPORT_SMOOTH, IDS_EXPORT_SMOOTH},
    {IDC_EXPORT_LINEWISE, IDS_EXPORT_LINEWISE},
    {IDC_EXPORT_LINEWISE_POLYGON, IDS_EXPORT_LINEWISE_POLYGON},
    {IDC_EXPORT_LINEWISE_WIRE, IDS_EXPORT_LINEWISE_WIRE},
    {IDC_EXPORT_LINEWISE_RECTANGLE, IDS_EXPORT_LINEWISE_RECTANGLE},
    {IDC_EXPORT_PREVIEW_LABEL, IDS_EXPORT_PREVIEW},
    {IDOK, IDS_EXPORT_OK},
    {IDCANCEL, IDS_EXPORT_CANCEL},
};

// Pictures up to this number of pixels are examined at once: also noise, the worst case, with
// smooth outlines takes less than 50 ms then.
constexpr std::int64_t kAtOnce = 100'000;
// Of larger ones the steps begin after a pause without changes.
constexpr UINT_PTR kWorkTimer = 1;
constexpr UINT kPause = 100; // milliseconds

// Posted to the dialog when the list of layers has been opened.
constexpr UINT kListOpened = WM_APP;
// The layers that pictures are drawn on most: from the board's outline to the documentation. The
// opened list has room for them.
constexpr int kFirstCommonLayer = kOutlineLayer;
constexpr int kLastCommonLayer = 52;

// All digits: the number that is read from the text is the same.
std::wstring exact_text(double value) {
    char text[40];
    return wide_text({text, std::to_chars(text, std::end(text), value).ptr});
}

// Six digits tell a width on the board.
std::wstring rounded_text(double value) {
    constexpr int kDigits = 6;
    char text[40];
    return wide_text(
        {text,
         std::to_chars(text, std::end(text), value, std::chars_format::general, kDigits).ptr});
}

bool is_change(int control, int notification) {
    switch (control) {
    case IDC_EXPORT_SIZE:
    case IDC_EXPORT_WIDTH:
        return notification == EN_CHANGE;
    case IDC_EXPORT_LAYER:
    case IDC_EXPORT_VERSION:
    case IDC_EXPORT_UNIT:
        return notification == CBN_SELCHANGE;
    default:
        return notification == BN_CLICKED;
    }
}

} // namespace

frmExport::frmExport(const SettingsFile& settings, const cDIBSection& picture)
    : Form(IDD_EXPORT, IDS_EXPORT_TITLE, kCaptions), settings_(settings), picture_(picture) {}

void frmExport::load() {
    Form::load();
    choices_ = ExportChoices::read(settings_);
    fill_lists();
    win::find_by_typing(control(IDC_EXPORT_LAYER));
    SendMessageW(control(IDC_EXPORT_LAYER), CB_SETMINVISIBLE,
                 kLastCommonLayer - kFirstCommonLayer + 1, 0);
    win::turn_commas_into_points(control(IDC_EXPORT_SIZE));
    win::turn_commas_into_points(control(IDC_EXPORT_WIDTH));
    show_choices();
    show_width();
    estimate_ = ExportEstimate(picture_);
    ask();
    density_changed();
}

// The box becomes as large as the preview, with the hint right below. It stands in the middle of
// the square that previews fit into.
void frmExport::density_changed() {
    const HWND box = control(IDC_EXPORT_PREVIEW);
    const SIZE in_template = win::size_of(box);
    fit_preview(IDC_EXPORT_PREVIEW);
    const SIZE square = win::size_of(box);
    if (!picture_.empty()) {
        const PreviewSize preview = preview_size(picture_.Width(), picture_.Height());
        win::fit_picture_box(box, preview.width, preview.height);
    }
    const SIZE size = win::size_of(box);
    win::move_by(box, (square.cx - size.cx) / 2, 0);
    win::move_by(control(IDC_EXPORT_HINT), 0, size.cy - in_template.cy);
}

void frmExport::fill_lists() const {
    for (const std::wstring& label : layer_labels())
        add_entry(control(IDC_EXPORT_LAYER), label);
    for (const EagleVersion& version : kEagleVersions)
        add_entry(control(IDC_EXPORT_VERSION), wide_text(version.name));
    for (const Unit& unit : kUnits)
        add_entry(control(IDC_EXPORT_UNIT), wide_text(unit.name));
}

void frmExport::show_choices() const {
    select_entry(control(IDC_EXPORT_LAYER), choices_.layer);
    set_text(IDC_EXPORT_SIZE, choices_.size);
    check(IDC_EXPORT_SMOOTH, choices_.smooth);
    check(IDC_EXPORT_MIRROR, choices_.mirrored);
    select_entry(control(IDC_EXPORT_UNIT), choices_.unit);
    select_entry(control(IDC_EXPORT_VERSION), choices_.version);
    check_radio(IDC_EXPORT_FULL, IDC_EXPORT_LINEWISE,
                choices_.full_autotrace ? IDC_EXPORT_FULL : IDC_EXPORT_LINEWISE);
    check_radio(IDC_EXPORT_FULL_POLYGON, IDC_EXPORT_FULL_WIRE,
                IDC_EXPORT_FULL_POLYGON + choices_.autotrace_shape);
    check_radio(IDC_EXPORT_LINEWISE_POLYGON, IDC_EXPORT_LINEWISE_RECTANGLE,
                IDC_EXPORT_LINEWISE_POLYGON + choices_.linewise_shape);
}

ExportChoices frmExport::read_controls() const {
    ExportChoices choices;
    choices.layer = selected_entry(control(IDC_EXPORT_LAYER));
    choices.size = text(IDC_EXPORT_SIZE);
    choices.unit = selected_entry(control(IDC_EXPORT_UNIT));
    choices.version = selected_entry(control(IDC_EXPORT_VERSION));
    choices.full_autotrace = checked(IDC_EXPORT_FULL);
    choices.autotrace_shape = checked(IDC_EXPORT_FULL_POLYGON) ? kShapePolygon : kShapeWire;
    choices.linewise_shape = checked(IDC_EXPORT_LINEWISE_POLYGON) ? kShapePolygon
                             : checked(IDC_EXPORT_LINEWISE_WIRE)  ? kShapeWire
                                                                  : kShapeRectangle;
    choices.smooth = checked(IDC_EXPORT_SMOOTH);
    choices.mirrored = checked(IDC_EXPORT_MIRROR);
    return choices;
}

bool frmExport::confirm() {
    choices_ = read_controls();
    choices_.write(settings_);
    return true;
}

void frmExport::on_command(int control, int notification) {
    if (control == IDC_EXPORT_LAYER && notification == CBN_DROPDOWN)
        PostMessageW(window(), kListOpened, 0, 0);
    if (setting_text_ || !is_change(control, notification)) return;
    if (control == IDC_EXPORT_WIDTH)
        take_width();
    else if (control == IDC_EXPORT_SIZE || control == IDC_EXPORT_UNIT)
        show_width();
    ask();
}

INT_PTR frmExport::on_message(UINT message, WPARAM w, LPARAM l) {
    if (message == WM_TIMER && w == kWorkTimer) {
        work();
        return TRUE;
    }
    if (message == kListOpened) {
        scroll_opened_list(control(IDC_EXPORT_LAYER), kFirstCommonLayer - 1);
        return TRUE;
    }
    return Form::on_message(message, w, l);
}

void frmExport::set_field(int field, const std::wstring& text) {
    setting_text_ = true;
    set_text(field, text);
    setting_text_ = false;
}

// The width of the picture follows from the size of a pixel ...
void frmExport::show_width() {
    const ExportOptions options = read_controls().options();
    ExportOptions shown = options;
    shown.unit = board_unit(options);
    const double millimetres = in_millimetres(options.size, options) * picture_.Width();
    set_field(IDC_EXPORT_WIDTH, rounded_text(from_millimetres(millimetres, shown)));
    set_text(IDC_EXPORT_WIDTH_UNIT, wide_text(unit_word(shown)));
}

// ... and the other way round. Without a width, as while one is typed, the size stays.
void frmExport::take_width() {
    const double width = lenient_number(text(IDC_EXPORT_WIDTH));
    if (!(width > 0) || picture_.empty()) return;
    const ExportOptions options = read_controls().options();
    const double length = converted_length(width, board_unit(options), options.unit);
    set_field(IDC_EXPORT_SIZE, exact_text(pixel_size_for_length(length, picture_.Width())));
}

// Layers that need a second thought come before the advice on the preview.
void frmExport::show_hint() const {
    const BoardQuestion& question = estimate_.question();
    const int layer = question.options.lay;
    std::wstring hint = LoadString(IDS_EXPORT_HINT);
    if (layer == kOutlineLayer)
        hint = LoadString(IDS_EXPORT_HINT_OUTLINE);
    else if (is_bottom_layer(layer) && !question.mirrored)
        hint = LoadString(IDS_EXPORT_HINT_MIRROR, {layer_text(layer)});
    set_text(IDC_EXPORT_HINT, hint);
}

void frmExport::ask() {
    const ExportChoices choices = read_controls();
    BoardQuestion question;
    question.options = choices.options();
    question.mirrored = choices.mirrored;
    estimate_.ask(question);
    show_hint();
    if (std::int64_t{picture_.Width()} * picture_.Height() <= kAtOnce) {
        while (!estimate_.complete())
            estimate_.work(nullptr);
    } else {
        SetTimer(window(), kWorkTimer, kPause, nullptr);
    }
    show_result();
}

void frmExport::work() {
    UntilInput until_input;
    try {
        estimate_.work(&until_input);
    } catch (const Interrupted&) {
        SetTimer(window(), kWorkTimer, kPause, nullptr); // starts the step anew
        return;
    }
    if (estimate_.complete())
        KillTimer(window(), kWorkTimer);
    else
        SetTimer(window(), kWorkTimer, USER_TIMER_MINIMUM, nullptr);
    show_result();
}

void frmExport::show_result() {
    const BoardReport& report = estimate_.report();
    const BoardQuestion& question = estimate_.question();
    set_text(IDC_EXPORT_RESULT, board_sizes_text(report, estimate_.counts(), question) + L"\r\n" +
                                    board_warning_text(report, estimate_.counts(), question));
    loadPreview();
    InvalidateRect(control(IDC_EXPORT_PREVIEW), nullptr, FALSE);
}

void frmExport::loadPreview() {
    preview_ = export_preview(estimate_.drawing(), estimate_.report());
}

} // namespace kelvane
