#include "win/clipboard.h"

#include "win/platform_error.h"

namespace kelvane::win {

Clipboard::Clipboard(HWND owner) {
    constexpr int kAttempts = 10;
    constexpr DWORD kPause = 50; // milliseconds
    for (int attempt = 1; !OpenClipboard(owner); ++attempt) {
        if (attempt == kAttempts) throw PlatformError(GetLastError());
        Sleep(kPause);
    }
}

bool Clipboard::put(Bitmap& bitmap) const {
    if (!EmptyClipboard() || SetClipboardData(CF_BITMAP, bitmap.get()) == nullptr) return false;
    bitmap.release();
    return true;
}

std::vector<std::uint8_t> Clipboard::packed_bitmap() const {
    const HGLOBAL block = GetClipboardData(CF_DIB); // stays the clipboard's
    if (block == nullptr) return {};
    const LockedBlock<const std::uint8_t> bytes(block);
    if (bytes.data() == nullptr) return {};
    return {bytes.data(), bytes.data() + GlobalSize(block)};
}

} // namespace kelvane::win
