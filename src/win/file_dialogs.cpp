#include "win/file_dialogs.h"

#include "win/platform_error.h"
#include "win/text_or_null.h"

#include <cderr.h>
#include <commdlg.h>

#include <algorithm>

namespace kelvane::win {
namespace {

constexpr std::size_t kLongestPath = 32768;

// The system wants zeros as separators and a second zero at the end.
std::wstring system_filter(std::wstring filter) {
    std::replace(filter.begin(), filter.end(), L'|', L'\0');
    filter += L'\0';
    return filter;
}

using Show = BOOL(WINAPI*)(OPENFILENAMEW*);

// Nothing when cancelled. A proposal that the system rejects as a file name is dropped.
std::optional<std::wstring> ask(Show show, HWND owner, const FileQuestion& question, DWORD flags) {
    const std::wstring filter = system_filter(question.filter);
    std::wstring path(question.proposal);
    path.resize(kLongestPath);
    OPENFILENAMEW dialog{};
    dialog.lStructSize = sizeof dialog;
    dialog.hwndOwner = owner;
    dialog.lpstrFilter = filter.c_str();
    dialog.nFilterIndex = question.chosen_filter;
    dialog.lpstrFile = path.data();
    dialog.nMaxFile = static_cast<DWORD>(path.size());
    dialog.lpstrInitialDir = text_or_null(question.folder);
    dialog.lpstrTitle = text_or_null(question.title);
    dialog.lpstrDefExt = text_or_null(question.extension);
    dialog.Flags = flags | OFN_EXPLORER | OFN_HIDEREADONLY | OFN_NOCHANGEDIR | OFN_PATHMUSTEXIST;
    if (show(&dialog)) return std::wstring(path.c_str());
    const DWORD error = CommDlgExtendedError();
    if (error == 0) return std::nullopt;
    if (error == FNERR_INVALIDFILENAME && !question.proposal.empty()) {
        FileQuestion plain = question;
        plain.proposal.clear();
        return ask(show, owner, plain, flags);
    }
    throw PlatformError(ERROR_NOT_ENOUGH_MEMORY);
}

} // namespace

std::optional<std::wstring> ask_open_file(HWND owner, const FileQuestion& question) {
    return ask(GetOpenFileNameW, owner, question, OFN_FILEMUSTEXIST);
}

std::optional<std::wstring> ask_save_file(HWND owner, const FileQuestion& question) {
    return ask(GetSaveFileNameW, owner, question, OFN_OVERWRITEPROMPT);
}

} // namespace kelvane::win
