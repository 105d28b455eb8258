// Every dialog in both languages: its texts have room, and its picture goes to the folder of
// screenshots, where people look at it.
#include "dialogs/frmAbout.h"
#include "dialogs/frmCombination.h"
#include "dialogs/frmCustomFilter.h"
#include "dialogs/frmExport.h"
#include "dialogs/frmHue.h"
#include "dialogs/frmLanguage.h"
#include "dialogs/frmMsg3.h"
#include "dialogs/frmNewSize.h"
#include "dialogs/frmNoise.h"
#include "dialogs/frmPalette.h"
#include "dialogs/frmSW.h"
#include "dialogs/frmSplash.h"
#include "dialogs/shown_dialog.h"
#include "image/bitmap_file.h"
#include "settings/scratch_folder.h"
#include "settings/string_table.h"
#include "support/pictures.h"
#include "support/windows/layout_check.h"

namespace kelvane {
namespace {

void save_screenshot(HWND window, const std::string& name) {
    RedrawWindow(window, nullptr, nullptr, RDW_INVALIDATE | RDW_UPDATENOW | RDW_ALLCHILDREN);
    RECT area{};
    GetWindowRect(window, &area);
    cDIBSection picture = test::black_picture(area.right - area.left, area.bottom - area.top);
    const HDC context = GetWindowDC(window);
    EXPECT_TRUE(BitBlt(static_cast<HDC>(picture.hdc()), 0, 0, picture.Width(), picture.Height(),
                       context, 0, 0, SRCCOPY));
    ReleaseDC(window, context);
    GdiFlush();
    const std::filesystem::path folder = KELVANE_SCREENSHOTS;
    std::filesystem::create_directories(folder);
    save_bitmap(picture.view(), folder / (name + ".bmp"));
}

// Colours across, light and dark upwards.
cDIBSection colourful_picture(int width, int height) {
    cDIBSection picture = test::black_picture(width, height);
    for (int y = 0; y < height; ++y)
        for (int x = 0; x < width; ++x) {
            std::uint8_t* pixel = picture.view().pixel(x, y);
            pixel[0] = static_cast<std::uint8_t>(255 * x / width);
            pixel[1] = static_cast<std::uint8_t>(255 * y / height);
            pixel[2] = static_cast<std::uint8_t>(255 - 255 * x / width);
        }
    return picture;
}

class DialogLooks : public testing::TestWithParam<int> {
  protected:
    DialogLooks() { set_language_offset(GetParam()); }
    ~DialogLooks() override { set_language_offset(kEnglishOffset); }

    static void look_at(HWND dialog, const std::string& name) {
        test::expect_captions_fit(dialog);
        save_screenshot(dialog, name + (GetParam() == kGermanOffset ? "-de" : "-en"));
    }
    static void show(win::Dialog& dialog, const std::string& name) {
        test::show(
            dialog, [&](HWND window) { look_at(window, name); }, IDCANCEL);
    }

    const ScratchFolder scratch_;
    const SettingsFile settings_ = scratch_.settings();
    const cDIBSection picture_ = colourful_picture(320, 240);
    const cDIBSection other_ = colourful_picture(64, 64);
};

TEST_P(DialogLooks, CaptionsFit) {
    frmHue hue(picture_);
    show(hue, "hue");
    frmNoise noise(picture_);
    show(noise, "noise");
    frmCombination combination({{L"C:\\Pictures\\logo.png", &picture_}, {L"Image 2", &other_}});
    show(combination, "combination");
    frmSW reduction(settings_, picture_);
    show(reduction, "reduction");
    frmExport exporting(settings_, picture_);
    show(exporting, "export");
    frmMsg3 warning;
    show(warning, "out_of_range");
    cImageProcessDIB engine;
    engine.set_FilterType(kSharpen);
    engine.set_FilterType(kCustom);
    frmCustomFilter filter(engine);
    show(filter, "custom_filter");
    frmPalette palette(settings_);
    palette.FileName = scratch_.path() / L"web.pal";
    std::ofstream colours(palette.FileName);
    for (int i = 0; i < 216; ++i)
        colours << i / 36 * 51 << ' ' << i / 6 % 6 * 51 << ' ' << i % 6 * 51 << '\n';
    colours.close();
    show(palette, "palette");
    frmNewSize size(settings_, 3200, 2400);
    show(size, "new_size");
    frmLanguage language(settings_);
    show(language, "language");
    frmAbout about(L"1.2.3");
    show(about, "about");
    frmSplash splash(L"1.2.3");
    splash.show_modeless(nullptr);
    look_at(splash.window(), "splash");
}

INSTANTIATE_TEST_SUITE_P(BothLanguages, DialogLooks,
                         testing::Values(kEnglishOffset, kGermanOffset));

} // namespace
} // namespace kelvane
