#include "platform/com_windows.h"

#include "base/text.h"

#include <string>

namespace kelvane {
namespace {

// One line without the full stop; empty when the system has no words for it.
std::wstring system_words(HRESULT result) {
    constexpr DWORD kHow =
        FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS | FORMAT_MESSAGE_MAX_WIDTH_MASK;
    wchar_t text[512];
    std::wstring words(text, FormatMessageW(kHow, nullptr, static_cast<DWORD>(result), 0, text,
                                            static_cast<DWORD>(std::size(text)), nullptr));
    words.erase(words.find_last_not_of(L" .\r\n") + 1);
    return words;
}

// Decoders report most damage by codes that say nothing to a user.
bool means_damage(HRESULT result) {
    constexpr int kImagingCodes = 0x898;
    return result == E_FAIL || result == E_INVALIDARG || result == E_UNEXPECTED ||
           HRESULT_FACILITY(result) == kImagingCodes;
}

} // namespace

FileError decoding_error(HRESULT result) {
    const std::wstring words = means_damage(result) ? std::wstring() : system_words(result);
    return words.empty() ? FileError(FileFault::kDamaged) : FileError(narrow_text(words));
}

} // namespace kelvane
