// Base of the program's forms: what all of them need beside `win::Dialog`.
#pragma once

#include "texts/string_table.h"
#include "win/dialog.h"

#include <span>
#include <string>

namespace kelvane {

class cDIBSection;

/// A control and its text in the string table.
struct Caption {
    int control;
    int text;
};

/// A dialog whose title and captions come from the string table.
class Form : public win::Dialog {
  protected:
    /// `title`: number of a text. `captions` is a constant of the derived form's source.
    Form(int template_id, int title, std::span<const Caption> captions)
        : Dialog(template_id), title_(title), captions_(captions) {}

    /// Sets title and captions. A form that overrides this function calls it first.
    void load() override { loadResources(); }
    /// Sets title and captions in the program's language.
    void loadResources() const;

    /// Draws an owner-drawn control.
    virtual void draw(const DRAWITEMSTRUCT& /*box*/) {}
    /// A form that overrides this function calls it for messages that it does not handle.
    INT_PTR on_message(UINT message, WPARAM w, LPARAM l) override;

    /// Makes the inside of a preview box `kPreviewEdge` pixels wide and high, times the zoom of
    /// pictures on this screen.
    void fit_preview(int box) const;
    /// Draws a picture in its preview box at that zoom.
    void draw_preview(const DRAWITEMSTRUCT& box, const cDIBSection& picture) const;
    /// Makes the dialog as high as what it holds: moves OK and Cancel to below the lowest of its
    /// other controls, shown or not, and the lower border with them.
    void fit_height() const;
    /// Shows one of the system's icons (IDI_WARNING ...) in a static control of style SS_ICON.
    void show_icon(int control, const wchar_t* icon) const;

    /// Says in a message box under the form's title why a field's content is not accepted, then
    /// gives the field the focus and selects its text. Returns false, the answer of `confirm`.
    bool refuse(int field, const std::wstring& reason, UINT icon = MB_ICONEXCLAMATION) const;

  private:
    int title_;
    std::span<const Caption> captions_;
};

} // namespace kelvane
