#include "dialogs/frmNewSize.h"

#include "dialogs/field_input.h"
#include "image/dib_section.h"
#include "settings/catalogue.h"
#include "texts/string_table.h"

#include "ids.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <limits>

namespace kelvane {
namespace {

constexpr Caption kCaptions[] = {
    {IDC_SIZE_FRAME, IDS_SIZE_NEW},
    {IDC_SIZE_WIDTH_LABEL, IDS_SIZE_WIDTH},
    {IDC_SIZE_WIDTH_PIXELS, IDS_SIZE_PIXELS},
    {IDC_SIZE_HEIGHT_LABEL, IDS_SIZE_HEIGHT},
    {IDC_SIZE_HEIGHT_PIXELS, IDS_SIZE_PIXELS},
    {IDC_SIZE_KEEP_RATIO, IDS_SIZE_KEEP_RATIO},
    {IDOK, IDS_SIZE_OK},
    {IDCANCEL, IDS_SIZE_CANCEL},
};

constexpr std::int64_t square_bytes(int side) {
    return std::int64_t{cDIBSection::bytes_per_scan_line(side)} * side;
}
constexpr std::int64_t kMostBytes = std::numeric_limits<std::int32_t>::max();
static_assert(square_bytes(frmNewSize::kLongestSide) <= kMostBytes);
static_assert(square_bytes(frmNewSize::kLongestSide + 1) > kMostBytes);

// `side` x `of` / `own`, rounded, at least 1.
double in_ratio(int side, int own, int of) {
    return std::max(std::nearbyint(static_cast<double>(side) * of / own), 1.0);
}

std::optional<int> side_in(const std::wstring& text) {
    return whole_number(text, 1, frmNewSize::kLongestSide);
}

} // namespace

frmNewSize::frmNewSize(const SettingsFile& settings, int width, int height)
    : Form(IDD_NEW_SIZE, IDS_SIZE_TITLE, kCaptions), settings_(settings), width_(width),
      height_(height) {}

void frmNewSize::load() {
    Form::load();

    const int width = read_setting(settings_, settings::kNewWidth);
    const int height = read_setting(settings_, settings::kNewHeight);
    if (width < 1 || height < 1)
        show_size(width_, height_);
    else
        show_size(width, height);
}

// Ticks the box only if the two numbers have the picture's ratio; a stored size is not changed.
void frmNewSize::show_size(int width, int height) {
    set_text(IDC_SIZE_WIDTH, std::to_wstring(width));
    set_text(IDC_SIZE_HEIGHT, std::to_wstring(height));
    check(IDC_SIZE_KEEP_RATIO,
          in_ratio(width, width_, height_) == height || in_ratio(height, height_, width_) == width);
}

bool frmNewSize::confirm() {
    const std::optional<int> width = side_in(text(IDC_SIZE_WIDTH));
    const std::optional<int> height = side_in(text(IDC_SIZE_HEIGHT));
    if (!width || !height)
        return refuse(width ? IDC_SIZE_HEIGHT : IDC_SIZE_WIDTH,
                      LoadString(IDS_SIZE_INVALID, {std::to_wstring(kLongestSide)}));
    NewWidth = *width;
    NewHeight = *height;
    write_setting(settings_, settings::kNewWidth, NewWidth);
    write_setting(settings_, settings::kNewHeight, NewHeight);
    return true;
}

void frmNewSize::on_command(int control, int notification) {
    if (following_ || !checked(IDC_SIZE_KEEP_RATIO)) return;
    following_ = true;
    const Side width{IDC_SIZE_WIDTH, width_};
    const Side height{IDC_SIZE_HEIGHT, height_};
    if (control == IDC_SIZE_WIDTH && notification == EN_CHANGE) follow(width, height);
    if (control == IDC_SIZE_HEIGHT && notification == EN_CHANGE) follow(height, width);
    if (control == IDC_SIZE_KEEP_RATIO && notification == BN_CLICKED) follow(width, height);
    following_ = false;
}

// Limits both sides to the largest size of this ratio without a side longer than the limit.
void frmNewSize::follow(const Side& typed, const Side& other) {
    const std::optional<int> side = side_in(text(typed.field));
    if (!side) return;
    const double exact = in_ratio(*side, typed.own, other.own);
    const int following = static_cast<int>(std::min<double>(exact, kLongestSide));
    set_text(other.field, std::to_wstring(following));
    if (exact <= kLongestSide) return;
    const auto largest = static_cast<int>(in_ratio(following, other.own, typed.own));
    const std::wstring digits = std::to_wstring(largest);
    set_text(typed.field, digits);
    // Setting the text moved the caret to the front.
    SendMessageW(control(typed.field), EM_SETSEL, digits.size(),
                 static_cast<LPARAM>(digits.size()));
}

} // namespace kelvane
