#include "dialogs/frmConfigMagick.h"

#include "convert/converter.h"
#include "settings/catalogue.h"
#include "win/file_dialogs.h"
#include "win/wait_cursor.h"

#include "ids.h"

#include <array>
#include <cstdlib>
#include <filesystem>

namespace kelvane {

// One of the converter's programs and what belongs to it in the dialog.
struct frmConfigMagick::Program {
    const wchar_t* name;
    PathSetting setting;
    int field;
    int browse;
    int filter;
};

const frmConfigMagick::Program frmConfigMagick::kPrograms[2] = {
    {L"Convert.exe", settings::kConvertProgram, IDC_MAGICK_CONVERT, IDC_MAGICK_CONVERT_BROWSE,
     IDS_MAGICK_CONVERT_FILTER},
    {L"Identify.exe", settings::kIdentifyProgram, IDC_MAGICK_IDENTIFY, IDC_MAGICK_IDENTIFY_BROWSE,
     IDS_MAGICK_IDENTIFY_FILTER},
};

namespace {

constexpr const wchar_t* kDownloadPage = L"https://imagemagick.org/script/download.php#windows";
constexpr const wchar_t* kGhostscriptPage = L"https://ghostscript.com/releases/gsdnld.html";

// Since version 7 this program does the work of all the others.
constexpr const wchar_t* kDoesBoth = L"Magick.exe";

constexpr Caption kCaptions[] = {
    {IDC_MAGICK_TEXT, IDS_MAGICK_TEXT},
    {IDC_MAGICK_CONVERT_LABEL, IDS_MAGICK_CONVERT},
    {IDC_MAGICK_CONVERT_BROWSE, IDS_MAGICK_CONVERT_BROWSE},
    {IDC_MAGICK_IDENTIFY_LABEL, IDS_MAGICK_IDENTIFY},
    {IDC_MAGICK_IDENTIFY_BROWSE, IDS_MAGICK_IDENTIFY_BROWSE},
    {IDC_MAGICK_DOWNLOAD, IDS_MAGICK_DOWNLOAD},
    {IDC_MAGICK_GHOSTSCRIPT, IDS_MAGICK_GHOSTSCRIPT},
    {IDOK, IDS_MAGICK_OK},
    {IDCANCEL, IDS_MAGICK_CANCEL},
};

// Path of magick.exe in the folders of PATH; empty when it is in none. Not in the current folder,
// where anyone may have put a program. The older Convert.exe is not searched for: Windows has
// another program of that name.
std::wstring installed_program() {
    const wchar_t* folders = _wgetenv(L"PATH");
    std::array<wchar_t, MAX_PATH> path{};
    if (folders == nullptr) return {};
    const DWORD length = SearchPathW(folders, kDoesBoth, nullptr, static_cast<DWORD>(path.size()),
                                     path.data(), nullptr);
    return length < path.size() ? std::wstring(path.data(), length) : std::wstring();
}

} // namespace

frmConfigMagick::frmConfigMagick(const SettingsFile& settings, OpenInShell open)
    : Form(IDD_MAGICK, IDS_MAGICK_TITLE, kCaptions), settings_(settings), open_(std::move(open)) {}

void frmConfigMagick::load() {
    Form::load();
    bool known = false;
    for (const Program& program : kPrograms) {
        const std::wstring stored = read_setting(settings_, program.setting);
        set_text(program.field, stored);
        known |= !stored.empty();
    }
    if (!known) set_text(IDC_MAGICK_CONVERT, installed_program());
    for (const Program& program : kPrograms)
        propose_other(program);
}

// The text of a program's field, without the quotation marks that the Explorer puts around copied
// paths.
std::wstring frmConfigMagick::path(const Program& program) const {
    const std::wstring typed = text(program.field);
    const std::size_t first = typed.find_first_not_of(L" \t\"");
    if (first == std::wstring::npos) return {};
    return typed.substr(first, typed.find_last_not_of(L" \t\"") - first + 1);
}

// If `found` exists, fills the other field unless it names an existing program already.
void frmConfigMagick::propose_other(const Program& found) const {
    const Program& other = kPrograms[&found == &kPrograms[0] ? 1 : 0];
    const std::filesystem::path program = path(found);
    if (!is_program(program) || is_program(path(other))) return;
    for (const wchar_t* name : {other.name, kDoesBoth}) {
        const std::filesystem::path beside = program.parent_path() / name;
        if (is_program(beside)) return set_text(other.field, beside.wstring());
    }
}

void frmConfigMagick::on_command(int control, int notification) {
    if (control == IDC_MAGICK_DOWNLOAD) open_(kDownloadPage);
    if (control == IDC_MAGICK_GHOSTSCRIPT) open_(kGhostscriptPage);
    for (const Program& program : kPrograms) {
        if (control == program.browse) browse(program);
        if (control == program.field && notification == EN_KILLFOCUS) propose_other(program);
    }
}

void frmConfigMagick::browse(const Program& program) {
    win::FileQuestion question;
    question.filter = LoadString(program.filter) + L"|" + kDoesBoth + L"|" + kDoesBoth;
    question.folder = std::filesystem::path(path(program)).parent_path().wstring();
    question.title = LoadString(IDS_MAGICK_TITLE);
    const std::optional<std::wstring> chosen = win::ask_open_file(window(), question);
    if (!chosen) return;
    set_text(program.field, *chosen);
    propose_other(program);
}

// The error text, empty for a usable program; nothing when the user stopped the check.
std::optional<std::wstring> frmConfigMagick::wrong_with(const Program& program) const {
    const std::wstring file = path(program);
    if (!is_program(file)) return LoadString(IDS_MAGICK_NOT_FOUND, {file, program.name});
    const win::WaitCursor cursor;
    const KeepWaiting keep_waiting = [this] { return !cancel_requested(); };
    const std::optional<bool> right = IsImageMagick ? IsImageMagick(file, keep_waiting) : true;
    if (!right) return std::nullopt;
    return *right ? std::wstring() : LoadString(IDS_MAGICK_OTHER_PROGRAM, {file, program.name});
}

// Checking a program takes time, in which the user can stop the check or cancel the dialog.
bool frmConfigMagick::confirm() {
    for (const Program& program : kPrograms)
        propose_other(program);
    for (const Program& program : kPrograms) {
        const std::optional<std::wstring> wrong = wrong_with(program);
        if (!wrong || cancel_requested()) return false;
        if (wrong->empty()) continue;
        return refuse(program.field, *wrong);
    }
    for (const Program& program : kPrograms)
        write_setting(settings_, program.setting, path(program));
    return true;
}

} // namespace kelvane
