#include "win/clipboard.h"

#include "win/platform_error.h"

#include <algorithm>

namespace kelvane::win {
namespace {

// Empty when the clipboard has nothing in this format. The block stays the clipboard's.
template <class T> std::vector<T> content(UINT format) {
    const HGLOBAL block = GetClipboardData(format);
    if (block == nullptr) return {};
    const LockedBlock<const T> items(block);
    if (items.data() == nullptr) return {};
    return {items.data(), items.data() + GlobalSize(block) / sizeof(T)};
}

} // namespace

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
    return content<std::uint8_t>(CF_DIB);
}

std::vector<std::uint8_t> Clipboard::png_file() const {
    return content<std::uint8_t>(RegisterClipboardFormatW(L"PNG"));
}

std::wstring Clipboard::text() const {
    const std::vector<wchar_t> characters = content<wchar_t>(CF_UNICODETEXT);
    return {characters.begin(), std::ranges::find(characters, L'\0')};
}

} // namespace kelvane::win
