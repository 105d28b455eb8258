#include "base/file_identity.h"

#include <sys/stat.h>
#include <unistd.h>

namespace kelvane {
namespace {

FileIdentity identity(const struct stat& file) {
    return {file.st_dev, file.st_ino, S_ISREG(file.st_mode)};
}

std::optional<FileIdentity> identity_of_descriptor(int descriptor) {
    struct stat file {};
    if (fstat(descriptor, &file) != 0) return std::nullopt;
    return identity(file);
}

} // namespace

std::optional<FileIdentity> identity_of(const std::filesystem::path& file) {
    struct stat found {};
    if (stat(file.c_str(), &found) != 0) return std::nullopt;
    return identity(found);
}

std::optional<FileIdentity> identity_of_standard_input() {
    return identity_of_descriptor(STDIN_FILENO);
}

std::optional<FileIdentity> identity_of_standard_output() {
    return identity_of_descriptor(STDOUT_FILENO);
}

} // namespace kelvane
