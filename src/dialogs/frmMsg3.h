// frmMsg3: the warning after an export whose coordinates left EAGLE's range.
#pragma once

#include "dialogs/form.h"

namespace kelvane {

class frmMsg3 : public Form {
  public:
    frmMsg3();

    /// The script just written is to be deleted. Set by the button only; the close box leaves it
    /// false.
    bool DeleteScript = false;

  protected:
    void load() override;
    bool confirm() override;
};

} // namespace kelvane
