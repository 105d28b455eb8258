#include "dialogs/frmMsg.h"

#include "settings/folders.h"

#include "ids.h"

#include <filesystem>

namespace kelvane {
namespace {

constexpr const wchar_t* kFormatsPage = L"formats.html";

constexpr Caption kCaptions[] = {
    {IDC_OPEN_ERROR_FORMATS, IDS_OPEN_ERROR_FORMATS},
    {IDOK, IDS_OPEN_ERROR_CLOSE},
};

// Converts line ends to CR LF, which edit fields need, and drops zeros, which would end the text.
std::wstring field_text(const std::wstring& text) {
    std::wstring result;
    for (const wchar_t c : text) {
        if (c == L'\n') result += L'\r';
        if (c != L'\r' && c != L'\0') result += c;
    }
    return result;
}

} // namespace

frmMsg::frmMsg(const std::wstring& message, const std::wstring& report, OpenInShell open)
    : Form(IDD_OPEN_ERROR, IDS_OPEN_ERROR_TITLE, kCaptions), text_(message),
      open_(std::move(open)) {
    if (!report.empty()) text_ += L"\n\n" + LoadString(IDS_MAGICK_REPORT) + L"\n" + report;
}

void frmMsg::load() {
    Form::load();
    set_text(IDC_OPEN_ERROR_TEXT, field_text(text_));
    show_icon(IDC_OPEN_ERROR_ICON, IDI_WARNING);
}

void frmMsg::on_command(int control, int /*notification*/) {
    if (control != IDC_OPEN_ERROR_FORMATS) return;
    open_((std::filesystem::path(program_folder()) / kFormatsPage).wstring());
}

} // namespace kelvane
