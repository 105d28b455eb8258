// frmPalette: the palette file that a picture is mapped onto.
#pragma once

#include "dialogs/form.h"
#include "dialogs/live_preview.h"
#include "process/palette.h"
#include "settings/settings_file.h"

#include <filesystem>

namespace kelvane {

/// Shows the colours of the chosen file; OK accepts only a file that holds some. It starts with the
/// first palette file in the program's folder, if any.
class frmPalette : public Form {
  public:
    /// `picture` is what the preview shows in the colours of the palette.
    frmPalette(const SettingsFile& settings, const cDIBSection& picture);

    /// A readable palette file; valid unless `Cancelled`.
    std::filesystem::path FileName;

  protected:
    void load() override;
    bool confirm() override;
    void on_command(int control, int notification) override;
    void density_changed() override;
    void draw(const DRAWITEMSTRUCT& box) override;

  private:
    void browse();
    std::wstring read_colours();
    void show_preview();
    std::wstring browse_folder() const;

    const SettingsFile& settings_;
    cPalette palette_;
    LivePreview preview_;
};

} // namespace kelvane
