#include "dialogs/frmCombination.h"

#include "dialogs/drop_down_list.h"
#include "dialogs/field_input.h"
#include "texts/string_table.h"

#include "ids.h"

namespace kelvane {
namespace {

constexpr Caption kCaptions[] = {
    {IDC_COMBINE_FIRST_LABEL, IDS_COMBINE_FIRST},
    {IDC_COMBINE_SECOND_LABEL, IDS_COMBINE_SECOND},
    {IDC_COMBINE_MULTIPLIER_LABEL, IDS_COMBINE_MULTIPLIER},
    {IDC_COMBINE_OFFSET_LABEL, IDS_COMBINE_OFFSET},
    {IDC_COMBINE_FRAME, IDS_COMBINE_TYPE},
    {IDC_COMBINE_ADD, IDS_COMBINE_ADD},
    {IDC_COMBINE_LIGHTEST, IDS_COMBINE_LIGHTEST},
    {IDC_COMBINE_DARKEST, IDS_COMBINE_DARKEST},
    {IDC_COMBINE_RESAMPLED, IDS_COMBINE_RESAMPLED},
    {IDC_COMBINE_PREVIEW_LABEL, IDS_COMBINE_PREVIEW},
    {IDOK, IDS_COMBINE_OK},
    {IDCANCEL, IDS_COMBINE_CANCEL},
};

// Offsets of this size turn any byte into any other.
constexpr int kLargestNumber = 255;

// The controls of one picture.
struct Row {
    int list;
    int multiplier;
    int offset;
};
constexpr std::array<Row, 2> kRows{
    Row{IDC_COMBINE_FIRST, IDC_COMBINE_MULTIPLIER_1, IDC_COMBINE_OFFSET_1},
    Row{IDC_COMBINE_SECOND, IDC_COMBINE_MULTIPLIER_2, IDC_COMBINE_OFFSET_2}};

} // namespace

frmCombination::frmCombination(std::vector<CombinationSource> sources)
    : Form(IDD_COMBINATION, IDS_COMBINE_TITLE, kCaptions), sources_(std::move(sources)) {}

void frmCombination::load() {
    Form::load();
    for (const Row& row : kRows) {
        set_text(row.multiplier, L"1");
        set_text(row.offset, L"0");
    }
    check_radio(IDC_COMBINE_ADD, IDC_COMBINE_DARKEST, IDC_COMBINE_ADD);
    fill_lists();
    show_size();
    load_preview();
}

void frmCombination::fill_lists() {
    for (std::size_t i = 0; i < kRows.size(); ++i) {
        const HWND list = control(kRows[i].list);
        for (const CombinationSource& source : sources_)
            add_entry(list, source.title);
        select_entry(list, static_cast<int>(i)); // no entry where there are too few
    }
}

// Null while no entry of the list is selected.
const cDIBSection* frmCombination::chosen_picture(int list) const {
    const int entry = selected_entry(control(list));
    return entry < 0 ? nullptr : sources_[static_cast<std::size_t>(entry)].picture;
}

// The engine's names say which of two pixels is dropped, the captions which one is kept.
CombinationType frmCombination::chosen_type() const {
    if (checked(IDC_COMBINE_LIGHTEST)) return CombinationType::AddDarkest;
    return checked(IDC_COMBINE_DARKEST) ? CombinationType::AddLightest : CombinationType::AddImages;
}

void frmCombination::show_size() {
    const cDIBSection* first = chosen_picture(IDC_COMBINE_FIRST);
    const cDIBSection* second = chosen_picture(IDC_COMBINE_SECOND);
    set_text(IDC_COMBINE_NEW_SIZE,
             first == nullptr
                 ? std::wstring()
                 : LoadString(IDS_COMBINE_NEW_SIZE,
                              {std::to_wstring(first->Width()), std::to_wstring(first->Height())}));
    const bool sizes_differ =
        first != nullptr && second != nullptr &&
        (first->Width() != second->Width() || first->Height() != second->Height());
    ShowWindow(control(IDC_COMBINE_RESAMPLED), sizes_differ ? SW_SHOW : SW_HIDE);
}

// Multipliers and offsets belong to the weighted sum.
void frmCombination::show_type() {
    for (const Row& row : kRows) {
        enable(row.multiplier, chosen_type() == CombinationType::AddImages);
        enable(row.offset, chosen_type() == CombinationType::AddImages);
    }
}

void frmCombination::load_preview() {
    const cDIBSection* first = chosen_picture(IDC_COMBINE_FIRST);
    const cDIBSection* second = chosen_picture(IDC_COMBINE_SECOND);
    preview_ = first == nullptr ? LivePreview() : LivePreview(*first);
    second_ = second == nullptr ? cDIBSection() : preview_.at_same_size(*second);
    density_changed();
    show_preview();
}

void frmCombination::density_changed() {
    preview_.fit(control(IDC_COMBINE_PREVIEW));
    fit_height();
}

// Incomplete input leaves the preview unchanged.
void frmCombination::show_preview() {
    if (chosen_type() == CombinationType::AddImages && read_numbers() != 0) return;
    preview_.show(control(IDC_COMBINE_PREVIEW), [this](cDIBSection& first) { combine(first); });
}

void frmCombination::combine(cDIBSection& first) {
    if (first.empty() || second_.empty()) return;
    cDIBSection target = second_.Copy();
    combination.type = chosen_type();
    engine_.Combine(first, target, combination);
    first = std::move(target);
}

void frmCombination::on_command(int control, int notification) {
    if (notification == CBN_SELCHANGE) {
        show_size();
        load_preview();
    } else if (control >= IDC_COMBINE_ADD && control <= IDC_COMBINE_DARKEST) {
        show_type();
        show_preview();
    } else if (notification == EN_CHANGE) {
        show_preview();
    }
}

// Reads multipliers and offsets. The first field without an allowed number; 0 when all are valid.
int frmCombination::read_numbers() {
    for (std::size_t i = 0; i < kRows.size(); ++i) {
        const auto multiplier =
            whole_number(text(kRows[i].multiplier), -kLargestNumber, kLargestNumber);
        if (!multiplier) return kRows[i].multiplier;
        const auto offset = whole_number(text(kRows[i].offset), -kLargestNumber, kLargestNumber);
        if (!offset) return kRows[i].offset;
        combination.parts[i] = {*multiplier, *offset, *offset, *offset};
    }
    return 0;
}

bool frmCombination::confirm() {
    for (std::size_t i = 0; i < kRows.size(); ++i) {
        ImageSource[i] = selected_entry(control(kRows[i].list));
        if (ImageSource[i] < 0) return refuse(kRows[i].list, LoadString(IDS_COMBINE_SELECT_TWO));
    }
    combination.type = chosen_type();
    const int wrong = combination.type == CombinationType::AddImages ? read_numbers() : 0;
    if (wrong != 0)
        return refuse(wrong, LoadString(IDS_COMBINE_INVALID, {std::to_wstring(-kLargestNumber),
                                                              std::to_wstring(kLargestNumber)}));
    const cDIBSection& first = *chosen_picture(IDC_COMBINE_FIRST);
    NewImageWidth = first.Width();
    NewImageHeight = first.Height();
    return true;
}

} // namespace kelvane
