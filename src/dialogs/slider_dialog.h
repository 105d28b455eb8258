// Base of the dialogs for one number with a preview of its effect.
#pragma once

#include "dialogs/form.h"
#include "dialogs/live_preview.h"
#include "engine/image_process.h"

#include <optional>
#include <string>

namespace kelvane {

/// A field and a slider, which follow each other, and a live preview. Incomplete input leaves
/// slider and preview unchanged.
class SliderDialog : public Form {
  protected:
    struct Controls {
        int field;
        int slider;
        int preview;
    };

    SliderDialog(int template_id, int title, std::span<const Caption> captions,
                 const Controls& controls, const cDIBSection& picture);

    /// The slider's position for the number in the field; nothing when that is no valid number.
    virtual std::optional<int> typed_position() const = 0;
    virtual std::wstring text_at(int position) const = 0;
    /// Applies to the preview what OK would do. Called only while the field holds a valid number.
    virtual void apply(cDIBSection& picture) = 0;

    /// To be called at the end of `load`.
    void start();
    void follow_field();
    void density_changed() override;
    void on_command(int control, int notification) override;
    void draw(const DRAWITEMSTRUCT& box) override { preview_.draw(box); }
    INT_PTR on_message(UINT message, WPARAM w, LPARAM l) override;

    cImageProcessDIB engine_;

  private:
    Controls controls_;
    LivePreview preview_;
};

} // namespace kelvane
