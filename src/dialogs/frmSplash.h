// frmSplash: shown while the program starts.
#pragma once

#include "dialogs/form.h"
#include "dialogs/program_face.h"

#include <string>

namespace kelvane {

/// Shown with `show_modeless` before its owner, the main window, is shown: it is then in the middle
/// of the screen, and the main window appears behind it. Closes after `kStay` or when clicked.
class frmSplash : public Form {
  public:
    /// Time until it closes, in milliseconds.
    static constexpr unsigned kStay = 1500;

    /// `version` as shown ("1.2.3").
    explicit frmSplash(std::wstring version);
    ~frmSplash() override { close(); } // before `face_`, which it shows, is destroyed

  protected:
    void load() override;
    void density_changed() override;
    INT_PTR on_message(UINT message, WPARAM w, LPARAM l) override;

  private:
    std::wstring version_;
    ProgramFace face_;
};

} // namespace kelvane
