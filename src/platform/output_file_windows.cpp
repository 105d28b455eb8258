// Files being written, with the calls of Windows.
#include "base/output_file.h"

#include "platform/temporary_name.h"

#include <windows.h>

#include <algorithm>
#include <string>
#include <system_error>
#include <utility>
#include <vector>

namespace kelvane {
namespace fs = std::filesystem;
namespace {

constexpr DWORD kShareAll = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;

constexpr DWORD kLongestName = 32768;

// std::filesystem would take the prefix of long names for a folder.
fs::path full_name(const fs::path& file) {
    std::wstring full(kLongestName, L'\0');
    full.resize(GetFullPathNameW(file.c_str(), kLongestName, full.data(), nullptr));
    return full;
}

// Errors with a portable equivalent are reported as that.
[[noreturn]] void fail(DWORD number = GetLastError()) {
    const std::error_code error(static_cast<int>(number), std::system_category());
    const std::error_condition known = error.default_error_condition();
    if (known.category() == std::generic_category())
        throw std::system_error(known.value(), std::generic_category());
    throw std::system_error(error);
}

HANDLE open_file(const fs::path& file, DWORD access, DWORD creation) {
    return CreateFileW(file.c_str(), access, kShareAll, nullptr, creation, FILE_ATTRIBUTE_NORMAL,
                       nullptr);
}

// Whether the file vanishes when its last handle is closed, as the end of the process does.
bool set_passing(HANDLE handle, bool passing) {
    FILE_DISPOSITION_INFO info{passing};
    return SetFileInformationByHandle(handle, FileDispositionInfo, &info, sizeof info) != FALSE;
}

// Empty on volumes that have none.
std::vector<BYTE> access_list(const fs::path& file) {
    DWORD size = 0;
    GetFileSecurityW(file.c_str(), DACL_SECURITY_INFORMATION, nullptr, 0, &size);
    std::vector<BYTE> descriptor(size);
    if (!GetFileSecurityW(file.c_str(), DACL_SECURITY_INFORMATION, descriptor.data(), size, &size))
        descriptor.clear();
    return descriptor;
}

// Copies the attributes and the access list of `from`, if it exists, as far as permitted. To be
// called before `to` is marked for deletion: its name cannot be used afterwards.
void take_over_permissions(const fs::path& to, const fs::path& from) {
    const DWORD attributes = GetFileAttributesW(from.c_str());
    if (attributes == INVALID_FILE_ATTRIBUTES) return;
    SetFileAttributesW(to.c_str(), attributes);
    std::vector<BYTE> list = access_list(from);
    if (!list.empty() && list != access_list(to))
        SetFileSecurityW(to.c_str(), DACL_SECURITY_INFORMATION, list.data());
}

// `name` is a full path. Renames by the handle: after closing it, a failed rename would leave the
// file behind.
bool rename_open_file(HANDLE handle, const std::wstring& name) {
    const std::size_t bytes = name.size() * sizeof(wchar_t);
    std::vector<BYTE> buffer(sizeof(FILE_RENAME_INFO) + bytes);
    auto* const info = reinterpret_cast<FILE_RENAME_INFO*>(buffer.data());
    info->ReplaceIfExists = TRUE;
    info->FileNameLength = static_cast<DWORD>(bytes);
    std::copy(name.begin(), name.end(), info->FileName);
    return SetFileInformationByHandle(handle, FileRenameInfo, info,
                                      static_cast<DWORD>(buffer.size())) != FALSE;
}

void write_all(HANDLE handle, const char* bytes, DWORD size) {
    for (DWORD written = 0; size > 0; bytes += written, size -= written)
        if (!WriteFile(handle, bytes, size, &written, nullptr)) fail();
}

void send_all(HANDLE from, HANDLE to) {
    const auto block = std::make_unique<char[]>(1 << 16);
    if (!SetFilePointerEx(from, {}, nullptr, FILE_BEGIN)) fail();
    for (DWORD read = 1; read > 0;) {
        if (!ReadFile(from, block.get(), 1 << 16, &read, nullptr)) fail();
        write_all(to, block.get(), read);
    }
    if (!SetEndOfFile(to) || !FlushFileBuffers(to)) fail();
}

} // namespace

// The full names of devices (NUL, CON) have this form.
bool is_stream(const fs::path& file) {
    return full_name(file).native().starts_with(L"\\\\.\\");
}

fs::path behind_links(const fs::path& file) {
    const HANDLE handle = open_file(file, 0, OPEN_EXISTING);
    if (handle == INVALID_HANDLE_VALUE) return full_name(file);
    std::wstring real(kLongestName, L'\0');
    const DWORD size = GetFinalPathNameByHandleW(handle, real.data(), kLongestName, 0);
    CloseHandle(handle);
    if (size == 0 || size >= kLongestName) return full_name(file); // no such names on this volume
    real.resize(size);
    return real;
}

struct OutputFile::System {
    HANDLE handle = INVALID_HANDLE_VALUE;
    bool ours = true; // to close
    fs::path name;    // of a temporary file

    ~System() {
        if (ours && handle != INVALID_HANDLE_VALUE) CloseHandle(handle);
        if (!name.empty()) DeleteFileW(name.c_str()); // on a volume where it did not vanish
    }
};

OutputFile::OutputFile() = default;
OutputFile::OutputFile(std::unique_ptr<System> system) : system_(std::move(system)) {}
OutputFile::~OutputFile() = default;
OutputFile::OutputFile(OutputFile&&) noexcept = default;
OutputFile& OutputFile::operator=(OutputFile&&) noexcept = default;

OutputFile OutputFile::standard_output() {
    auto system = std::make_unique<System>();
    system->handle = GetStdHandle(STD_OUTPUT_HANDLE);
    system->ours = false;
    return OutputFile(std::move(system));
}

OutputFile OutputFile::stream(const fs::path& file) {
    auto system = std::make_unique<System>();
    system->handle = open_file(file, GENERIC_WRITE, OPEN_EXISTING);
    if (system->handle == INVALID_HANDLE_VALUE) fail();
    return OutputFile(std::move(system));
}

OutputFile OutputFile::temporary_in(const fs::path& folder, const fs::path& like) {
    auto system = std::make_unique<System>();
    const fs::path name = temporary_name(folder);
    system->handle = open_file(name, GENERIC_READ | GENERIC_WRITE | DELETE, CREATE_NEW);
    if (system->handle == INVALID_HANDLE_VALUE) fail();
    system->name = name;
    take_over_permissions(name, like);
    set_passing(system->handle, true);
    return OutputFile(std::move(system));
}

std::size_t OutputFile::write(std::string_view bytes) {
    constexpr std::size_t kMost = 1 << 20;
    DWORD written = 0;
    if (!WriteFile(system_->handle, bytes.data(), static_cast<DWORD>(std::min(bytes.size(), kMost)),
                   &written, nullptr))
        fail();
    return written;
}

// Not by ReplaceFile, which leaves files of its own behind when it fails.
void OutputFile::replace(const fs::path& target) {
    if (!FlushFileBuffers(system_->handle)) fail();
    set_passing(system_->handle, false);
    if (rename_open_file(system_->handle, target.native())) return system_->name.clear();
    const DWORD error = GetLastError();
    set_passing(system_->handle, true);
    fail(error);
}

void OutputFile::copy_over(const fs::path& target) {
    System to;
    to.handle = open_file(target, GENERIC_WRITE, OPEN_EXISTING);
    if (to.handle == INVALID_HANDLE_VALUE) fail();
    send_all(system_->handle, to.handle);
}

void OutputFile::close() {
    if (system_->ours) CloseHandle(std::exchange(system_->handle, INVALID_HANDLE_VALUE));
}

} // namespace kelvane
