// What the main window does for the windows of its documents.
#pragma once

#include "settings/settings_file.h"
#include "win/file_dialogs.h"

#include <windows.h>

#include <optional>
#include <string>

namespace kelvane {

class frmImage;

/// The product's name: title of the save question and of messages that are no errors.
inline constexpr const wchar_t* kApplicationTitle = L"Kelvane";

class DocumentServices {
  public:
    virtual ~DocumentServices() = default;

    /// The main window, and the MDI client window in it.
    virtual HWND frame() const = 0;
    virtual HWND mdi_client() const = 0;
    virtual const SettingsFile& settings() const = 0;

    /// Writes the status line's fields: message, title of the document, size of its picture. "#"
    /// leaves a field as it is.
    virtual void SetStatus(const std::wstring& message, const std::wstring& title,
                           const std::wstring& size) = 0;
    /// Writes the status line's last field, the zoom of the document; empty for nothing.
    virtual void SetZoom(const std::wstring& zoom) = 0;
    /// Sets the end of the progress bar's range and puts the bar to 0.
    virtual void ProgressMax(long maximum) = 0;
    /// Moves the progress bar and dispatches the paint messages that wait, at most 20 times a
    /// second; calls in between do nothing.
    virtual void ProgressValue(long position) = 0;
    virtual void ShowProgress(bool show) = 0;

    /// Number for the next document without a file: 1, 2, 3 ...
    virtual int NewImageIndex() = 0;
    /// Puts a file on top of the recent ones; `flag`: the converter opened it.
    virtual void AddMRUFile(const std::wstring& file, bool flag) = 0;

    /// Asks for a file to write. The dialog starts in the folder of the last written file; in the
    /// question's when none is remembered.
    virtual std::optional<std::wstring> ask_save_file(win::FileQuestion question) = 0;
    /// Shows the text with the number `id`, followed by a cause, with the exclamation icon.
    virtual void show_error(int id, const std::wstring& cause) = 0;
    /// True while an operation runs or a dialog is open; the user is told that the command is
    /// refused.
    virtual bool refuse_while_busy() = 0;

    /// Shows in the message field that an operation on the form's picture is complete and how long
    /// it took, until there is another message or another form is active.
    virtual void operation_complete(const frmImage& form, const std::wstring& time) = 0;
    /// The form is no longer the active one.
    virtual void form_deactivated(const frmImage& form) = 0;
    /// The form's window is destroyed. Deletes the form.
    virtual void form_closed(frmImage& form) = 0;
};

} // namespace kelvane
