#include "app/scanner.h"

#include "settings/folders.h"
#include "texts/error_text.h"
#include "texts/string_table.h"
#include "win/platform_error.h"

#include "ids.h"

namespace kelvane {
namespace {

constexpr const wchar_t* kLibrary = L"\\EZTW32.DLL"; // in the program's folder

// The library exists for 32 bits only, so the 64-bit program asks the user for the 32-bit program.
[[noreturn]] void refuse() {
    constexpr bool k64Bit = sizeof(void*) == 8;
    throw TextError(LoadString(k64Bit ? IDS_SCANNER_NEEDS_32_BIT : IDS_SCANNER_LIBRARY_MISSING));
}

template <class Function> Function function(HMODULE library, const char* name) {
    const auto address = reinterpret_cast<void*>(GetProcAddress(library, name));
    if (address == nullptr) refuse();
    return reinterpret_cast<Function>(address);
}

// The library takes names in the ANSI code page; short (8.3) names always fit it.
std::string narrow_name(const std::wstring& file) {
    wchar_t name[MAX_PATH];
    const DWORD length = GetShortPathNameW(file.c_str(), name, MAX_PATH);
    const wchar_t* used = length > 0 && length < MAX_PATH ? name : file.c_str();
    char narrow[MAX_PATH];
    BOOL lost = FALSE;
    const int size = WideCharToMultiByte(CP_ACP, WC_NO_BEST_FIT_CHARS, used, -1, narrow, MAX_PATH,
                                         nullptr, &lost);
    if (size == 0 || lost) throw PlatformError(ERROR_INVALID_NAME);
    return narrow;
}

// Results of the library; 0 is success.
constexpr int kCancelled = -1;
DWORD system_error(int result) {
    switch (result) {
    case -2:
        return ERROR_OPEN_FAILED;
    case -4:
        return ERROR_WRITE_FAULT;
    default:
        return ERROR_INVALID_DATA;
    }
}

} // namespace

Scanner::Scanner() : library_(LoadLibraryW((program_folder() + kLibrary).c_str())) {
    if (!library_) refuse();
}

void Scanner::TWAIN_SelectImageSource(HWND owner) const {
    using Select = int(WINAPI*)(HWND);
    function<Select>(library_.get(), "TWAIN_SelectImageSource")(owner);
}

bool Scanner::TWAIN_AcquireToFilename(HWND owner, const std::wstring& file) const {
    using Acquire = int(WINAPI*)(HWND, const char*);
    const auto acquire = function<Acquire>(library_.get(), "TWAIN_AcquireToFilename");
    const int result = acquire(owner, narrow_name(file).c_str());
    if (result == 0) return true;
    if (result == kCancelled) return false;
    throw PlatformError(system_error(result));
}

} // namespace kelvane
