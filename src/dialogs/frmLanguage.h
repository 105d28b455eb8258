// frmLanguage: the program's language.
#pragma once

#include "dialogs/form.h"
#include "settings/settings_file.h"

namespace kelvane {

/// Switches the program's language as soon as an entry of the list is picked; its own captions
/// follow at once, other windows the next time they set theirs. The choice is written by OK only:
/// after Cancel it holds until the program ends.
class frmLanguage : public Form {
  public:
    explicit frmLanguage(const SettingsFile& settings);

    /// Whether the language is another one than before the dialog, also after Cancel.
    bool changed = false;

  protected:
    void load() override;
    bool confirm() override;
    void on_command(int control, int notification) override;

  private:
    int chosen_offset() const;

    const SettingsFile& settings_;
    int offset_before_ = 0;
};

} // namespace kelvane
