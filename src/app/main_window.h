// mfrmMain, the main window.
#pragma once

#include "app/converter_opening.h"
#include "app/help.h"
#include "app/image_window.h"
#include "app/main_menu.h"
#include "app/main_services.h"
#include "app/mru_file_list.h"
#include "app/start_surface.h"
#include "app/status_bar.h"
#include "settings/catalogue.h"
#include "win/window.h"

#include <windows.h>

#include <shellapi.h>

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace kelvane {

struct MenuEntry;

/// The MDI frame: menu, status line, recent files and the documents, which it owns, and the flag
/// that an operation is running. Commands are functions, see the command table, which reach it
/// through `MainServices`. One per process: the language is the process's own.
class mfrmMain : public win::Window, private MainServices {
  public:
    /// Takes language, folders and recent files from `settings` and makes the window, not shown
    /// yet. Throws `PlatformError`, and `TextError` when the settings name a language that does not
    /// exist; the program's language is then English.
    explicit mfrmMain(SettingsFile settings);
    ~mfrmMain() override;

    /// Opens a picture file in a new document and makes it the active one; failures are shown.
    void open_file(const std::wstring& file) override;
    /// Shows the window as ShowWindow does with `how`, but maximised if it was when the program
    /// ended.
    void show(int how);
    /// Handles messages until the window is closed; the process's exit code.
    int run();
    /// Opens a document or a web page with the program that the user has for it, and shows why that
    /// failed. The arguments are those of `win::ShellCommand`.
    void ShellEx(const std::wstring& file, const std::wstring& operation = L"open",
                 const std::wstring& parameters = {}, const std::wstring& folder = {},
                 int show = SW_SHOWNORMAL);
    /// Warns when the screen has too few bits per pixel.
    void check_colour_depth(int bits_per_pixel);

    /// The open documents in the order in which they were made.
    const std::vector<std::unique_ptr<frmImage>>& forms() const override { return forms_; }
    /// The active document; null without one.
    frmImage* active_form() const;
    const StatusBar& status_bar() const { return status_bar_; }
    const cMRUFileList& recent_files() const { return recent_; }

  protected:
    LRESULT on_message(UINT message, WPARAM w, LPARAM l) override;
    LRESULT default_procedure(UINT message, WPARAM w, LPARAM l) override;

  private:
    // DocumentServices
    HWND frame() const override { return window(); }
    HWND mdi_client() const override { return mdi_client_; }
    const SettingsFile& settings() const override { return settings_; }
    void SetStatus(const std::wstring& message, const std::wstring& title,
                   const std::wstring& size) override;
    void SetZoom(const std::wstring& zoom) override { status_bar_.SetZoom(zoom); }
    void ProgressMax(long maximum) override { status_bar_.ProgressMax(maximum); }
    void ProgressValue(long position) override;
    void ShowProgress(bool show) override { status_bar_.ShowProgress(show); }
    int NewImageIndex() override { return ++image_index_; }
    void AddMRUFile(const std::wstring& file, bool flag) override;
    std::optional<std::wstring> ask_save_file(win::FileQuestion question) override;
    void show_error(int id, const std::wstring& cause) override;
    bool refuse_while_busy() override;
    void operation_complete(const frmImage& form, const std::wstring& time) override;
    void form_deactivated(const frmImage& form) override;
    void form_closed(frmImage& form) override;

    // MainServices
    bool new_form(const std::function<bool(frmImage&)>& fill) override;
    Busy busy() override { return Busy(busy_); }
    bool let_windows_paint() override;
    std::optional<std::wstring> ask_open_file(win::FileQuestion question) override;
    std::vector<std::wstring> ask_open_files(win::FileQuestion question) override;
    void open_in_shell(const std::wstring& file) override { ShellEx(file); }
    void show_help(int page) override;
    void add_to_completion(std::function<std::wstring()> text) override;
    void loadLanguage() override;
    cImageProcessDIB& custom_filter() override { return custom_filter_; }
    ConverterOpening& converter() override { return converter_; }

    // The window.
    void create();
    bool create_children();
    void layout();
    void show_start();
    bool translate(MSG& message) const;
    void prepare_menu();
    void answer_help_key(const HELPINFO& request);
    void remember_folder(const std::optional<std::wstring>& file, std::wstring& folder,
                         const PathSetting& setting);
    std::wstring completion_text() const;
    HWND message_owner() const;
    void show_failure(const std::exception& error);

    // Commands and documents.
    bool command(unsigned id);
    void perform(const MenuEntry& entry);
    frmImage* GetActiveform();
    void open_recent(int i);
    void open_dropped(HDROP drop);
    bool QueryUnload();
    /// Writes recent files and the window's place to the settings file.
    void save_state();

    struct Completion {
        const frmImage* form;
        std::wstring time;
        std::function<std::wstring()> more; // may be empty
    };

    SettingsFile settings_;
    std::wstring open_folder_;
    std::wstring save_folder_;
    cMRUFileList recent_;
    std::unique_ptr<MainMenu> menu_;
    win::AcceleratorTable shortcuts_;
    StatusBar status_bar_;
    StartSurface start_;
    bool start_maximised_ = false;
    ConverterOpening converter_{*this, status_bar_};
    Help help_;
    HWND mdi_client_ = nullptr;
    std::vector<std::unique_ptr<frmImage>> forms_;
    std::optional<Completion> completion_; // set while the message field shows it
    int image_index_ = 0;
    cImageProcessDIB custom_filter_;
    bool busy_ = false;    // an operation is running
    DWORD last_paint_ = 0; // tick count
};

} // namespace kelvane
