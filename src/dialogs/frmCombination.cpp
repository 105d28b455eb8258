#include "dialogs/frmCombination.h"

#include "dialogs/controls.h"
#include "dialogs/field_input.h"
#include "settings/string_table.h"
#include "win/message_box.h"

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
    {IDOK, IDS_COMBINE_OK},
    {IDCANCEL, IDS_COMBINE_CANCEL},
};

// Enough to turn any byte into any other.
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
    : Dialog(IDD_COMBINATION), sources_(std::move(sources)) {}

void frmCombination::load() {
    Cancelled = true;
    set_title(LoadString(IDS_COMBINE_TITLE));
    set_captions(window(), kCaptions);
    for (const Row& row : kRows) {
        set_text(row.multiplier, L"1");
        set_text(row.offset, L"0");
    }
    check_radio(IDC_COMBINE_ADD, IDC_COMBINE_DARKEST, IDC_COMBINE_ADD);
    fill_lists();
    show_size();
}

void frmCombination::fill_lists() {
    for (std::size_t i = 0; i < kRows.size(); ++i) {
        const HWND list = control(kRows[i].list);
        for (const CombinationSource& source : sources_)
            add_entry(list, source.title);
        select_entry(list, static_cast<int>(i)); // no entry where there are too few
    }
}

// Position of the picture chosen in a list; -1 for none.
int frmCombination::chosen(int list) const {
    return selected_entry(control(list));
}

int frmCombination::chosen_type() const {
    if (checked(IDC_COMBINE_LIGHTEST)) return 2;
    return checked(IDC_COMBINE_DARKEST) ? 3 : 1;
}

void frmCombination::show_size() {
    const int first = chosen(IDC_COMBINE_FIRST);
    const int second = chosen(IDC_COMBINE_SECOND);
    bool sizes_differ = false;
    std::wstring size;
    if (first >= 0) {
        const cDIBSection& picture = *sources_[static_cast<std::size_t>(first)].picture;
        size = LoadString(IDS_COMBINE_NEW_SIZE,
                          {std::to_wstring(picture.Width()), std::to_wstring(picture.Height())});
        if (second >= 0) {
            const cDIBSection& other = *sources_[static_cast<std::size_t>(second)].picture;
            sizes_differ = other.Width() != picture.Width() || other.Height() != picture.Height();
        }
    }
    set_text(IDC_COMBINE_NEW_SIZE, size);
    ShowWindow(control(IDC_COMBINE_RESAMPLED), sizes_differ ? SW_SHOW : SW_HIDE);
}

void frmCombination::on_command(int control, int notification) {
    if (notification == CBN_SELCHANGE) return show_size();
    if (control < IDC_COMBINE_ADD || control > IDC_COMBINE_DARKEST) return;
    for (const Row& row : kRows) {
        enable(row.multiplier, chosen_type() == 1);
        enable(row.offset, chosen_type() == 1);
    }
}

// False, after a message, when a field holds no number that is allowed.
bool frmCombination::read_numbers() {
    const auto read = [this](int field) {
        const auto value = whole_number(text(field), -kLargestNumber, kLargestNumber);
        if (!value)
            refuse_field(window(), field,
                         LoadString(IDS_COMBINE_INVALID, {std::to_wstring(-kLargestNumber),
                                                          std::to_wstring(kLargestNumber)}));
        return value;
    };
    for (std::size_t i = 0; i < kRows.size(); ++i) {
        const auto multiplier = read(kRows[i].multiplier);
        if (!multiplier) return false;
        const auto offset = read(kRows[i].offset);
        if (!offset) return false;
        Multiplier[i] = *multiplier;
        Offset[i].fill(*offset);
    }
    return true;
}

bool frmCombination::confirm() {
    for (std::size_t i = 0; i < kRows.size(); ++i) {
        ImageSource[i] = chosen(kRows[i].list);
        if (ImageSource[i] < 0) {
            refuse_field(window(), kRows[i].list, LoadString(IDS_COMBINE_SELECT_TWO));
            return false;
        }
    }
    CombinationType = chosen_type();
    if (CombinationType == 1 && !read_numbers()) return false;
    const cDIBSection& first = *sources_[static_cast<std::size_t>(ImageSource[0])].picture;
    NewImageWidth = first.Width();
    NewImageHeight = first.Height();
    Cancelled = false;
    return true;
}

} // namespace kelvane
