#include "image/safe_file.h"

#include "image/file_error.h"

#include <cerrno>
#include <random>
#include <string>
#include <system_error>

namespace kelvane {
namespace fs = std::filesystem;
namespace {

[[noreturn]] void fail_with_errno(int error) {
    if (error == 0) throw FileError(FileFault::kUnwritable);
    throw FileError(std::error_code(error, std::generic_category()));
}

// What a link stands for is replaced, not the link.
fs::path behind_links(const fs::path& file) {
    std::error_code ignored;
    const fs::path real = fs::canonical(file, ignored);
    return real.empty() ? file : real;
}

fs::path temporary_beside(const fs::path& target) {
    std::random_device random;
    fs::path name = target.filename();
    name += "." + std::to_string(random()) + ".tmp";
    return target.parent_path() / name;
}

} // namespace

SafeFile::SafeFile(const fs::path& target) : target_(behind_links(target)) {
    std::error_code ignored;
    const fs::file_status status = fs::status(target_, ignored);
    if (fs::is_directory(status)) throw FileError(FileFault::kIsFolder);
    if (fs::exists(status) && !fs::is_regular_file(status)) {
        out_.open(target_, std::ios::binary);
        if (!out_) fail_with_errno(errno);
        return;
    }
    // Replacing needs only a writable folder; a write-protected file is still to be respected.
    if (fs::exists(status)) {
        const std::ofstream probe(target_, std::ios::binary | std::ios::app);
        if (!probe) fail_with_errno(errno);
    }
    open_temporary();
}

SafeFile::~SafeFile() {
    if (temporary_.empty()) return;
    out_.close();
    std::error_code ignored;
    fs::remove(temporary_, ignored);
}

void SafeFile::open_temporary() {
    fs::path temporary = temporary_beside(target_);
    errno = 0;
    out_.open(temporary, std::ios::binary);
    if (!out_) fail_with_errno(errno);
    temporary_ = std::move(temporary);
    keep_permissions();
}

void SafeFile::keep_permissions() const {
    std::error_code error;
    const fs::file_status old = fs::status(target_, error);
    if (fs::is_regular_file(old)) fs::permissions(temporary_, old.permissions(), error);
}

void SafeFile::write(std::string_view bytes) {
    errno = 0;
    if (!out_.write(bytes.data(), static_cast<std::streamsize>(bytes.size())))
        fail_with_errno(errno);
}

void SafeFile::commit() {
    errno = 0;
    out_.close();
    if (!out_) fail_with_errno(errno);
    if (temporary_.empty()) return;
    std::error_code error;
    fs::rename(temporary_, target_, error);
    if (error) throw FileError(error);
    temporary_.clear();
}

} // namespace kelvane
