// Files being written, with the calls of Windows.
#include "platform/output_file.h"

#include "platform/temporary_name.h"

#include <windows.h>

#include <algorithm>
#include <string>
#include <system_error>

namespace kelvane {
namespace fs = std::filesystem;
namespace {

constexpr DWORD kShareAll = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;

// Errors that other systems know too are told in their words.
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

// The names of devices (NUL, CON) become full ones of this form.
bool is_stream(const fs::path& file) {
    std::wstring full(MAX_PATH, L'\0');
    const DWORD size = GetFullPathNameW(file.c_str(), MAX_PATH, full.data(), nullptr);
    return size < MAX_PATH && full.starts_with(L"\\\\.\\");
}

fs::path behind_links(const fs::path& file) {
    const HANDLE handle = open_file(file, 0, OPEN_EXISTING);
    if (handle == INVALID_HANDLE_VALUE) return file;
    std::wstring real(32768, L'\0'); // the longest name there is
    const DWORD size =
        GetFinalPathNameByHandleW(handle, real.data(), static_cast<DWORD>(real.size()), 0);
    CloseHandle(handle);
    if (size == 0 || size >= real.size()) return file; // a volume that has no such names
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
    void open_temporary(DWORD creation) {
        handle = open_file(name, GENERIC_READ | GENERIC_WRITE | DELETE, creation);
        if (handle == INVALID_HANDLE_VALUE) fail();
        set_passing(handle, true);
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

// `replace` takes over the permissions.
OutputFile OutputFile::temporary_in(const fs::path& folder, const fs::path&) {
    auto system = std::make_unique<System>();
    system->name = temporary_name(folder);
    system->open_temporary(CREATE_NEW);
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

// ReplaceFile keeps attributes and access list of the old file and wants the new one closed; it
// fails when there is no old one, and on some network drives.
void OutputFile::replace(const fs::path& target) {
    if (!FlushFileBuffers(system_->handle)) fail();
    set_passing(system_->handle, false);
    CloseHandle(std::exchange(system_->handle, INVALID_HANDLE_VALUE));
    constexpr DWORD kFlags = REPLACEFILE_IGNORE_MERGE_ERRORS | REPLACEFILE_IGNORE_ACL_ERRORS;
    const wchar_t* name = system_->name.c_str();
    if (ReplaceFileW(target.c_str(), name, nullptr, kFlags, nullptr, nullptr) ||
        MoveFileExW(name, target.c_str(), MOVEFILE_REPLACE_EXISTING))
        return system_->name.clear();
    const DWORD error = GetLastError();
    system_->open_temporary(OPEN_EXISTING);
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
