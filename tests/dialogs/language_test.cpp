#include "dialogs/frmLanguage.h"

#include "dialogs/shown_dialog.h"
#include "settings/scratch_folder.h"
#include "settings/string_table.h"

#include "ids.h"

#include <gtest/gtest.h>

namespace kelvane {
namespace {

class LanguageDialog : public testing::Test {
  protected:
    // Picks an entry and closes the dialog by a button. Whether the language is said to differ.
    bool choose(int entry, int button, const std::wstring& cancel_caption) {
        frmLanguage form(settings_);
        test::show(
            form,
            [&](HWND dialog) {
                test::choose_in_list(dialog, IDC_LANGUAGE, entry);
                EXPECT_EQ(test::text_of(dialog, IDCANCEL), cancel_caption)
                    << "not switched at once";
            },
            button);
        return form.changed;
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
