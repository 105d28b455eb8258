#include "dialogs/frmCustomFilter.h"

#include "dialogs/drop_down_list.h"
#include "dialogs/field_input.h"
#include "win/arrow_keys.h"
#include "win/key_filter.h"

#include "ids.h"

namespace kelvane {
namespace {

constexpr Caption kCaptions[] = {
    {IDC_CUSTOM_BASE_LABEL, IDS_CUSTOM_BASE_ON},
    {IDC_CUSTOM_WEIGHT_LABEL, IDS_CUSTOM_WEIGHT},
    {IDC_CUSTOM_AUTO, IDS_CUSTOM_AUTO},
    {IDC_CUSTOM_PREVIEW_LABEL, IDS_CUSTOM_PREVIEW},
    {IDOK, IDS_CUSTOM_OK},
    {IDCANCEL, IDS_CUSTOM_CANCEL},
};

constexpr int kKeep = 0;
constexpr int kReset = -1;

// The list of starting kernels: what to do, or the filter type whose kernel to take.
struct Base {
    int text;
    int filter;
};
constexpr Base kBases[] = {
    {IDS_CUSTOM_BASE_NONE, kKeep},       {IDS_CUSTOM_BASE_RESET, kReset},
    {IDS_CUSTOM_BASE_BLUR, kBlur},       {IDS_CUSTOM_BASE_BLUR_MORE, kBlurMore},
    {IDS_CUSTOM_BASE_SOFTEN, kSoften},   {IDS_CUSTOM_BASE_SOFTEN_MORE, kSoftenMore},
    {IDS_CUSTOM_BASE_SHARPEN, kSharpen}, {IDS_CUSTOM_BASE_SHARPEN_MORE, kSharpenMore},
};

// Length limits of the fields, in characters.
constexpr int kCellLength = 5;
constexpr int kWeightLength = 9;

bool in_whole_numbers(wchar_t character) {
    return (character >= L'0' && character <= L'9') || character == L'-';
}

bool is_cell(int id) {
    return id >= IDC_CUSTOM_CELL && id < IDC_CUSTOM_CELL + KernelGrid::kCells;
}

FilterKernel current_kernel(const cImageProcessDIB& engine) {
    FilterKernel kernel(engine.FilterArraySize(), engine.FilterWeight());
    for (int y = -kernel.half(); y <= kernel.half(); ++y)
        for (int x = -kernel.half(); x <= kernel.half(); ++x)
            kernel.set_cell(x, y, engine.FilterValue(x, y));
    return kernel;
}

void hand_over(const FilterKernel& kernel, cImageProcessDIB& engine) {
    engine.set_FilterType(kCustom);
    engine.set_FilterArraySize(kernel.size());
    engine.set_FilterWeight(kernel.weight());
    for (int y = -kernel.half(); y <= kernel.half(); ++y)
        for (int x = -kernel.half(); x <= kernel.half(); ++x)
            engine.set_FilterValue(x, y, kernel.cell(x, y));
}

} // namespace

frmCustomFilter::frmCustomFilter(cImageProcessDIB& engine, const cDIBSection& picture)
    : Form(IDD_CUSTOM, IDS_CUSTOM_TITLE, kCaptions), ImageProcess(engine), preview_(picture) {}

void frmCustomFilter::load() {
    Form::load();
    tab_stop_ = KernelGrid::kCentre;
    for (const Base& base : kBases)
        add_entry(control(IDC_CUSTOM_BASE), LoadString(base.text));
    select_entry(control(IDC_CUSTOM_BASE), 0);
    prepare_fields();
    show_start();
    density_changed();
    show_preview();
}

void frmCustomFilter::density_changed() {
    preview_.fit(control(IDC_CUSTOM_PREVIEW));
    fit_height();
}

void frmCustomFilter::prepare_fields() const {
    for (int cell = 0; cell < KernelGrid::kCells; ++cell) {
        const HWND field = control(IDC_CUSTOM_CELL + cell);
        SendMessageW(field, EM_LIMITTEXT, kCellLength, 0);
        win::filter_keys(field, in_whole_numbers);
        win::pass_on_arrow_keys(field);
    }
    SendMessageW(control(IDC_CUSTOM_WEIGHT), EM_LIMITTEXT, kWeightLength, 0);
    win::filter_keys(control(IDC_CUSTOM_WEIGHT), in_whole_numbers);
}

void frmCustomFilter::show_start() {
    const bool again =
        ImageProcess.FilterType() == kCustom && ImageProcess.FilterArraySize() <= KernelGrid::kSide;
    const KernelGrid grid =
        again ? KernelGrid::around(current_kernel(ImageProcess)) : KernelGrid::reset();
    const int weight = again ? ImageProcess.FilterWeight() : grid.sum();
    show_grid(grid);
    set_text(IDC_CUSTOM_WEIGHT, std::to_wstring(weight));
    check(IDC_CUSTOM_AUTO, weight == grid.sum());
}

void frmCustomFilter::show_grid(const KernelGrid& grid) {
    filling_ = true;
    for (int cell = 0; cell < KernelGrid::kCells; ++cell) {
        grid_.set_value(cell, grid.value(cell));
        grey_[static_cast<std::size_t>(cell)] = grid.value(cell) == 0;
        set_text(IDC_CUSTOM_CELL + cell, std::to_wstring(grid.value(cell)));
    }
    filling_ = false;
}

void frmCustomFilter::on_command(int id, int notification) {
    if (is_cell(id) && notification == EN_CHANGE) cell_changed(id - IDC_CUSTOM_CELL);
    if (is_cell(id) && notification == EN_SETFOCUS) cell_entered(id - IDC_CUSTOM_CELL);
    if (id == IDC_CUSTOM_BASE && notification == CBN_SELCHANGE) base_chosen();
    if (id == IDC_CUSTOM_AUTO && checked(IDC_CUSTOM_AUTO)) calculate_weight();
    if (notification == EN_CHANGE || notification == CBN_SELCHANGE) show_preview();
}

// Makes the cell the grid's only tab stop: Tab leaves the grid from it and returns to it.
void frmCustomFilter::cell_entered(int cell) {
    const auto stop = [this](int at, bool on) {
        const HWND field = control(IDC_CUSTOM_CELL + at);
        const LONG style = GetWindowLongW(field, GWL_STYLE);
        SetWindowLongW(field, GWL_STYLE, on ? style | WS_TABSTOP : style & ~WS_TABSTOP);
    };
    stop(tab_stop_, false);
    stop(cell, true);
    tab_stop_ = cell;
    SendMessageW(control(IDC_CUSTOM_CELL + cell), EM_SETSEL, 0, -1);
}

// Moves the focus from the tab stop to the neighbouring cell; nothing at the grid's border.
void frmCustomFilter::move_focus(WPARAM key) const {
    constexpr int kLast = KernelGrid::kSide - 1;
    const int row = tab_stop_ / KernelGrid::kSide + (key == VK_DOWN) - (key == VK_UP);
    const int column = tab_stop_ % KernelGrid::kSide + (key == VK_RIGHT) - (key == VK_LEFT);
    if (row < 0 || row > kLast || column < 0 || column > kLast) return;
    const HWND next = control(IDC_CUSTOM_CELL + row * KernelGrid::kSide + column);
    SendMessageW(window(), WM_NEXTDLGCTL, reinterpret_cast<WPARAM>(next), TRUE);
}

void frmCustomFilter::cell_changed(int cell) {
    const auto value = whole_number(text(IDC_CUSTOM_CELL + cell), -KernelGrid::kLargestValue,
                                    KernelGrid::kLargestValue);
    const auto place = static_cast<std::size_t>(cell);
    grid_.set_value(cell, value.value_or(0));
    if (value && grey_[place] != (*value == 0)) {
        grey_[place] = *value == 0;
        InvalidateRect(control(IDC_CUSTOM_CELL + cell), nullptr, TRUE);
    }
    if (checked(IDC_CUSTOM_AUTO)) calculate_weight();
}

void frmCustomFilter::base_chosen() {
    const int chosen = selected_entry(control(IDC_CUSTOM_BASE));
    if (chosen < 0) return;
    const Base& base = kBases[chosen];
    if (base.filter == kReset) show_grid(KernelGrid::reset());
    if (base.filter <= kKeep) return;
    const FilterKernel kernel = predefined_kernel(base.filter);
    show_grid(KernelGrid::around(kernel));
    set_text(IDC_CUSTOM_WEIGHT, std::to_wstring(kernel.weight()));
}

void frmCustomFilter::calculate_weight() const {
    set_text(IDC_CUSTOM_WEIGHT, std::to_wstring(grid_.sum()));
}

int frmCustomFilter::weight() const {
    return whole_number(text(IDC_CUSTOM_WEIGHT)).value_or(0);
}

// A filter that OK refuses shows the picture as it is.
void frmCustomFilter::show_preview() {
    if (filling_) return;
    preview_.show(control(IDC_CUSTOM_PREVIEW), [this](cDIBSection& picture) {
        if (grid_.radius().value_or(0) == 0 || weight() == 0) return;
        cImageProcessDIB engine;
        hand_over(grid_.kernel(weight()), engine);
        cDIBSection buffer = picture.Copy();
        engine.ProcessImage(picture, buffer);
    });
}

bool frmCustomFilter::confirm() {
    const auto radius = grid_.radius();
    const auto reject = [this](int field, int text) {
        return refuse(field, LoadString(text), MB_ICONINFORMATION);
    };
    constexpr int kCentre = IDC_CUSTOM_CELL + KernelGrid::kCentre;
    if (!radius) return reject(kCentre, IDS_CUSTOM_BLACK);
    if (*radius == 0) return reject(kCentre, IDS_CUSTOM_TOO_SMALL);
    // The engine ignores a filter of weight 0: the picture would stay as it is without a message.
    if (weight() == 0) return reject(IDC_CUSTOM_WEIGHT, IDS_CUSTOM_BLACK);
    hand_over(grid_.kernel(weight()), ImageProcess);
    return true;
}

INT_PTR frmCustomFilter::on_message(UINT message, WPARAM w, LPARAM l) {
    if (message == WM_KEYDOWN) { // an arrow key of a cell
        move_focus(w);
        return TRUE;
    }
    if (message != WM_CTLCOLOREDIT) return Form::on_message(message, w, l);
    const int id = GetDlgCtrlID(reinterpret_cast<HWND>(l));
    return is_cell(id) ? cell_brush(reinterpret_cast<HDC>(w), id - IDC_CUSTOM_CELL) : FALSE;
}

INT_PTR frmCustomFilter::cell_brush(HDC context, int cell) const {
    const int colour = grey_[static_cast<std::size_t>(cell)] ? COLOR_BTNFACE : COLOR_WINDOW;
    SetTextColor(context, GetSysColor(COLOR_WINDOWTEXT));
    SetBkColor(context, GetSysColor(colour));
    return reinterpret_cast<INT_PTR>(GetSysColorBrush(colour));
}

} // namespace kelvane
