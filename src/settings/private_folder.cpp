#include "settings/private_folder.h"

#include "settings/temporary_file.h"
#include "win/platform_error.h"

#include <windows.h>

#include <algorithm>
#include <cwctype>
#include <random>
#include <string>
#include <system_error>
#include <vector>

namespace kelvane {
namespace {

constexpr std::wstring_view kPrefix = L"Kelvane-"; // a number follows
constexpr int kAttempts = 100;
// A program that was ended, or a virus scanner, lets go of its files a little later.
constexpr int kRemovals = 60;
constexpr DWORD kPause = 50; // milliseconds

bool removed(const std::filesystem::path& folder) {
    std::error_code failure;
    std::filesystem::remove_all(folder, failure);
    return !failure;
}

bool is_private_folder(const WIN32_FIND_DATAW& entry) {
    constexpr DWORD kKind = FILE_ATTRIBUTE_DIRECTORY | FILE_ATTRIBUTE_REPARSE_POINT;
    const std::wstring_view name = entry.cFileName;
    return (entry.dwFileAttributes & kKind) == FILE_ATTRIBUTE_DIRECTORY &&
           name.starts_with(kPrefix) && name.size() > kPrefix.size() &&
           std::ranges::all_of(name.substr(kPrefix.size()), std::iswdigit);
}

std::filesystem::path random_name() {
    return std::wstring(kPrefix) + std::to_wstring(std::random_device{}());
}

// Renaming fails while the folder is in use; afterwards nobody can take it into use by its name.
void remove_unless_in_use(const std::filesystem::path& folder) {
    const std::filesystem::path renamed = folder.parent_path() / random_name();
    if (MoveFileW(folder.c_str(), renamed.c_str())) removed(renamed);
}

void remove_abandoned_folders(const std::filesystem::path& parent) {
    WIN32_FIND_DATAW entry;
    const HANDLE search = FindFirstFileW((parent / kPrefix).concat(L"*").c_str(), &entry);
    if (search == INVALID_HANDLE_VALUE) return;
    std::vector<std::filesystem::path> folders;
    do {
        if (is_private_folder(entry)) folders.push_back(parent / entry.cFileName);
    } while (FindNextFileW(search, &entry));
    FindClose(search);
    std::ranges::for_each(folders, remove_unless_in_use);
}

// The folder itself, not shared for deletion.
UniqueHandle take_into_use(const std::filesystem::path& folder) {
    return UniqueHandle(CreateFileW(folder.c_str(), FILE_LIST_DIRECTORY,
                                    FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr, OPEN_EXISTING,
                                    FILE_FLAG_BACKUP_SEMANTICS, nullptr));
}

} // namespace

PrivateFolder::PrivateFolder() {
    const std::filesystem::path parent = TempDir();
    remove_abandoned_folders(parent);
    for (int attempt = 1;; ++attempt) {
        path_ = parent / random_name();
        // Another program may take the new folder for an abandoned one, and rename it.
        if (CreateDirectoryW(path_.c_str(), nullptr) && (in_use_ = take_into_use(path_))) return;
        if (attempt == kAttempts) throw PlatformError(GetLastError());
    }
}

PrivateFolder::~PrivateFolder() {
    in_use_.reset();
    for (int attempt = 1; !removed(path_) && attempt < kRemovals; ++attempt)
        Sleep(kPause);
}

} // namespace kelvane
