// Every dialog in both languages and densities: texts fit, no control covers another. Screenshots.
#include "dialogs/dialog_test.h"
#include "dialogs/frmAbout.h"
#include "dialogs/frmCombination.h"
#include "dialogs/frmConfigMagick.h"
#include "dialogs/frmCustomFilter.h"
#include "dialogs/frmExport.h"
#include "dialogs/frmHue.h"
#include "dialogs/frmLanguage.h"
#include "dialogs/frmMsg.h"
#include "dialogs/frmMsg2.h"
#include "dialogs/frmMsg3.h"
#include "dialogs/frmMultiPic.h"
#include "dialogs/frmNewSize.h"
#include "dialogs/frmNoise.h"
#include "dialogs/frmPalette.h"
#include "dialogs/frmSW.h"
#include "dialogs/frmSplash.h"
#include "settings/catalogue.h"
#include "support/windows/density.h"
#include "support/windows/screenshot.h"
#include "win/dpi.h"

namespace kelvane::test {
namespace {

bool is_group(HWND control) {
    return class_of(control) == L"Button" &&
           (GetWindowLongW(control, GWL_STYLE) & BS_TYPEMASK) == BS_GROUPBOX;
}

bool is_picture(HWND control) {
    const LONG type = GetWindowLongW(control, GWL_STYLE) & SS_TYPEMASK;
    return class_of(control) == L"Static" && (type == SS_OWNERDRAW || type == SS_ICON);
}

// Room for the caption of a control: its area without box, frame and margins.
SIZE room_of(HWND control) {
    RECT area{};
    GetClientRect(control, &area);
    if (class_of(control) == L"Static") return {area.right, area.bottom};
    switch (GetWindowLongW(control, GWL_STYLE) & BS_TYPEMASK) {
    case BS_PUSHBUTTON:
    case BS_DEFPUSHBUTTON:
    case BS_GROUPBOX:
        return {area.right - 12, area.bottom - 4};
    default:
        return {area.right - GetSystemMetrics(SM_CXMENUCHECK) - 6, area.bottom};
    }
}

SIZE needed_by(HWND control, const std::wstring& text, LONG width) {
    const win::WindowContext context(control);
    const auto font = reinterpret_cast<HGDIOBJ>(SendMessageW(control, WM_GETFONT, 0, 0));
    const win::Selected selected(context.get(), font);
    RECT needed{0, 0, width, 0};
    const bool wraps = class_of(control) == L"Static";
    DrawTextW(context.get(), text.c_str(), -1, &needed,
              DT_CALCRECT | (wraps ? DT_WORDBREAK : DT_SINGLELINE));
    return {needed.right, needed.bottom};
}

RECT place_of(HWND control) {
    RECT place{};
    GetWindowRect(control, &place);
    MapWindowPoints(nullptr, GetParent(control), reinterpret_cast<POINT*>(&place), 2);
    return place;
}

void expect_inside_and_apart(HWND dialog, HWND control) {
    RECT area{}, common{};
    GetClientRect(dialog, &area);
    const RECT place = place_of(control);
    EXPECT_TRUE(place.left >= 0 && place.top >= 0 && place.right <= area.right &&
                place.bottom <= area.bottom)
        << "control " << GetDlgCtrlID(control) << " reaches over the border";
    for (HWND other = control; (other = GetWindow(other, GW_HWNDNEXT)) != nullptr;) {
        if (!IsWindowVisible(other) || is_group(control) || is_group(other)) continue;
        const RECT neighbour = place_of(other);
        EXPECT_FALSE(IntersectRect(&common, &place, &neighbour))
            << "controls " << GetDlgCtrlID(control) << " and " << GetDlgCtrlID(other);
    }
}

// Each visible control is inside the dialog and overlaps no other, and no caption is missing or
// cut. Returns the access keys that two captions share.
std::wstring expect_captions_fit(HWND dialog) {
    EXPECT_TRUE(IsWindowVisible(dialog));
    EXPECT_FALSE(win::window_text(dialog).empty()) << "no title";
    std::vector<std::wstring> captions;
    for (HWND control = GetWindow(dialog, GW_CHILD); control != nullptr;
         control = GetWindow(control, GW_HWNDNEXT)) {
        if (!IsWindowVisible(control)) continue;
        expect_inside_and_apart(dialog, control);
        const std::wstring kind = class_of(control);
        if ((kind != L"Button" && kind != L"Static") || is_picture(control)) continue;
        const std::wstring text = win::window_text(control);
        EXPECT_FALSE(text.empty()) << "control " << GetDlgCtrlID(control) << " is empty";
        const SIZE room = room_of(control);
        const SIZE needed = needed_by(control, text, room.cx);
        EXPECT_TRUE(needed.cx <= room.cx && needed.cy <= room.cy)
            << testing::PrintToString(text) << " needs " << needed.cx << " x " << needed.cy
            << ", has " << room.cx << " x " << room.cy;
        captions.push_back(text);
    }
    return repeated_keys(captions);
}

struct DialogLooks : DialogTest, testing::WithParamInterface<int> {
    DialogLooks() { set_language_offset(GetParam()); }
    ~DialogLooks() override { set_language_offset(kEnglishOffset); }

    static void check_looks(HWND window, const std::string& name,
                            const std::wstring& english_keys = {}) {
        SCOPED_TRACE(name);
        EXPECT_EQ(expect_captions_fit(window), GetParam() == kGermanOffset ? L"" : english_keys);
        const int dots = win::dots_per_inch(window);
        save_screenshot(window, KELVANE_SCREENSHOTS,
                        name + (GetParam() == kGermanOffset ? "-de" : "-en") +
                            (dots == 96 ? "" : "@" + std::to_string(dots)));
    }
    // `english_keys`: access keys that two of the English captions, which are fixed, share.
    template <typename Form>
    void look_at(Form&& dialog, const std::string& name, const std::wstring& english_keys = {}) {
        show(dialog, IDCANCEL, [&](HWND window) { check_looks(window, name, english_keys); });
    }

    const cDIBSection picture = colourful_picture(320, 240);
    const cDIBSection other = colourful_picture(64, 64);
};

TEST_P(DialogLooks, CaptionsFit) {
    look_at(frmHue(picture), "hue");
    look_at(frmNoise(picture), "noise");
    look_at(frmCombination({{L"C:\\Pictures\\logo.png", &picture}, {L"Image 2", &other}}),
            "combination");
    look_at(frmSW(settings, picture), "reduction");
    write_setting(settings, settings::kReductionKind, 4);
    look_at(frmSW(settings, picture), "reduction_uneven");
    look_at(frmExport(settings, picture), "export", L"R");
    look_at(frmMsg3(), "out_of_range");
    cImageProcessDIB engine;
    engine.set_FilterType(kSharpen);
    engine.set_FilterType(kCustom);
    look_at(frmCustomFilter(engine, picture), "custom_filter", L"C");
    frmPalette palette(settings, picture);
    palette.FileName = scratch / "web.pal";
    std::ofstream colours(palette.FileName);
    for (int i = 0; i < 216; ++i)
        colours << i / 36 * 51 << ' ' << i / 6 % 6 * 51 << ' ' << i % 6 * 51 << '\n';
    colours.close();
    look_at(palette, "palette");
    look_at(frmNewSize(settings, 3200, 2400), "new_size");
    look_at(frmLanguage(settings), "language");
    look_at(frmConfigMagick(settings, nullptr), "converter");
    look_at(frmMsg2(settings), "several_images");
    save_bitmap(picture.view(), scratch / "preview.bmp");
    save_bitmap(other.view(), scratch / "small.bmp");
    look_at(frmMultiPic({{scratch / "preview.bmp", 3200, 2400},
                         {scratch / "gone.bmp", 640, 480},
                         {scratch / "small.bmp", 64, 64},
                         {scratch / "preview.bmp"}}),
            "subimage");
    look_at(frmMsg(LoadString(IDS_MAGICK_NO_PICTURE),
                   L"convert: no decode delegate for this image format `XCF' @ "
                   L"error/constitute.c/ReadImage/572.\n",
                   nullptr),
            "open_error");
    look_at(frmAbout(L"1.2.3"), "about");
    frmSplash splash(L"1.2.3");
    splash.show_modeless(nullptr);
    check_looks(splash.window(), "splash");
}

INSTANTIATE_TEST_SUITE_P(BothLanguages, DialogLooks,
                         testing::Values(kEnglishOffset, kGermanOffset));

TEST(DialogDensities, CaptionsFitOnFinerScreens) {
    expect_on_finer_screens(L"BothLanguages/*", "splash-de");
}

} // namespace
} // namespace kelvane::test
