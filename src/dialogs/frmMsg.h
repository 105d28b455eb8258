// frmMsg: why a file could not be opened by the converter.
#pragma once

#include "dialogs/form.h"
#include "dialogs/open_in_shell.h"

#include <string>

namespace kelvane {

/// Its second button opens "formats.html", the page about formats beside the program.
class frmMsg : public Form {
  public:
    /// `report`: output of the converter, of any length and with any line ends; may be empty.
    frmMsg(const std::wstring& message, const std::wstring& report, OpenInShell open);

  protected:
    void load() override;
    void on_command(int control, int notification) override;

  private:
    std::wstring text_;
    OpenInShell open_;
};

} // namespace kelvane
