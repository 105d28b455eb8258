#include "settings/folders.h"

#include "win/platform_error.h"

#include <windows.h>

#include <filesystem>

namespace kelvane {
namespace {

bool is_folder(const std::wstring& path) {
    const DWORD attributes = GetFileAttributesW(path.c_str());
    return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
}

std::wstring program_file() {
    std::wstring file(MAX_PATH, L'\0');
    for (;;) {
        const DWORD length =
            GetModuleFileNameW(nullptr, file.data(), static_cast<DWORD>(file.size()));
        if (length < file.size()) return file.substr(0, length);
        file.resize(file.size() * 2);
    }
}

} // namespace

std::wstring program_folder() {
    return std::filesystem::path(program_file()).parent_path().wstring();
}

std::wstring system_folder() {
    wchar_t folder[MAX_PATH];
    const UINT length = GetSystemDirectoryW(folder, std::size(folder));
    if (length == 0) throw PlatformError(GetLastError());
    if (length >= std::size(folder)) throw PlatformError(ERROR_BUFFER_OVERFLOW);
    return {folder, length};
}

std::wstring ExistingFolderOf(const std::wstring& path) {
    if (path.size() == 2 && path[1] == L':' && is_folder(path + L'\\')) return path + L'\\';
    for (std::size_t end = path.size(); end > 0; --end) {
        const std::wstring folder = path.substr(0, end);
        // A lone "\" would be the root of whatever drive is current.
        if (end > 1 && folder.back() == L'\\' && is_folder(folder)) return folder;
    }
    return program_folder();
}

} // namespace kelvane
