// frmHue: the hue that a picture is coloured in.
#pragma once

#include "dialogs/live_preview.h"
#include "engine/image_process.h"
#include "win/dialog.h"

#include <optional>

namespace kelvane {

/// A slider under a strip of all hues, and a field; they follow each other, with a live preview.
class frmHue : public win::Dialog {
  public:
    explicit frmHue(const cDIBSection& picture);

    bool Cancelled = true;
    /// Sextants, -1 to 5: red 0, green 2, blue 4; valid unless `Cancelled`.
    float Hue = 0;

  protected:
    void load() override;
    bool confirm() override;
    void on_command(int control, int notification) override;
    INT_PTR on_message(UINT message, WPARAM w, LPARAM l) override;

  private:
    void place_spectrum() const;
    std::optional<double> hue() const;
    void follow_hue();

    LivePreview preview_;
    cDIBSection spectrum_;
    cImageProcessDIB engine_;
};

} // namespace kelvane
