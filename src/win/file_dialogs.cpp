#include "win/file_dialogs.h"

#include "win/platform_error.h"
#include "win/text_or_null.h"

#include <cderr.h>
#include <commdlg.h>

#include <algorithm>

namespace kelvane::win {
namespace {

constexpr std::size_t kLongestPath = 32768;
constexpr std::size_t kLongestList = 1 << 20; // names of several files together

// The system wants zeros as separators and a second zero at the end.
std::wstring system_filter(std::wstring filter) {
    std::replace(filter.begin(), filter.end(), L'|', L'\0');
    filter += L'\0';
    return filter;
}

using Show = BOOL(WINAPI*)(OPENFILENAMEW*);

// The dialog's answer, `length` characters with a zero behind each name; nothing when cancelled. A
// proposal that the system rejects as a file name is dropped.
std::optional<std::wstring> ask(Show show, HWND owner, const FileQuestion& question, DWORD flags,
                                std::size_t length = kLongestPath) {
    const std::wstring filter = system_filter(question.filter);
    std::wstring path(question.proposal);
    path.resize(length);
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
    if (show(&dialog)) return path;
    const DWORD error = CommDlgExtendedError();
    if (error == 0) return std::nullopt;
    if (error == FNERR_INVALIDFILENAME && !question.proposal.empty()) {
        FileQuestion plain = question;
        plain.proposal.clear();
        return ask(show, owner, plain, flags, length);
    }
    throw PlatformError(ERROR_NOT_ENOUGH_MEMORY);
}

std::optional<std::wstring> first_of(const std::optional<std::wstring>& answer) {
    return answer ? std::optional<std::wstring>(answer->c_str()) : std::nullopt;
}

} // namespace

std::optional<std::wstring> ask_open_file(HWND owner, const FileQuestion& question) {
    return first_of(ask(GetOpenFileNameW, owner, question, OFN_FILEMUSTEXIST));
}

// One file comes as its path, several as their folder and their names.
std::vector<std::wstring> ask_open_files(HWND owner, const FileQuestion& question) {
    const auto answer = ask(GetOpenFileNameW, owner, question,
                            OFN_FILEMUSTEXIST | OFN_ALLOWMULTISELECT, kLongestList);
    std::vector<std::wstring> names;
    if (!answer) return names;
    for (const wchar_t* name = answer->c_str(); *name != 0; name += names.back().size() + 1)
        names.emplace_back(name);
    if (names.size() <= 1) return names;
    const std::filesystem::path folder = names.front();
    names.erase(names.begin());
    for (std::wstring& name : names)
        name = (folder / name).wstring();
    return names;
}

std::optional<std::wstring> ask_save_file(HWND owner, const FileQuestion& question) {
    return first_of(ask(GetSaveFileNameW, owner, question, OFN_OVERWRITEPROMPT));
}

} // namespace kelvane::win
