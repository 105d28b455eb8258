// mfrmMain, the main window.
#pragma once

#include "app/help.h"
#include "app/image_window.h"
#include "app/main_menu.h"
#include "app/main_services.h"
#include "app/mru_file_list.h"
#include "app/start_surface.h"
#include "app/status_bar.h"
#include "convert/converter.h"
#include "win/window.h"

#include <windows.h>

#include <shellapi.h>

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace kelvane {

class Conversion;
struct MenuEntry;

/// The MDI frame: menu, status line, recent files, and every command, which it hands to the active
/// document. It owns the documents. One per process: the language is the process's own.
class mfrmMain : public win::Window, private MainServices {
  public:
    /// Takes language, folders and recent files from `settings` and makes the window, not shown
    /// yet. Throws `PlatformError`, and `TextError` when the settings name a language that does not
    /// exist; the program's language is then English.
    explicit mfrmMain(SettingsFile settings);
    ~mfrmMain() override;

    /// Opens a file in a new document and makes it the active one; failures are shown.
    void open_file(const std::wstring& file);
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
    const std::vector<std::unique_ptr<frmImage>>& forms() const { return forms_; }
    /// The active document; null without one.
    frmImage* active_form() const;
    const StatusBar& status_bar() const { return status_bar_; }
    const cMRUFileList& recent_files() const { return recent_; }

  protected:
    LRESULT on_message(UINT message, WPARAM w, LPARAM l) override;
    LRESULT default_procedure(UINT message, WPARAM w, LPARAM l) override;

  private:
    friend struct CommandActions;

    // Services for the documents.
    HWND frame() const override { return window(); }
    const SettingsFile& settings() const override { return settings_; }
    void SetStatus(const std::wstring& message, const std::wstring& title,
                   const std::wstring& size) override;
    void ProgressMax(long maximum) override { status_bar_.ProgressMax(maximum); }
    void ProgressValue(long position) override;
    void ShowProgress(bool show) override { status_bar_.ShowProgress(show); }
    int NewImageIndex() override { return ++image_index_; }
    void AddMRUFile(const std::wstring& file, bool flag) override;
    std::optional<std::wstring> ask_save_file(win::FileQuestion question) override;
    void show_error(int id, const std::wstring& cause) override;
    bool refuse_while_busy() override;
    void operation_complete(const frmImage& form, const std::wstring& time) override;
    void form_activated(frmImage& form) override;
    void form_deactivated(const frmImage& form) override;
    void form_closed(frmImage& form) override;

    // The window.
    void create();
    bool create_children();
    void layout();
    void loadLanguage();
    void show_start();
    bool translate(MSG& message) const;
    bool let_windows_paint();
    HWND message_owner() const;
    void show_failure(const std::exception& error);
    void show_help(int page);
    void answer_help_key(const HELPINFO& request);

    // Commands.
    void command(unsigned id);
    void perform(const MenuEntry& entry);
    frmImage* GetActiveform();
    void process(frmImage& form, const std::function<void(ImageDocument&)>& operation);
    bool operate(frmImage& form, const std::function<void(ImageDocument&)>& operation);
    bool new_form(const std::function<bool(frmImage&)>& fill);
    void open_recent(int i);
    void open_dropped(HDROP drop);
    void open_temporary(const std::wstring& file);
    bool QueryUnload();
    /// Writes recent files and the window's place to the settings file.
    void save_state();

    // Opening by the converter.
    void OpenByConverter(const std::wstring& file);
    void report_failures(const std::function<void()>& opening);
    bool require_converter();
    bool detect_converter();
    std::optional<std::vector<PictureFormat>> converter_formats();
    void warn_of_several_images(const std::wstring& file,
                                const std::vector<PictureFormat>& formats);
    void convert_and_open(const std::wstring& file);
    std::unique_ptr<Conversion> converted(const std::wstring& file);
    void open_image(const Conversion& conversion, const std::wstring& name);
    KeepWaiting until_escape();

    void arrange(UINT message, WPARAM how);

    void open();
    void open_by_imagemagick();
    void save(frmImage& form);
    void export_script(frmImage& form);
    void write_script(frmImage& form, const std::wstring& file, const ExportOptions& options);
    void select_source();
    void acquire();
    void close_form(frmImage& form);
    void exit();
    void undo(frmImage& form);
    void copy(frmImage& form);
    void paste();
    void add_noise(frmImage& form);
    void custom_filter(frmImage& form);
    void resample(frmImage& form);
    void combine(frmImage& form);
    void crop_to_selection(frmImage& form);
    void crop_to_drawing(frmImage& form);
    void colourise(frmImage& form);
    void apply_palette(frmImage& form);
    void reduce(frmImage& form);
    void tile_horizontally();
    void tile_vertically();
    void cascade();
    void arrange_icons();
    void help();
    void about();
    void language();

    struct Completion {
        const frmImage* form;
        std::wstring time;
    };

    SettingsFile settings_;
    std::wstring open_folder_;
    std::wstring save_folder_;
    cMRUFileList recent_;
    Converter converter_{settings_};
    std::unique_ptr<MainMenu> menu_;
    win::AcceleratorTable shortcuts_;
    StatusBar status_bar_;
    StartSurface start_;
    bool start_maximised_ = false;
    Help help_;
    HWND mdi_client_ = nullptr;
    std::vector<std::unique_ptr<frmImage>> forms_;
    std::optional<Completion> completion_; // what the message field tells, if it is that
    int image_index_ = 0;
    cImageProcessDIB custom_filter_; // only carries the kernel typed in last
    bool busy_ = false;              // an operation runs
    DWORD last_paint_ = 0;           // tick count
};

} // namespace kelvane
