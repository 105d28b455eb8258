#include "dialogs/frmPalette.h"

#include "settings/scratch_folder.h"
#include "support/windows/modal_script.h"

#include "ids.h"

#include <gmock/gmock.h>

namespace kelvane {
namespace {

using test::ModalScript;
using test::press;
using test::text_of;
using test::type_text;

class PaletteDialog : public testing::Test {
  protected:
    std::wstring put(const wchar_t* name, const std::string& text) const {
        const std::filesystem::path file = scratch_.path() / name;
        std::ofstream(file, std::ios::binary) << text;
        return file.wstring();
    }

    const ScratchFolder scratch_;
    const SettingsFile settings_ = scratch_.settings();
};

TEST_F(PaletteDialog, BrowsesToAFileAndShowsItsColours) {
    const std::wstring good = put(L"two.pal", "JASC-PAL\r\n0100\r\n2\r\n255 0 0\r\n0 0 255\r\n");
    ModalScript script;
    script.expect([&](HWND dialog) {
        script.expect_file_dialog(good);
        press(dialog, IDC_PALETTE_BROWSE);
        EXPECT_EQ(text_of(dialog, IDC_PALETTE_COUNT), L"2 Colors");
        const HWND colours = GetDlgItem(dialog, IDC_PALETTE_COLOURS);
        UpdateWindow(colours);
        const HDC context = GetDC(colours);
        EXPECT_EQ(GetPixel(context, 3, 3), RGB(255, 0, 0));
        EXPECT_EQ(GetPixel(context, 24 + 3, 3), RGB(0, 0, 255));
        ReleaseDC(colours, context);
        press(dialog, IDOK);
    });
    frmPalette dialog(settings_);
    EXPECT_TRUE(dialog.show_modal(nullptr));
    EXPECT_FALSE(dialog.Cancelled);
    EXPECT_EQ(dialog.FileName.wstring(), good);
    EXPECT_FALSE(std::filesystem::exists(scratch_.ini())) << "the folder of pictures is not ours";
}

TEST_F(PaletteDialog, RefusesWhatIsNoPalette) {
    const std::wstring broken = put(L"broken.pal", "0 0 0\r\n0 256 0\r\n");
    const std::wstring empty = put(L"empty.pal", "JASC-PAL\r\n0100\r\n0\r\n");
    ModalScript script;
    script.expect([&](HWND dialog) {
        for (const std::wstring& file :
             {std::wstring(), broken, empty, broken + L".gone", scratch_.path().wstring()}) {
            type_text(dialog, IDC_PALETTE_FILE, file);
            script.expect_message(IDOK);
            press(dialog, IDOK);
            EXPECT_TRUE(IsWindowVisible(dialog));
            EXPECT_EQ(text_of(dialog, IDC_PALETTE_COUNT), L"");
        }
        press(dialog, IDCANCEL);
    });
    frmPalette dialog(settings_);
    EXPECT_FALSE(dialog.show_modal(nullptr));
    EXPECT_TRUE(dialog.Cancelled);
    const std::wstring error = L"An error occured trying to open this palette: ";
    EXPECT_THAT(script.messages(),
                testing::ElementsAre(L"Please select a Palette File.",
                                     error + L"line 2 is not three numbers from 0 to 255",
                                     L"This file holds no Colors.",
                                     error + L"No such file or directory", error + L"is a folder"));
}

} // namespace
} // namespace kelvane
