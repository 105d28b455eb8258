// What mfrmMain does for its documents and for the commands.
#include "app/main_window.h"
#include "settings/catalogue.h"
#include "settings/folders.h"
#include "texts/error_text.h"
#include "texts/shell_errors.h"
#include "texts/string_table.h"
#include "win/message_box.h"
#include "win/shell.h"

#include "ids.h"

#include <algorithm>
#include <utility>

namespace kelvane {
namespace {

constexpr DWORD kPaintPause = 50; // milliseconds between two repaints in an operation

bool is_input(UINT message) {
    return (message >= WM_KEYFIRST && message <= WM_KEYLAST) ||
           (message >= WM_MOUSEFIRST && message <= WM_MOUSELAST) ||
           (message >= WM_NCMOUSEMOVE && message <= WM_NCXBUTTONDBLCLK);
}

void error_box(HWND owner, const std::wstring& text) {
    win::message_box(owner, text, LoadString(IDS_ERROR_TITLE), MB_OK | MB_ICONEXCLAMATION);
}

} // namespace

// Status line and progress.

void mfrmMain::SetStatus(const std::wstring& message, const std::wstring& title,
                         const std::wstring& size) {
    if (message != L"#") completion_.reset();
    status_bar_.SetStatus(message, title, size);
}

void mfrmMain::operation_complete(const frmImage& form, const std::wstring& time) {
    completion_ = Completion{&form, time, {}};
    status_bar_.SetStatus(completion_text(), L"#", L"#");
}

void mfrmMain::add_to_completion(std::function<std::wstring()> text) {
    if (!completion_) return;
    completion_->more = std::move(text);
    status_bar_.SetStatus(completion_text(), L"#", L"#");
}

std::wstring mfrmMain::completion_text() const {
    if (!completion_) return {};
    const std::wstring text = LoadString(IDS_IMAGE_COMPLETE) + completion_->time;
    return completion_->more ? text + L"  " + completion_->more() : text;
}

// Repainting for every row would take longer than most operations.
void mfrmMain::ProgressValue(long position) {
    if (GetTickCount() - last_paint_ < kPaintPause) return;
    status_bar_.ProgressValue(position);
    let_windows_paint();
    last_paint_ = GetTickCount();
}

bool mfrmMain::let_windows_paint() {
    bool go_on = true;
    MSG message;
    while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
        if (message.message == WM_QUIT) {
            PostQuitMessage(static_cast<int>(message.wParam));
            return false;
        }
        if (message.message == WM_KEYDOWN && message.wParam == VK_ESCAPE) go_on = false;
        if (!is_input(message.message)) DispatchMessageW(&message);
    }
    return go_on;
}

// Besides operations, modal dialogs refuse commands: they disable the window.
bool mfrmMain::refuse_while_busy() {
    if (!busy_ && IsWindowEnabled(window())) return false;
    MessageBeep(MB_ICONEXCLAMATION);
    if (busy_) SetStatus(LoadString(IDS_IMAGE_BUSY), L"#", L"#");
    return true;
}

// Documents.

bool mfrmMain::new_form(const std::function<bool(frmImage&)>& fill) {
    DocumentServices& services = *this;
    auto form = std::make_unique<frmImage>(services);
    if (!fill(*form)) return false;
    forms_.push_back(std::move(form));
    show_start();
    return true;
}

void mfrmMain::open_file(const std::wstring& file) {
    try {
        new_form([&](frmImage& form) { return form.OpenFile(file, false); });
    } catch (const std::exception& error) {
        show_failure(error);
    }
}

void mfrmMain::form_deactivated(const frmImage& form) {
    if (completion_ && completion_->form == &form) SetStatus(L"", L"#", L"#");
}

void mfrmMain::form_closed(frmImage& form) {
    form_deactivated(form);
    std::erase_if(forms_, [&](const auto& each) { return each.get() == &form; });
    if (!forms_.empty()) return;
    SetStatus(L"#", L"", L"");
    SetZoom({});
    show_start();
}

void mfrmMain::AddMRUFile(const std::wstring& file, bool flag) {
    recent_.AddFile(file, flag);
    menu_->show_recent(recent_);
    start_.set_texts(recent_);
}

// Questions, messages, help.

// Stores the folder of a chosen file for the next question.
void mfrmMain::remember_folder(const std::optional<std::wstring>& file, std::wstring& folder,
                               const PathSetting& setting) {
    if (!file) return;
    folder = ExistingFolderOf(*file);
    write_setting(settings_, setting, folder);
}

std::optional<std::wstring> mfrmMain::ask_open_file(win::FileQuestion question) {
    question.folder = open_folder_;
    auto file = win::ask_open_file(window(), question);
    remember_folder(file, open_folder_, settings::kOpenFolder);
    return file;
}

std::vector<std::wstring> mfrmMain::ask_open_files(win::FileQuestion question) {
    question.folder = open_folder_;
    auto files = win::ask_open_files(window(), question);
    if (!files.empty()) remember_folder(files.front(), open_folder_, settings::kOpenFolder);
    return files;
}

std::optional<std::wstring> mfrmMain::ask_save_file(win::FileQuestion question) {
    if (!save_folder_.empty()) question.folder = save_folder_;
    auto file = win::ask_save_file(window(), question);
    remember_folder(file, save_folder_, settings::kSaveFolder);
    return file;
}

void mfrmMain::show_error(int id, const std::wstring& cause) {
    error_box(window(), LoadString(id) + cause);
}

// The modal dialog that is open, if there is one; never the splash window, which would close a
// message box that it owns when it is closed.
HWND mfrmMain::message_owner() const {
    return IsWindowEnabled(window()) ? window() : GetLastActivePopup(window());
}

void mfrmMain::show_failure(const std::exception& error) {
    error_box(message_owner(), error_text(error));
}

void mfrmMain::ShellEx(const std::wstring& file, const std::wstring& operation,
                       const std::wstring& parameters, const std::wstring& folder, int show) {
    const HWND owner = message_owner();
    const int answer = win::shell_execute(owner, {file, operation, parameters, folder, show});
    if (const int text = shell_error_text(answer); text != 0) error_box(owner, LoadString(text));
}

// Also called by dialogs, through which no exception may pass.
void mfrmMain::show_help(int page) {
    try {
        help_.show(window(), page);
    } catch (const std::exception& error) {
        show_failure(error);
    }
}

void mfrmMain::loadLanguage() {
    const std::wstring title = LoadString(IDS_TITLE) + KELVANE_VERSION;
    SetWindowTextW(window(), title.c_str());
    menu_->loadLanguage();
    for (const auto& form : forms_)
        form->loadLanguage();
    start_.set_texts(recent_);
    DrawMenuBar(window());
    status_bar_.SetStatus(completion_text(), L"#", L"#");
}

} // namespace kelvane
