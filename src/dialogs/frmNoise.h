// frmNoise: how much noise is added.
#pragma once

#include "dialogs/live_preview.h"
#include "engine/image_process.h"
#include "win/dialog.h"

#include <optional>

namespace kelvane {

/// A slider and a field for the amount, which follow each other, with a live preview. The preview
/// shows the noise on the reduced picture; the picture's own will be finer.
class frmNoise : public win::Dialog {
  public:
    explicit frmNoise(const cDIBSection& picture);

    bool Cancelled = true;
    /// 0 to 100; valid unless `Cancelled`.
    int Percent = 20;
    /// Only some pixels, picked at random.
    bool Random = false;

  protected:
    void load() override;
    bool confirm() override;
    void on_command(int control, int notification) override;
    INT_PTR on_message(UINT message, WPARAM w, LPARAM l) override;

  private:
    std::optional<int> amount() const;
    void follow_amount();

    LivePreview preview_;
    cImageProcessDIB engine_;
};

} // namespace kelvane
