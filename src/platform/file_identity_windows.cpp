#include "base/file_identity.h"

#include <windows.h>

namespace kelvane {
namespace {

std::optional<FileIdentity> identity_of_handle(HANDLE handle) {
    BY_HANDLE_FILE_INFORMATION file{};
    if (GetFileType(handle) != FILE_TYPE_DISK || !GetFileInformationByHandle(handle, &file))
        return std::nullopt;
    return FileIdentity{file.dwVolumeSerialNumber,
                        std::uint64_t{file.nFileIndexHigh} << 32 | file.nFileIndexLow,
                        (file.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) == 0};
}

} // namespace

std::optional<FileIdentity> identity_of(const std::filesystem::path& file) {
    constexpr DWORD kAll = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;
    const HANDLE handle =
        CreateFileW(file.c_str(), 0, kAll, nullptr, OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr);
    if (handle == INVALID_HANDLE_VALUE) return std::nullopt;
    const std::optional<FileIdentity> identity = identity_of_handle(handle);
    CloseHandle(handle);
    return identity;
}

std::optional<FileIdentity> identity_of_standard_input() {
    return identity_of_handle(GetStdHandle(STD_INPUT_HANDLE));
}

std::optional<FileIdentity> identity_of_standard_output() {
    return identity_of_handle(GetStdHandle(STD_OUTPUT_HANDLE));
}

} // namespace kelvane
