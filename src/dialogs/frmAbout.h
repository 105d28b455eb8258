// frmAbout: name, version and purpose of the program.
#pragma once

#include "dialogs/form.h"
#include "dialogs/program_face.h"
#include "settings/folders.h"

#include <string>

namespace kelvane {

/// Shows the program's name, version and purpose and starts the system's own report on itself.
class frmAbout : public Form {
  public:
    /// `version` as shown ("1.2.3"). `system_info`: the program that reports on the system.
    explicit frmAbout(std::wstring version,
                      std::wstring system_info = system_folder() + L"\\msinfo32.exe");

  protected:
    void load() override;
    void density_changed() override;
    void on_command(int control, int notification) override;

  private:
    std::wstring version_;
    std::wstring system_info_;
    ProgramFace face_;
};

} // namespace kelvane
