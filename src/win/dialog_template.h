// Dialog templates in the font of the system's messages.
#pragma once

#include <windows.h>

#include <vector>

namespace kelvane::win {

/// A copy of a dialog template (DIALOGEX with a font) from the program's resources, with the
/// system's message font in place of its own. Dialog units are those of that font, so that the
/// dialog is as large as its texts need. Throws `PlatformError` when there is no such template.
class DialogTemplate {
  public:
    explicit DialogTemplate(int id);
    /// What CreateDialogIndirectParam and DialogBoxIndirectParam take.
    const DLGTEMPLATE* get() const { return reinterpret_cast<const DLGTEMPLATE*>(words_.data()); }

  private:
    std::vector<WORD> words_;
};

} // namespace kelvane::win
