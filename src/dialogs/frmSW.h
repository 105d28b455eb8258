// frmSW: kind and limit of a reduction to black and white, with a preview.
#pragma once

#include "dialogs/form.h"
#include "dialogs/reduction_preview.h"
#include "settings/settings_file.h"

namespace kelvane {

class frmSW : public Form {
  public:
    /// Sliders and check boxes start as the settings have them, all channels ticked while none is
    /// stored; the settings are written by who carries the reduction out. `picture` is only read,
    /// and must live as long as the dialog.
    frmSW(const SettingsFile& settings, const cDIBSection& picture);

    /// 0 when cancelled, else the reduction: 1 brightness, 2 colour limit, 3 edges.
    int result = 0;
    /// 1 to 255; there is no 0, which stands for "cancelled" in what follows the dialog.
    int limitvalue = 0;
    /// 1 for a channel that takes part, else 0.
    int red = 0;
    int green = 0;
    int blue = 0;

    const ReductionPreview& preview() const { return preview_; }

  protected:
    void load() override;
    bool confirm() override;
    void density_changed() override;
    void on_command(int id, int notification) override;
    INT_PTR on_message(UINT message, WPARAM w, LPARAM l) override;
    void draw(const DRAWITEMSTRUCT& box) override;

  private:
    void serve_keys() const;
    void restore();
    Reduction chosen() const;
    HWND slider() const;
    bool lacks_channel() const;
    void show_kind();
    void show_preview();
    void draw_frame(const DRAWITEMSTRUCT& box) const;
    INT_PTR show_hand() const;
    bool pick_detail(LPARAM position);
    bool move_detail(WPARAM key);

    const SettingsFile& settings_;
    ReductionPreview preview_;
    /// The pointer drags the detail's frame over the overview.
    bool dragging_ = false;
};

} // namespace kelvane
