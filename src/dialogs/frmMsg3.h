// frmMsg3: the warning after an export whose coordinates left EAGLE's range.
#pragma once

#include "dialogs/form.h"

namespace kelvane {

class frmMsg3 : public Form {
  public:
    frmMsg3();

    /// Whether the script just written is to be deleted. Only the button says so: the close box
    /// keeps the script whatever is ticked.
    bool DeleteScript = false;

  protected:
    void load() override;
    bool confirm() override;
};

} // namespace kelvane
