#include "app/main_window.h"

#include "app/command_table.h"
#include "app/form_operations.h"
#include "app/window_place.h"
#include "dialogs/program_face.h"
#include "settings/catalogue.h"
#include "settings/folders.h"
#include "texts/error_text.h"
#include "texts/shell_errors.h"
#include "texts/string_table.h"
#include "win/dialog.h"
#include "win/message_box.h"
#include "win/platform_error.h"

#include "ids.h"

#include <commctrl.h>

#include <algorithm>

namespace kelvane {
namespace {

constexpr const wchar_t* kClassName = L"KelvaneMain";
constexpr const wchar_t* kHelpFile = L"\\EAGLE_Kelvane.chm";

// Throws for an offset without texts: the settings file can be edited by hand.
void set_language(const SettingsFile& settings) {
    const int offset = read_setting(settings, settings::kLanguage);
    const bool exists = offset == kGermanOffset || offset == kEnglishOffset;
    set_language_offset(exists ? offset : kEnglishOffset);
    if (!exists)
        throw TextError(
            LoadString(IDS_NO_SUCH_LANGUAGE, {settings.file().wstring(), std::to_wstring(offset)}));
}

template <class... Visitors> struct Overloaded : Visitors... { using Visitors::operator()...; };

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
    DestroyWindow(window()); // and the documents' windows
    // The program ends by an exception. WM_QUIT, which WM_DESTROY has posted, would close the
    // message box that reports it.
    MSG message;
    PeekMessageW(&message, nullptr, WM_QUIT, WM_QUIT, PM_REMOVE);
}

void mfrmMain::create() {
    const INITCOMMONCONTROLSEX classes{sizeof classes, ICC_BAR_CLASSES | ICC_PROGRESS_CLASS};
    InitCommonControlsEx(&classes);
    menu_ = std::make_unique<MainMenu>();
    shortcuts_ = win::AcceleratorTable(create_shortcuts());

    // Static: the window class, which is registered once, refers to them.
    static const win::Icon large_icon =
        program_icon(GetSystemMetrics(SM_CXICON), GetSystemMetrics(SM_CYICON));
    static const win::Icon small_icon =
        program_icon(GetSystemMetrics(SM_CXSMICON), GetSystemMetrics(SM_CYSMICON));
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
        if (command(LOWORD(w))) return 0;
        break;
    case WM_SETFOCUS:
        if (!start_.shown()) break; // MDI hands it to the active document
        start_.take_focus();
        return 0;
    case WM_HELP:
        answer_help_key(*reinterpret_cast<const HELPINFO*>(l));
        return TRUE;
    case WM_INITMENUPOPUP:
        prepare_menu();
        break;
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

void mfrmMain::prepare_menu() {
    const frmImage* form = active_form();
    menu_->enable(kCmdUndo, form != nullptr && form->document().undoEnable());
    menu_->enable(kCmdCropToSelection, form != nullptr && form->view().selection());
    menu_->escape_documents(mdi_client_);
}

void mfrmMain::answer_help_key(const HELPINFO& request) {
    const auto menu = static_cast<HMENU>(request.hItemHandle);
    if (request.iContextType != HELPINFO_MENUITEM)
        show_help(forms_.empty() ? IDH_START : IDH_MAIN_WINDOW);
    else if (IsMenu(menu)) // Wine sends the message twice, the second time with a window handle
        show_help(menu_->help_page(menu));
}

// False for other ids: those of the system's commands and of MDI's list of documents.
bool mfrmMain::command(unsigned id) {
    const MenuEntry* entry = find_command(id);
    const bool recent = id >= kCmdRecent1 && id <= kCmdRecent4;
    if (entry == nullptr && !recent && id != kCmdFirstLogo) return false;
    if (refuse_while_busy()) return true;
    try {
        if (entry != nullptr)
            perform(*entry);
        else if (recent)
            open_recent(static_cast<int>(id) - kCmdRecent1 + 1);
        else
            show_help(IDH_FIRST_LOGO);
    } catch (const std::exception& error) {
        show_failure(error);
    }
    return true;
}

void mfrmMain::perform(const MenuEntry& entry) {
    MainServices& services = *this;
    std::visit(Overloaded{[](std::monostate) {},
                          [&](Operation operation) {
                              if (frmImage* form = GetActiveform())
                                  process(services, *form, operation);
                          },
                          [&](FormCommand action) {
                              if (frmImage* form = GetActiveform()) action(services, *form);
                          },
                          [&](MainCommand action) { action(services); }},
               entry.action);
}

frmImage* mfrmMain::GetActiveform() {
    frmImage* form = active_form();
    if (form == nullptr)
        win::message_box(window(), LoadString(IDS_SELECT_IMAGE), kApplicationTitle,
                         MB_OK | MB_ICONINFORMATION);
    return form;
}

frmImage* mfrmMain::active_form() const {
    const auto active = reinterpret_cast<HWND>(SendMessageW(mdi_client_, WM_MDIGETACTIVE, 0, 0));
    const auto found =
        std::ranges::find_if(forms_, [&](const auto& form) { return form->window() == active; });
    return active == nullptr || found == forms_.end() ? nullptr : found->get();
}

void mfrmMain::open_recent(int i) {
    if (!recent_.FileExists(i)) return;
    const std::wstring file = recent_.file(i); // a copy: opening changes the list
    if (recent_.fileflag(i))
        converter_.OpenByConverter(file);
    else
        open_file(file);
}

void mfrmMain::open_dropped(HDROP drop) {
    const bool refused = refuse_while_busy();
    const UINT count = DragQueryFileW(drop, 0xFFFFFFFF, nullptr, 0);
    for (UINT i = 0; i < count && !refused; ++i) {
        std::wstring file(DragQueryFileW(drop, i, nullptr, 0) + 1, L'\0');
        file.resize(DragQueryFileW(drop, i, file.data(), static_cast<UINT>(file.size())));
        open_file(file);
    }
    DragFinish(drop);
}

bool mfrmMain::QueryUnload() {
    for (const auto& form : forms_)
        if (form->document().Dirty() && !form->QuerySave()) return false;
    save_state();
    return true;
}

// Another running program may have saved its files in the meantime.
void mfrmMain::save_state() {
    recent_.Merge(settings_);
    recent_.Save(settings_);
    remember_place(settings_, window());
}

void mfrmMain::check_colour_depth(int bits_per_pixel) {
    if (bits_per_pixel > 8) return;
    win::message_box(
        window(), LoadString(IDS_COLOUR_DEPTH) + L"\r\n\r\n" + LoadString(IDS_COLOUR_DEPTH_RESTART),
        kApplicationTitle, MB_OK | MB_ICONEXCLAMATION);
}

} // namespace kelvane
