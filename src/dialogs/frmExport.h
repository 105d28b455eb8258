// frmExport: options of an export to an EAGLE script, with a preview of what is traced.
#pragma once

#include "dialogs/export_choices.h"
#include "dialogs/form.h"
#include "image/dib_section.h"

namespace kelvane {

class frmExport : public Form {
  public:
    /// `picture` is only read, and must live as long as the dialog.
    frmExport(const SettingsFile& settings, const cDIBSection& picture);

    /// The export asked for; valid unless `Cancelled`.
    ExportOptions options() const { return choices_.options(); }

    /// Makes the preview: the picture reduced as an export reduces it, then scaled.
    void loadPreview();
    const cDIBSection& preview() const { return preview_; }

  protected:
    void load() override;
    bool confirm() override;
    void density_changed() override;
    void draw(const DRAWITEMSTRUCT& box) override { draw_preview(box, preview_); }

  private:
    void fill_lists() const;
    void show_choices() const;
    ExportChoices read_controls() const;

    const SettingsFile& settings_;
    const cDIBSection& picture_;
    ExportChoices choices_;
    cDIBSection preview_;
};

} // namespace kelvane
