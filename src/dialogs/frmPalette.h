// frmPalette: the palette file that a picture is mapped onto.
#pragma once

#include "dialogs/form.h"
#include "process/palette.h"
#include "settings/settings_file.h"

#include <filesystem>

namespace kelvane {

/// Shows the colours of the chosen file; OK accepts only a file that holds some. It starts with the
/// first palette file in the program's folder, if any.
class frmPalette : public Form {
  public:
    explicit frmPalette(const SettingsFile& settings);

    /// A readable palette file; valid unless `Cancelled`.
    std::filesystem::path FileName;

  protected:
    void load() override;
    bool confirm() override;
    void on_command(int control, int notification) override;
    void draw(const DRAWITEMSTRUCT& box) override;

  private:
    void browse();
    std::wstring read_colours();
    std::wstring browse_folder() const;

    const SettingsFile& settings_;
    cPalette palette_;
};

} // namespace kelvane
