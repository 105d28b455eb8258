// frmSW: kind and limit of a reduction to black and white, with a preview.
#pragma once

#include "dialogs/form.h"
#include "dialogs/reduction_preview.h"
#include "dialogs/spin_field.h"
#include "settings/settings_file.h"

#include <optional>

namespace kelvane {

class frmSW : public Form {
  public:
    /// Starts as the settings have it, with all channels ticked while none is stored; the settings
    /// are written by who carries the reduction out. `picture` is only read, and must live as long
    /// as the dialog.
    frmSW(const SettingsFile& settings, const cDIBSection& picture);

    /// Nothing when cancelled. The limit is 1 to 255, never the 0 that stands for "cancelled" in a
    /// document's reductions.
    std::optional<Reduction> result;

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
    void restore_limits();
    void restore_numbers();
    ReductionKind kind() const;
    Channels channels() const;
    std::optional<int> limit() const;
    std::optional<int> number(const SpinField& field) const;
    std::optional<Reduction> chosen() const;
    HWND slider() const;
    void show_kind();
    void show_hint() const;
    void refresh();
    void follow_input();
    void show_preview(ProgressObserver* observer = nullptr);
    void show_preview_until_input();
    void limit_moved();
    void limit_typed();
    void find_limit();
    bool refuse_number() const;
    void draw_frame(const DRAWITEMSTRUCT& box) const;
    INT_PTR show_hand() const;
    bool pick_detail(LPARAM position);
    bool move_detail(WPARAM key);

    const SettingsFile& settings_;
    const cDIBSection& picture_;
    ReductionPreview preview_;
    /// What the preview shows, or will show after a pause.
    std::optional<Reduction> shown_;
    /// The pointer drags the detail's frame over the overview.
    bool dragging_ = false;
};

} // namespace kelvane
