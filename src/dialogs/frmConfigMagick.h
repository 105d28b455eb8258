// frmConfigMagick: where the converter's two programs are.
#pragma once

#include "convert/get_cmd_output.h"
#include "dialogs/form.h"
#include "dialogs/open_in_shell.h"
#include "settings/settings_file.h"

#include <functional>
#include <optional>
#include <string>

namespace kelvane {

/// OK accepts only existing programs and stores both paths. When one of them exists, the dialog
/// proposes the other: the program of the usual name in the same folder, or magick.exe, which does
/// the work of both.
class frmConfigMagick : public Form {
  public:
    /// `open` opens the two pages for downloads.
    frmConfigMagick(const SettingsFile& settings, OpenInShell open);

    /// Whether an existing program is part of ImageMagick; called by OK. It may dispatch messages
    /// while `keep_waiting` answers true. Nothing when the user stopped it: the dialog then stays
    /// open. Without this function every existing file is accepted.
    std::function<std::optional<bool>(const std::wstring& program, const KeepWaiting& keep_waiting)>
        IsImageMagick;

  protected:
    void load() override;
    bool confirm() override;
    void on_command(int control, int notification) override;

  private:
    struct Program;
    static const Program kPrograms[2];

    std::wstring path(const Program& program) const;
    void propose_other(const Program& found) const;
    void browse(const Program& program);
    std::optional<std::wstring> wrong_with(const Program& program) const;

    const SettingsFile& settings_;
    OpenInShell open_;
};

} // namespace kelvane
