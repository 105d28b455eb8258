// frmNoise: how much noise is added.
#pragma once

#include "dialogs/slider_dialog.h"

namespace kelvane {

/// The preview shows the noise on the reduced picture; on the picture itself it is finer.
class frmNoise : public SliderDialog {
  public:
    explicit frmNoise(const cDIBSection& picture);

    /// 0 to 100; valid unless `Cancelled`.
    int Percent = 20;
    /// Only pixels picked at random are changed.
    bool Random = false;

  protected:
    void load() override;
    bool confirm() override;
    void on_command(int control, int notification) override;
    std::optional<int> typed_position() const override;
    std::wstring text_at(int position) const override;
    void apply(cDIBSection& picture) override;
};

} // namespace kelvane
