// Commands of mfrmMain: how they are handed out, files, clipboard, scanner, windows, help.
#include "app/main_window.h"

#include "app/busy.h"
#include "app/command_table.h"
#include "app/picture_clipboard.h"
#include "app/scanner.h"
#include "app/window_place.h"
#include "base/safe_file.h"
#include "dialogs/frmAbout.h"
#include "dialogs/frmExport.h"
#include "dialogs/frmLanguage.h"
#include "dialogs/frmMsg3.h"
#include "settings/catalogue.h"
#include "settings/folders.h"
#include "settings/temporary_file.h"
#include "texts/error_text.h"
#include "texts/string_table.h"
#include "win/message_box.h"
#include "win/platform_error.h"

#include "ids.h"

#include <filesystem>

namespace kelvane {
namespace {

template <class... Visitors> struct Overloaded : Visitors... { using Visitors::operator()...; };

void write_bytes(const std::wstring& file, const std::vector<std::uint8_t>& bytes) {
    SafeFile out{std::filesystem::path(file)};
    out.write({reinterpret_cast<const char*>(bytes.data()), bytes.size()});
    out.commit();
}

// "logo.scr" for the picture "logo.png".
std::wstring script_name(const ImageDocument& document) {
    const std::wstring title = document.FileTitle();
    return title.substr(0, title.rfind(L'.')) + L".scr";
}

} // namespace

void mfrmMain::command(unsigned id) {
    if (refuse_while_busy()) return;
    try {
        if (id >= kCmdRecent1 && id <= kCmdRecent4)
            open_recent(static_cast<int>(id) - kCmdRecent1 + 1);
        else if (id == kCmdFirstLogo)
            show_help(IDH_FIRST_LOGO);
        else
            perform(*find_command(id));
    } catch (const std::exception& error) {
        show_failure(error);
    }
}

void mfrmMain::perform(const MenuEntry& entry) {
    std::visit(Overloaded{[](std::monostate) {},
                          [this](Operation operation) {
                              if (frmImage* form = GetActiveform()) process(*form, operation);
                          },
                          [this](FormAction action) {
                              if (frmImage* form = GetActiveform()) (this->*action)(*form);
                          },
                          [this](MainAction action) { (this->*action)(); }},
               entry.action);
}

frmImage* mfrmMain::GetActiveform() {
    frmImage* form = active_form();
    if (form == nullptr)
        win::message_box(window(), LoadString(IDS_SELECT_IMAGE), kApplicationTitle,
                         MB_OK | MB_ICONINFORMATION);
    return form;
}

void mfrmMain::process(frmImage& form, const std::function<void(ImageDocument&)>& operation) {
    operate(form, operation);
    form.Render();
    form_activated(form); // the size may have changed
}

// Not every operation tells its end, so what the last one told goes first. False with a message
// when the operation failed.
bool mfrmMain::operate(frmImage& form, const std::function<void(ImageDocument&)>& operation) {
    SetStatus(L"", L"#", L"#");
    bool done = false;
    try {
        const Busy busy(busy_);
        operation(form.document());
        done = true;
    } catch (const std::exception& error) {
        show_error(IDS_IMAGE_PROCESS_ERROR, error_text(error));
    }
    ShowProgress(false);
    return done;
}

// A form shows its window when `fill` has given it a picture; without one it is gone again, and the
// answer is false.
bool mfrmMain::new_form(const std::function<bool(frmImage&)>& fill) {
    MainServices& services = *this;
    auto form = std::make_unique<frmImage>(services, mdi_client_);
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

void mfrmMain::open_temporary(const std::wstring& file) {
    new_form([&](frmImage& form) { return form.OpenFile(file, true); });
}

void mfrmMain::open_recent(int i) {
    if (!recent_.FileExists(i)) return;
    const std::wstring file = recent_.file(i); // the list changes when it is opened
    if (recent_.fileflag(i))
        OpenByConverter(file);
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

// File menu.

void mfrmMain::open() {
    win::FileQuestion question;
    question.filter = LoadString(IDS_FILTER_PICTURES);
    question.folder = open_folder_;
    const auto files = win::ask_open_files(window(), question);
    if (files.empty()) return;
    open_folder_ = ExistingFolderOf(files.front());
    write_setting(settings_, settings::kOpenFolder, open_folder_);
    for (const std::wstring& file : files)
        open_file(file);
}

void mfrmMain::save(frmImage& form) {
    form.SaveFile();
}

void mfrmMain::export_script(frmImage& form) {
    frmExport dialog(settings_, form.document().picture());
    dialog.show_modal(window());
    if (dialog.Cancelled) return;
    win::FileQuestion question;
    question.filter = LoadString(IDS_FILTER_SCRIPTS);
    question.title = LoadString(IDS_EXPORT_FILE_TITLE);
    question.proposal = script_name(form.document());
    question.extension = L"SCR";
    if (const auto file = ask_save_file(question)) write_script(form, *file, dialog.options());
}

void mfrmMain::write_script(frmImage& form, const std::wstring& file,
                            const ExportOptions& options) {
    ExportReport report;
    SetStatus(L"", L"#", L"#");
    try {
        const Busy busy(busy_);
        report = form.document().Vectorize(file, options);
    } catch (const std::exception& error) {
        show_error(IDS_EXPORT_ERROR, error_text(error));
    }
    ShowProgress(false);
    if (report.RangeOVL) {
        frmMsg3 warning;
        warning.show_modal(window());
        if (warning.DeleteScript) DeleteFileW(file.c_str());
    }
    form.Render();
}

void mfrmMain::select_source() {
    const Busy busy(busy_);
    Scanner().TWAIN_SelectImageSource(window());
}

void mfrmMain::acquire() {
    const TemporaryFile file;
    try {
        const Busy busy(busy_);
        if (!Scanner().TWAIN_AcquireToFilename(window(), file.path())) return;
    } catch (const PlatformError& error) {
        show_error(IDS_SCAN_ERROR, error_text(error));
        return;
    }
    open_temporary(file.path());
}

void mfrmMain::close_form(frmImage& form) {
    SendMessageW(form.window(), WM_CLOSE, 0, 0); // which asks first
}

void mfrmMain::exit() {
    SendMessageW(window(), WM_CLOSE, 0, 0);
}

// Edit menu.

void mfrmMain::undo(frmImage& form) {
    process(form, [](ImageDocument& document) { document.Undo(); });
}

void mfrmMain::copy(frmImage& form) {
    form.CopyImage();
}

void mfrmMain::paste() {
    try {
        const std::vector<std::uint8_t> bitmap = bitmap_file_from_clipboard(window());
        const TemporaryFile file;
        write_bytes(file.path(), bitmap);
        open_temporary(file.path());
    } catch (const std::exception& error) {
        show_error(IDS_PASTE_ERROR, error_text(error));
    }
}

// Window menu.

void mfrmMain::arrange(UINT message, WPARAM how) {
    SendMessageW(mdi_client_, message, how, 0);
}

void mfrmMain::tile_horizontally() {
    arrange(WM_MDITILE, MDITILE_HORIZONTAL);
}

void mfrmMain::tile_vertically() {
    arrange(WM_MDITILE, MDITILE_VERTICAL);
}

void mfrmMain::cascade() {
    arrange(WM_MDICASCADE, 0);
}

void mfrmMain::arrange_icons() {
    arrange(WM_MDIICONARRANGE, 0);
}

// Help menu.

void mfrmMain::help() {
    show_help(IDH_START);
}

// From a dialog as well, which no failure may close.
void mfrmMain::show_help(int page) {
    try {
        help_.show(window(), page);
    } catch (const std::exception& error) {
        show_failure(error);
    }
}

void mfrmMain::answer_help_key(const HELPINFO& request) {
    const auto menu = static_cast<HMENU>(request.hItemHandle);
    if (request.iContextType != HELPINFO_MENUITEM)
        show_help(forms_.empty() ? IDH_START : IDH_MAIN_WINDOW);
    else if (IsMenu(menu)) // Wine asks a second time, with a window in the menu's place
        show_help(menu_->help_page(menu));
}

void mfrmMain::about() {
    frmAbout(KELVANE_VERSION).show_modal(window());
}

void mfrmMain::language() {
    frmLanguage dialog(settings_);
    dialog.show_modal(window());
    if (dialog.changed) loadLanguage();
}

} // namespace kelvane
