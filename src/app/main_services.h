// What the main window does for the commands.
#pragma once

#include "app/busy.h"
#include "app/document_services.h"

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace kelvane {

class cImageProcessDIB;
class ConverterOpening;

class MainServices : public DocumentServices {
  public:
    /// The open documents in the order in which they were made.
    virtual const std::vector<std::unique_ptr<frmImage>>& forms() const = 0;
    /// Makes a document and calls `fill`, which gives it a picture and shows its window. The
    /// document is deleted again when `fill` answers false; that answer is returned.
    virtual bool new_form(const std::function<bool(frmImage&)>& fill) = 0;

    /// While the result lives, commands are refused and the wait cursor is shown.
    virtual Busy busy() = 0;
    /// Dispatches waiting messages except for keys and mouse, which are dropped: they could start
    /// a second operation, or a modal loop (a menu, a window being moved) inside the running one.
    /// False when Esc was among them or the program is to end.
    virtual bool let_windows_paint() = 0;

    /// Asks for a file to open. The dialog starts in the folder of the last opened file.
    virtual std::optional<std::wstring> ask_open_file(win::FileQuestion question) = 0;
    /// The same for any number of files; none when cancelled.
    virtual std::vector<std::wstring> ask_open_files(win::FileQuestion question) = 0;
    /// Opens a picture file in a new document and makes it the active one; failures are shown.
    virtual void open_file(const std::wstring& file) = 0;
    /// Opens a document or a web page with the program that the user has for it; failures are
    /// shown.
    virtual void open_in_shell(const std::wstring& file) = 0;
    /// Shows a page of the help, see `Help::show`; failures are shown.
    virtual void show_help(int page) = 0;
    /// Shows `text` behind the report that an operation is complete, as long as that is shown. It
    /// is asked again when the language changes.
    virtual void add_to_completion(std::function<std::wstring()> text) = 0;
    /// Sets every caption of the main window and its documents in the program's language.
    virtual void loadLanguage() = 0;

    /// Carries the kernel that was last typed into the custom filter dialog.
    virtual cImageProcessDIB& custom_filter() = 0;
    virtual ConverterOpening& converter() = 0;
};

} // namespace kelvane
