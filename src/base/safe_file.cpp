#include "base/safe_file.h"

#include "base/file_error.h"

#include <cerrno>
#include <fstream>
#include <system_error>

namespace kelvane {
namespace fs = std::filesystem;
namespace {

template <typename Work> void with_file_errors(Work work) {
    try {
        work();
    } catch (const std::system_error& error) {
        throw FileError(error.code());
    }
}

// Replacing needs only a writable folder; a write-protected file is still to be respected.
void require_writable(const fs::path& file) {
    errno = 0;
    const std::ofstream probe(file, std::ios::binary | std::ios::app);
    if (!probe) throw fs::filesystem_error("", std::error_code(errno, std::generic_category()));
}

// Whether the folder is why a file cannot be made or replaced.
bool folder_refuses(const std::error_code& error) {
    return error == std::errc::permission_denied || error == std::errc::operation_not_permitted ||
           error == std::errc::read_only_file_system ||
           error == std::errc::device_or_resource_busy || error == std::errc::cross_device_link;
}

} // namespace

SafeFile::SafeFile(const fs::path& target) {
    with_file_errors([&] { open(target); });
}

void SafeFile::open(const fs::path& target) {
    if (target == kStandardOutput) {
        file_ = OutputFile::standard_output();
    } else if (is_stream(target)) {
        file_ = OutputFile::stream(target);
    } else if (fs::is_directory(target)) {
        throw FileError(FileFault::IsFolder);
    } else {
        target_ = behind_links(target);
        open_replacement();
    }
}

void SafeFile::open_replacement() {
    const bool exists = fs::exists(target_);
    if (exists) require_writable(target_);
    try {
        file_ = OutputFile::temporary_in(target_.parent_path(), target_);
    } catch (const std::system_error& error) {
        if (!exists || !folder_refuses(error.code())) throw;
        file_ = OutputFile::temporary_in(fs::temp_directory_path(), target_);
        replaces_ = false;
    }
}

void SafeFile::write(std::string_view bytes) {
    with_file_errors([&] {
        while (!bytes.empty()) {
            const std::size_t written = file_.write(bytes);
            if (written == 0) throw FileError(FileFault::Unwritable);
            bytes.remove_prefix(written);
        }
    });
}

void SafeFile::put_in_place() {
    if (!replaces_) return file_.copy_over(target_);
    try {
        file_.replace(target_);
    } catch (const std::system_error& error) {
        if (!folder_refuses(error.code()) || !fs::exists(target_)) throw;
        file_.copy_over(target_);
    }
}

void SafeFile::commit() {
    with_file_errors([&] {
        if (!target_.empty()) put_in_place();
        file_.close();
    });
}

} // namespace kelvane
