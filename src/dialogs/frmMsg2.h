// frmMsg2: the warning before a file is converted that may hold several images.
#pragma once

#include "dialogs/form.h"
#include "settings/settings_file.h"

namespace kelvane {

/// Its button stores whether the warning is to be shown again; the close box stores nothing. The
/// caller reads the setting and shows the warning or not.
class frmMsg2 : public Form {
  public:
    explicit frmMsg2(const SettingsFile& settings);

  protected:
    void load() override;
    bool confirm() override;

  private:
    const SettingsFile& settings_;
};

} // namespace kelvane
