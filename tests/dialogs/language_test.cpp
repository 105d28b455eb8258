#include "dialogs/frmLanguage.h"

#include "settings/scratch_folder.h"
#include "settings/string_table.h"
#include "support/windows/modal_script.h"

#include "ids.h"

#include <gtest/gtest.h>

namespace kelvane {
namespace {

void pick(HWND dialog, int entry) {
    const HWND list = GetDlgItem(dialog, IDC_LANGUAGE);
    SendMessageW(list, CB_SETCURSEL, static_cast<WPARAM>(entry), 0);
    SendMessageW(dialog, WM_COMMAND, MAKEWPARAM(IDC_LANGUAGE, CBN_SELCHANGE),
                 reinterpret_cast<LPARAM>(list));
}

class LanguageDialog : public testing::Test {
  protected:
    // Picks an entry and closes the dialog by a button. Whether the language is said to differ.
    bool choose(int entry, int button, const std::wstring& cancel_caption) {
        test::ModalScript script;
        script.expect_dialog(
            [&](HWND dialog) {
                pick(dialog, entry);
                EXPECT_EQ(test::text_of(dialog, IDCANCEL), cancel_caption)
                    << "not switched at once";
            },
            button);
        frmLanguage dialog(settings_);
        dialog.show_modal(nullptr);
        return dialog.changed;
    }
    std::wstring stored() const { return settings_.ReadIniValue(L"global", L"language"); }
    ~LanguageDialog() override { set_language_offset(kEnglishOffset); }

    const ScratchFolder scratch_;
    const SettingsFile settings_ = scratch_.settings();
};

TEST_F(LanguageDialog, OkStoresTheChoice) {
    EXPECT_TRUE(choose(1, IDOK, L"&Abbrechen"));
    EXPECT_EQ(stored(), L"0");
    EXPECT_FALSE(choose(1, IDOK, L"&Abbrechen"));
    EXPECT_TRUE(choose(0, IDOK, L"&Cancel"));
    EXPECT_EQ(stored(), L"10000");
}

TEST_F(LanguageDialog, CancelKeepsTheLanguageUntilTheProgramEnds) {
    EXPECT_TRUE(choose(1, IDCANCEL, L"&Abbrechen"));
    EXPECT_EQ(language_offset(), kGermanOffset);
    EXPECT_FALSE(std::filesystem::exists(scratch_.ini()));
}

} // namespace
} // namespace kelvane
