#include "platform/com_windows.h"

#include "base/system_message.h"
#include "base/text.h"

#include <string>

namespace kelvane {
namespace {

// Decoders report most damage by codes that say nothing to a user.
bool means_damage(HRESULT result) {
    constexpr int kImagingCodes = 0x898;
    return result == E_FAIL || result == E_INVALIDARG || result == E_UNEXPECTED ||
           HRESULT_FACILITY(result) == kImagingCodes;
}

} // namespace

FileError decoding_error(HRESULT result) {
    if (means_damage(result)) return FileError(FileFault::Damaged);
    std::wstring words = system_message(static_cast<unsigned long>(result));
    words.erase(words.find_last_not_of(L" .\r\n") + 1); // without the full stop
    return words.empty() ? FileError(FileFault::Damaged) : FileError(narrow_text(words));
}

} // namespace kelvane
