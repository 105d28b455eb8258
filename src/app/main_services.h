// What the main window does for its documents.
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

class MainServices {
  public:
    virtual ~MainServices() = default;

    virtual HWND frame() const = 0;
    virtual const SettingsFile& settings() const = 0;

    /// Writes the status line's fields: message, title of the document, size of its picture. "#"
    /// leaves a field as it is.
    virtual void SetStatus(const std::wstring& message, const std::wstring& title,
                           const std::wstring& size) = 0;
    /// The bar begins anew.
    virtual void ProgressMax(long maximum) = 0;
    /// A few times a second: moves the bar and lets the windows paint themselves.
    virtual void ProgressValue(long position) = 0;
    virtual void ShowProgress(bool show) = 0;

    /// 1 for the first picture without file, 2 for the next.
    virtual int NewImageIndex() = 0;
    /// Puts a file on top of the recent ones; `flag`: the converter opened it.
    virtual void AddMRUFile(const std::wstring& file, bool flag) = 0;

    /// Asks for a file to write, starting where the last one was written, and remembers its folder.
    virtual std::optional<std::wstring> ask_save_file(win::FileQuestion question) = 0;
    /// Shows the text with the number `id`, followed by a cause, with the exclamation icon.
    virtual void show_error(int id, const std::wstring& cause) = 0;
    /// True while an operation runs; tells the user that nothing else can be done meanwhile.
    virtual bool refuse_while_busy() = 0;

    /// Tells in the message field that an operation on the form's picture is complete and what time
    /// it took, until there is another message or another picture in front.
    virtual void operation_complete(const frmImage& form, const std::wstring& time) = 0;

    virtual void form_activated(frmImage& form) = 0;
    /// Another form is in front now.
    virtual void form_deactivated(const frmImage& form) = 0;
    /// The form's window is gone and the form may be deleted.
    virtual void form_closed(frmImage& form) = 0;
};

} // namespace kelvane
