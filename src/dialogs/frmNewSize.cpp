#include "dialogs/frmNewSize.h"

#include "dialogs/controls.h"
#include "dialogs/field_input.h"
#include "image/dib_section.h"
#include "settings/catalogue.h"
#include "settings/string_table.h"

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

// The side that goes with `side` where `of` goes with `own`, rounded.
int in_ratio(int side, int own, int of) {
    const double exact = static_cast<double>(side) * of / own;
    return static_cast<int>(
        std::clamp(std::nearbyint(exact), 1.0, static_cast<double>(frmNewSize::kLongestSide)));
}

std::optional<int> side_in(const std::wstring& text) {
    return whole_number(text, 1, frmNewSize::kLongestSide);
}

} // namespace

frmNewSize::frmNewSize(const SettingsFile& settings, int width, int height)
    : Dialog(IDD_NEW_SIZE), settings_(settings), width_(width), height_(height) {}

void frmNewSize::load() {
    Cancelled = true;
    set_title(LoadString(IDS_SIZE_TITLE));
    set_captions(window(), kCaptions);

    const int width = read_setting(settings_, settings::kNewWidth);
    const int height = read_setting(settings_, settings::kNewHeight);
    if (width < 1 || height < 1)
        show_size(width_, height_);
    else
        show_size(width, height);
}

// The tick says of the two numbers what holds: a size of old that has another ratio stays as it is.
void frmNewSize::show_size(int width, int height) {
    set_text(IDC_SIZE_WIDTH, std::to_wstring(width));
    set_text(IDC_SIZE_HEIGHT, std::to_wstring(height));
    check(IDC_SIZE_KEEP_RATIO,
          in_ratio(width, width_, height_) == height || in_ratio(height, height_, width_) == width);
}

bool frmNewSize::confirm() {
    const std::optional<int> width = side_in(text(IDC_SIZE_WIDTH));
    const std::optional<int> height = side_in(text(IDC_SIZE_HEIGHT));
    if (!width || !height) {
        refuse_field(window(), width ? IDC_SIZE_HEIGHT : IDC_SIZE_WIDTH,
                     LoadString(IDS_SIZE_INVALID, {std::to_wstring(kLongestSide)}));
        return false;
    }
    NewWidth = *width;
    NewHeight = *height;
    write_setting(settings_, settings::kNewWidth, NewWidth);
    write_setting(settings_, settings::kNewHeight, NewHeight);
    Cancelled = false;
    return true;
}

void frmNewSize::on_command(int control, int notification) {
    if (following_ || !checked(IDC_SIZE_KEEP_RATIO)) return;
    following_ = true;
    if (control == IDC_SIZE_WIDTH && notification == EN_CHANGE) follow_width();
    if (control == IDC_SIZE_HEIGHT && notification == EN_CHANGE) follow_height();
    if (control == IDC_SIZE_KEEP_RATIO && notification == BN_CLICKED) follow_width();
    following_ = false;
}

void frmNewSize::follow_width() {
    if (const auto width = side_in(text(IDC_SIZE_WIDTH)))
        set_text(IDC_SIZE_HEIGHT, std::to_wstring(in_ratio(*width, width_, height_)));
}

void frmNewSize::follow_height() {
    if (const auto height = side_in(text(IDC_SIZE_HEIGHT)))
        set_text(IDC_SIZE_WIDTH, std::to_wstring(in_ratio(*height, height_, width_)));
}

} // namespace kelvane
