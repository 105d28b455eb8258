#include "app/main_window.h"

#include "app/command_table.h"
#include "app/window_place.h"
#include "settings/catalogue.h"
#include "settings/folders.h"
#include "texts/error_text.h"
#include "texts/shell_errors.h"
#include "texts/string_table.h"
#include "win/dialog.h"
#include "win/message_box.h"
#include "win/platform_error.h"
#include "win/shell.h"

#include "ids.h"

#include <commctrl.h>

#include <algorithm>

namespace kelvane {
namespace {

constexpr const wchar_t* kClassName = L"KelvaneMain";
constexpr const wchar_t* kHelpFile = L"\\EAGLE_Kelvane.chm";
constexpr DWORD kPaintPause = 50; // milliseconds between two repaints in an operation

// Not shared: the system would answer with the icon of any size that was loaded first.
win::Icon program_icon(int width_metric, int height_metric) {
    return win::Icon(static_cast<HICON>(
        LoadImageW(GetModuleHandleW(nullptr), MAKEINTRESOURCEW(IDI_KELVANE), IMAGE_ICON,
                   GetSystemMetrics(width_metric), GetSystemMetrics(height_metric), 0)));
}

// The settings file can be edited by hand, and without a language there are no texts.
void set_language(const SettingsFile& settings) {
    const int offset = read_setting(settings, settings::kLanguage);
    const bool exists = offset == kGermanOffset || offset == kEnglishOffset;
    set_language_offset(exists ? offset : kEnglishOffset);
    if (!exists)
        throw TextError(
            LoadString(IDS_NO_SUCH_LANGUAGE, {settings.file().wstring(), std::to_wstring(offset)}));
}

bool is_input(UINT message) {
    return (message >= WM_KEYFIRST && message <= WM_KEYLAST) ||
           (message >= WM_MOUSEFIRST && message <= WM_MOUSELAST) ||
           (message >= WM_NCMOUSEMOVE && message <= WM_NCXBUTTONDBLCLK);
}

} // namespace

mfrmMain::mfrmMain(SettingsFile settings)
    : settings_(std::move(settings)), help_(program_folder() + kHelpFile) {
    set_language(settings_);
    open_folder_ = read_setting(settings_, settings::kOpenFolder);
    save_folder_ = read_setting(settings_, settings::kSaveFolder);
    recent_.Load(settings_);
    win::set_dialog_help([this](int template_id) { show_help(template_id); });
    create();
}

mfrmMain::~mfrmMain() {
    win::set_dialog_help({});
    if (window() == nullptr) return;
    DestroyWindow(window()); // takes the documents along
    // Not closed by the user: the WM_QUIT that is posted now would at once end the message box
    // that says what has failed.
    MSG message;
    PeekMessageW(&message, nullptr, WM_QUIT, WM_QUIT, PM_REMOVE);
}

void mfrmMain::create() {
    const INITCOMMONCONTROLSEX classes{sizeof classes, ICC_BAR_CLASSES | ICC_PROGRESS_CLASS};
    InitCommonControlsEx(&classes);
    menu_ = std::make_unique<MainMenu>();
    shortcuts_ = win::AcceleratorTable(create_shortcuts());

    // As long as the window class, which is registered once.
    static const win::Icon large_icon = program_icon(SM_CXICON, SM_CYICON);
    static const win::Icon small_icon = program_icon(SM_CXSMICON, SM_CYSMICON);
    WNDCLASSEXW window_class{};
    window_class.lpszClassName = kClassName;
    window_class.hIcon = large_icon.get();
    window_class.hIconSm = small_icon.get();
    window_class.hCursor = LoadCursorW(nullptr, IDC_ARROW);
    register_class(window_class);
    expect_window();
    if (CreateWindowExW(WS_EX_ACCEPTFILES, kClassName, L"", WS_OVERLAPPEDWINDOW | WS_CLIPCHILDREN,
                        CW_USEDEFAULT, CW_USEDEFAULT, CW_USEDEFAULT, CW_USEDEFAULT, nullptr,
                        menu_->bar(), GetModuleHandleW(nullptr), nullptr) == nullptr)
        throw PlatformError(GetLastError());
    if (const auto place = remembered_place(settings_)) {
        put_window(window(), *place);
        start_maximised_ = place->maximised;
    }
    menu_->show_recent(recent_);
    loadLanguage();
    show_start();
}

void mfrmMain::show(int how) {
    const bool plain = how == SW_SHOWNORMAL || how == SW_SHOWDEFAULT || how == SW_SHOW;
    ShowWindow(window(), start_maximised_ && plain ? SW_SHOWMAXIMIZED : how);
}

bool mfrmMain::create_children() {
    status_bar_.create(window());
    CLIENTCREATESTRUCT client{};
    client.hWindowMenu = menu_->window_menu();
    client.idFirstChild = kFirstChildId;
    mdi_client_ = CreateWindowExW(
        WS_EX_CLIENTEDGE, L"MDICLIENT", nullptr,
        WS_CHILD | WS_VISIBLE | WS_CLIPCHILDREN | WS_CLIPSIBLINGS | WS_HSCROLL | WS_VSCROLL, 0, 0,
        0, 0, window(), nullptr, GetModuleHandleW(nullptr), &client);
    return status_bar_.window() != nullptr && mdi_client_ != nullptr && start_.create(window());
}

void mfrmMain::loadLanguage() {
    const std::wstring title = LoadString(IDS_TITLE) + KELVANE_VERSION;
    SetWindowTextW(window(), title.c_str());
    menu_->loadLanguage();
    for (const auto& form : forms_)
        form->loadLanguage();
    start_.set_texts(recent_);
    DrawMenuBar(window());
    status_bar_.SetStatus(completion_ ? LoadString(IDS_IMAGE_COMPLETE) + completion_->time
                                      : std::wstring(),
                          L"#", L"#");
}

void mfrmMain::layout() {
    RECT area{};
    GetClientRect(window(), &area);
    const int below = status_bar_.layout();
    area.bottom = std::max<LONG>(area.bottom - below, 0);
    MoveWindow(mdi_client_, 0, 0, area.right, area.bottom, TRUE);
    start_.place(area);
}

// The surface covers the document area while there is no document.
void mfrmMain::show_start() {
    if (start_.shown() == forms_.empty()) return;
    start_.show(forms_.empty());
    const HWND focus = GetFocus();
    if (focus == nullptr || focus == window() || IsChild(window(), focus)) SetFocus(window());
}

LRESULT mfrmMain::default_procedure(UINT message, WPARAM w, LPARAM l) {
    return DefFrameProcW(window(), mdi_client_, message, w, l);
}

LRESULT mfrmMain::on_message(UINT message, WPARAM w, LPARAM l) {
    switch (message) {
    case WM_CREATE:
        return create_children() ? 0 : -1;
    case WM_SIZE:
        layout();
        return 0;
    case WM_DPICHANGED: {
        const auto& place = *reinterpret_cast<const RECT*>(l);
        SetWindowPos(window(), nullptr, place.left, place.top, place.right - place.left,
                     place.bottom - place.top, SWP_NOZORDER | SWP_NOACTIVATE);
        layout();
        return 0;
    }
    case WM_COMMAND:
        if (LOWORD(w) >= kFirstChildId) break; // MDI's own: the list of documents
        if (find_command(LOWORD(w)) == nullptr && LOWORD(w) != kCmdFirstLogo &&
            !(LOWORD(w) >= kCmdRecent1 && LOWORD(w) <= kCmdRecent4))
            break;
        command(LOWORD(w));
        return 0;
    case WM_SETFOCUS:
        if (!start_.shown()) break; // MDI hands it to the active document
        start_.take_focus();
        return 0;
    case WM_HELP:
        answer_help_key(*reinterpret_cast<const HELPINFO*>(l));
        return TRUE;
    case WM_INITMENUPOPUP: {
        const frmImage* form = active_form();
        menu_->enable(kCmdUndo, form != nullptr && form->document().undoEnable());
        menu_->enable(kCmdCropToSelection, form != nullptr && form->view().selection());
        menu_->escape_documents(mdi_client_);
        break;
    }
    case WM_DROPFILES:
        open_dropped(reinterpret_cast<HDROP>(w));
        return 0;
    case WM_SETCURSOR:
        if (!busy_) break;
        SetCursor(LoadCursorW(nullptr, IDC_WAIT));
        return TRUE;
    case WM_QUERYENDSESSION:
        return TRUE; // no questions while the system shuts down
    case WM_ENDSESSION:
        if (w) save_state();
        return 0;
    case WM_CLOSE:
        if (refuse_while_busy() || !QueryUnload()) return 0;
        DestroyWindow(window());
        return 0;
    case WM_DESTROY:
        PostQuitMessage(0);
        break;
    default:
        break;
    }
    return default_procedure(message, w, l);
}

int mfrmMain::run() {
    MSG message{};
    while (GetMessageW(&message, nullptr, 0, 0) > 0)
        if (!translate(message)) DispatchMessageW(&message);
    return static_cast<int>(message.wParam);
}

bool mfrmMain::translate(MSG& message) const {
    if (TranslateMDISysAccel(mdi_client_, &message) ||
        TranslateAcceleratorW(window(), shortcuts_.get(), &message) || start_.translate(message))
        return true;
    TranslateMessage(&message);
    return false;
}

// A bar that moves with every row would take longer than most operations.
void mfrmMain::ProgressValue(long position) {
    if (GetTickCount() - last_paint_ < kPaintPause) return;
    status_bar_.ProgressValue(position);
    let_windows_paint();
    last_paint_ = GetTickCount();
}

// Keys and clicks are dropped: they could start what has to wait, or a loop of their own (a menu,
// the moving of a window) in the midst of the operation. False when Esc was among them or the
// program is to end, for work that can be stopped.
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

// A dialog, which disables the window, is seen without a message.
bool mfrmMain::refuse_while_busy() {
    if (!busy_ && IsWindowEnabled(window())) return false;
    MessageBeep(MB_ICONEXCLAMATION);
    if (busy_) SetStatus(LoadString(IDS_IMAGE_BUSY), L"#", L"#");
    return true;
}

void mfrmMain::SetStatus(const std::wstring& message, const std::wstring& title,
                         const std::wstring& size) {
    if (message != L"#") completion_.reset();
    status_bar_.SetStatus(message, title, size);
}

void mfrmMain::operation_complete(const frmImage& form, const std::wstring& time) {
    completion_ = Completion{&form, time};
    status_bar_.SetStatus(LoadString(IDS_IMAGE_COMPLETE) + time, L"#", L"#");
}

void mfrmMain::AddMRUFile(const std::wstring& file, bool flag) {
    recent_.AddFile(file, flag);
    menu_->show_recent(recent_);
    start_.set_texts(recent_);
}

std::optional<std::wstring> mfrmMain::ask_save_file(win::FileQuestion question) {
    question.folder = save_folder_;
    auto file = win::ask_save_file(window(), question);
    if (file) {
        save_folder_ = ExistingFolderOf(*file);
        write_setting(settings_, settings::kSaveFolder, save_folder_);
    }
    return file;
}

void mfrmMain::show_error(int id, const std::wstring& cause) {
    win::message_box(window(), LoadString(id) + cause, LoadString(IDS_ERROR_TITLE),
                     MB_OK | MB_ICONEXCLAMATION);
}

// The modal dialog that is open, if there is one; never the splash window, which would take a
// message along when it goes.
HWND mfrmMain::message_owner() const {
    return IsWindowEnabled(window()) ? window() : GetLastActivePopup(window());
}

void mfrmMain::show_failure(const std::exception& error) {
    win::message_box(message_owner(), error_text(error), LoadString(IDS_ERROR_TITLE),
                     MB_OK | MB_ICONEXCLAMATION);
}

void mfrmMain::ShellEx(const std::wstring& file, const std::wstring& operation,
                       const std::wstring& parameters, const std::wstring& folder, int show) {
    const HWND owner = message_owner();
    const int answer = win::shell_execute(owner, {file, operation, parameters, folder, show});
    if (const int text = shell_error_text(answer); text != 0)
        win::message_box(owner, LoadString(text), LoadString(IDS_ERROR_TITLE),
                         MB_OK | MB_ICONEXCLAMATION);
}

void mfrmMain::check_colour_depth(int bits_per_pixel) {
    if (bits_per_pixel > 8) return;
    win::message_box(
        window(), LoadString(IDS_COLOUR_DEPTH) + L"\r\n\r\n" + LoadString(IDS_COLOUR_DEPTH_RESTART),
        kApplicationTitle, MB_OK | MB_ICONEXCLAMATION);
}

frmImage* mfrmMain::active_form() const {
    const auto active = reinterpret_cast<HWND>(SendMessageW(mdi_client_, WM_MDIGETACTIVE, 0, 0));
    const auto found =
        std::ranges::find_if(forms_, [&](const auto& form) { return form->window() == active; });
    return active == nullptr || found == forms_.end() ? nullptr : found->get();
}

void mfrmMain::form_activated(frmImage& form) {
    SetStatus(L"#", form.document().FileTitle(), form.size_text());
    status_bar_.SetZoom(form.zoom_text());
}

void mfrmMain::form_deactivated(const frmImage& form) {
    if (completion_ && completion_->form == &form) SetStatus(L"", L"#", L"#");
}

void mfrmMain::form_closed(frmImage& form) {
    form_deactivated(form);
    std::erase_if(forms_, [&](const auto& each) { return each.get() == &form; });
    if (!forms_.empty()) return;
    SetStatus(L"#", L"", L"");
    status_bar_.SetZoom({});
    show_start();
}

} // namespace kelvane
