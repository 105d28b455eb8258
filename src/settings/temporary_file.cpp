#include "settings/temporary_file.h"

#include "win/platform_error.h"

#include <iterator>

namespace kelvane {

std::wstring TempDir() {
    wchar_t folder[MAX_PATH + 1];
    const DWORD length = GetTempPathW(std::size(folder), folder);
    if (length == 0) throw PlatformError(GetLastError());
    if (length >= std::size(folder)) throw PlatformError(ERROR_BUFFER_OVERFLOW);
    return {folder, length};
}

std::wstring TempFileName(const std::wstring& prefix, const std::wstring& folder) {
    wchar_t file[MAX_PATH + 1];
    const std::wstring where = folder.empty() ? TempDir() : folder;
    if (GetTempFileNameW(where.c_str(), prefix.c_str(), 0, file) == 0)
        throw PlatformError(GetLastError());
    return file;
}

} // namespace kelvane
