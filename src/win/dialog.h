// Base of every dialog: one form is one class derived from it.
#pragma once

#include "win/message_box.h"

#include <windows.h>

#include <exception>
#include <functional>
#include <string>

namespace kelvane::win {

/// Shows the help on the dialog with this template.
using DialogHelp = std::function<void(int template_id)>;
/// What F1 does in every dialog of the program from now on; nothing when empty.
void set_dialog_help(DialogHelp help);

/// A dialog built from the program's resources. A form overrides the hooks and keeps its results
/// as members that are read after `show_modal`. The object is bound to its window from
/// WM_INITDIALOG to WM_NCDESTROY and can be shown again afterwards.
///
/// An exception that leaves a hook closes a modal dialog and is rethrown by `show_modal`; it never
/// passes through the system's own calls.
///
/// `confirm` may show message boxes or dispatch messages while it waits. Until it returns, no
/// `on_command` is called and OK does nothing; Cancel, the close box and `close` take effect when
/// it has returned: the dialog is then cancelled, whatever `confirm` answers.
class Dialog {
  public:
    explicit Dialog(int template_id) : template_id_(template_id) {}
    virtual ~Dialog();
    Dialog(const Dialog&) = delete;
    Dialog& operator=(const Dialog&) = delete;

    /// Shows the dialog in the middle of its owner and returns when it has been closed: true by
    /// IDOK and `confirm`, false by IDCANCEL, Esc or the close box. Throws `PlatformError` when
    /// the dialog cannot be made.
    bool show_modal(HWND owner);
    /// Shows the dialog and returns at once; `close` or the destructor closes it.
    void show_modeless(HWND owner);
    void close();

    /// True from `show_modal` on until it returns true: the dialog's results are not valid.
    bool Cancelled = true;

    /// The dialog's window; null while it is not shown.
    HWND window() const { return window_; }

  protected:
    /// Fills the controls and sets every caption. Until it returns no `on_command` arrives. The
    /// focus then goes to the first control in tab order.
    virtual void load() {}
    /// IDOK: reads and checks the controls, writes the settings. False keeps the dialog open. An
    /// override that dispatches messages has to check `cancel_requested` before it writes.
    virtual bool confirm() { return true; }
    /// A notification by WM_COMMAND from any other control: its id and the notification code.
    virtual void on_command(int /*control*/, int /*notification*/) {}
    /// The dialog has moved to a monitor of another density and the system has placed the controls
    /// again, by their sizes in the template: what `load` sized in pixels has to be sized again.
    virtual void density_changed() {}
    /// Every message but WM_INITDIALOG and WM_COMMAND, from the start of `load` on. Result as of a
    /// dialog procedure: FALSE when the message was not handled.
    virtual INT_PTR on_message(UINT /*message*/, WPARAM /*w*/, LPARAM /*l*/) { return FALSE; }

    HWND control(int id) const { return GetDlgItem(window_, id); }
    void set_text(int id, const std::wstring& text) const;
    std::wstring text(int id) const;
    bool checked(int id) const { return IsDlgButtonChecked(window_, id) == BST_CHECKED; }
    void check(int id, bool on) const;
    /// Of the option buttons `first` to `last` checks only `id`.
    void check_radio(int first, int last, int id) const;
    void enable(int id, bool on) const { EnableWindow(control(id), on); }
    void set_title(const std::wstring& title) const { SetWindowTextW(window_, title.c_str()); }
    /// Closes the dialog from within; `show_modal` returns `confirmed`.
    void end(bool confirmed);
    /// The user has cancelled the dialog while `confirm` runs.
    bool cancel_requested() const { return cancel_requested_; }

  private:
    static INT_PTR CALLBACK procedure(HWND window, UINT message, WPARAM w, LPARAM l);
    INT_PTR dispatch(UINT message, WPARAM w, LPARAM l);
    void bind(HWND window);
    void unbind();
    void command(int control, int notification);

    int template_id_;
    HWND window_ = nullptr;
    bool loaded_ = false;
    bool modal_ = false;
    bool confirming_ = false; // `confirm` runs
    bool cancel_requested_ = false;
    std::exception_ptr failure_;
};

/// The whole text of a window or control.
std::wstring window_text(HWND window);

/// Moves a window to the middle of its owner, or of the screen without one, and wholly onto the
/// owner's monitor.
void centre_on_owner(HWND window);

} // namespace kelvane::win
