#include "dialogs/frmLanguage.h"

#include "dialogs/drop_down_list.h"
#include "settings/catalogue.h"
#include "texts/string_table.h"

#include "ids.h"

namespace kelvane {
namespace {

constexpr Caption kCaptions[] = {
    {IDC_LANGUAGE_LABEL, IDS_LANGUAGE_LIST},
    {IDOK, IDS_LANGUAGE_OK},
    {IDCANCEL, IDS_LANGUAGE_CANCEL},
};

// Entries of the list; each language is called what its speakers call it.
constexpr int kGermanEntry = 1;
constexpr const wchar_t* kEntries[] = {L"english", L"deutsch"};

} // namespace

frmLanguage::frmLanguage(const SettingsFile& settings)
    : Form(IDD_LANGUAGE, IDS_LANGUAGE_TITLE, kCaptions), settings_(settings) {}

void frmLanguage::load() {
    Form::load();
    changed = false;
    offset_before_ = language_offset();
    const HWND list = control(IDC_LANGUAGE);
    for (const wchar_t* entry : kEntries)
        add_entry(list, entry);
    select_entry(list, offset_before_ == kGermanOffset ? kGermanEntry : 0);
}

int frmLanguage::chosen_offset() const {
    return selected_entry(control(IDC_LANGUAGE)) == kGermanEntry ? kGermanOffset : kEnglishOffset;
}

void frmLanguage::on_command(int control, int notification) {
    if (control != IDC_LANGUAGE || notification != CBN_SELCHANGE) return;
    set_language_offset(chosen_offset());
    changed = language_offset() != offset_before_;
    loadResources();
}

bool frmLanguage::confirm() {
    write_setting(settings_, settings::kLanguage, chosen_offset());
    return true;
}

} // namespace kelvane
