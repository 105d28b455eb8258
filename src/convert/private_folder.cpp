#include "convert/private_folder.h"

#include "settings/folders.h"
#include "win/platform_error.h"

#include <windows.h>

#include <random>
#include <system_error>

namespace kelvane {
namespace {

constexpr int kAttempts = 100;
// A program that was ended, or a virus scanner, lets go of its files a little later.
constexpr int kRemovals = 60;
constexpr DWORD kPause = 50; // milliseconds

bool removed(const std::filesystem::path& folder) {
    std::error_code failure;
    std::filesystem::remove_all(folder, failure);
    return !failure;
}

} // namespace

PrivateFolder::PrivateFolder() {
    const std::filesystem::path parent = TempDir();
    std::random_device random;
    for (int attempt = 1;; ++attempt) {
        path_ = parent / (L"Kelvane-" + std::to_wstring(random()));
        if (CreateDirectoryW(path_.c_str(), nullptr)) return;
        const DWORD error = GetLastError();
        if (error != ERROR_ALREADY_EXISTS || attempt == kAttempts) throw PlatformError(error);
    }
}

PrivateFolder::~PrivateFolder() {
    for (int attempt = 1; !removed(path_) && attempt < kRemovals; ++attempt)
        Sleep(kPause);
}

} // namespace kelvane
