// frmExport: options of an export to an EAGLE script, with a preview of what is traced and a result
// that says what the board will get.
#pragma once

#include "dialogs/export_choices.h"
#include "dialogs/export_estimate.h"
#include "dialogs/form.h"
#include "image/dib_section.h"

namespace kelvane {

class frmExport : public Form {
  public:
    /// `picture` is only read, and must live as long as the dialog.
    frmExport(const SettingsFile& settings, const cDIBSection& picture);

    /// The export asked for; valid unless `Cancelled`.
    ExportOptions options() const { return choices_.options(); }

    /// Whether the drawing is mirrored; valid like the options.
    bool mirrored() const { return choices_.mirrored; }

    /// Makes the preview: the picture reduced as an export reduces it, then scaled. Places too thin
    /// to be printed are red when they are known.
    void loadPreview();
    const cDIBSection& preview() const { return preview_; }

  protected:
    void load() override;
    bool confirm() override;
    void on_command(int control, int notification) override;
    INT_PTR on_message(UINT message, WPARAM w, LPARAM l) override;
    void density_changed() override;
    void draw(const DRAWITEMSTRUCT& box) override { draw_preview(box, preview_); }

  private:
    void fill_lists() const;
    void show_choices() const;
    ExportChoices read_controls() const;
    void set_field(int field, const std::wstring& text);
    void show_width();
    void take_width();
    void show_hint() const;
    void ask();
    void work();
    void show_result();

    const SettingsFile& settings_;
    const cDIBSection& picture_;
    ExportChoices choices_;
    ExportEstimate estimate_;
    cDIBSection preview_;
    bool setting_text_ = false; // the program, not the user, changes a field
};

} // namespace kelvane
