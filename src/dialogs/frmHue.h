// frmHue: the hue for colouring a picture.
#pragma once

#include "dialogs/slider_dialog.h"

namespace kelvane {

/// Above the slider is a strip of all hues.
class frmHue : public SliderDialog {
  public:
    explicit frmHue(const cDIBSection& picture);

    /// Sextants, -1 to 5: red 0, green 2, blue 4; valid unless `Cancelled`.
    float Hue = 0;

  protected:
    void load() override;
    bool confirm() override;
    void density_changed() override;
    void draw(const DRAWITEMSTRUCT& box) override;
    std::optional<int> typed_position() const override;
    std::wstring text_at(int position) const override;
    void apply(cDIBSection& picture) override;

  private:
    void place_spectrum() const;
    std::optional<double> hue() const;

    cDIBSection spectrum_;
};

} // namespace kelvane
