#include "app/picture_clipboard.h"

#include "app/document_services.h"
#include "image/dib_section.h"
#include "texts/error_text.h"
#include "texts/string_table.h"
#include "win/clipboard.h"
#include "win/message_box.h"
#include "win/platform_error.h"

#include "ids.h"

#include <algorithm>
#include <cstring>

namespace kelvane {
namespace {

// Bytes between the header of a packed bitmap and its first row.
std::size_t colour_bytes(const BITMAPINFOHEADER& header) {
    const bool old_header = header.biSize == sizeof header;
    if (header.biCompression == BI_BITFIELDS && old_header) return 3 * sizeof(DWORD);
    std::size_t colours = header.biClrUsed;
    if (colours == 0 && header.biBitCount <= 8) colours = std::size_t{1} << header.biBitCount;
    return colours * sizeof(RGBQUAD);
}

win::Bitmap screen_bitmap(const cDIBSection& picture) {
    const win::WindowContext screen(nullptr);
    win::Bitmap bitmap(CreateCompatibleBitmap(screen.get(), picture.Width(), picture.Height()));
    const win::MemoryContext memory(CreateCompatibleDC(screen.get()));
    if (!bitmap || !memory) return {};
    const win::Selected selected(memory.get(), bitmap.get());
    picture.PaintPicture(memory.get(), 0, 0);
    return bitmap;
}

std::vector<std::uint8_t> bitmap_file(const std::vector<std::uint8_t>& packed) {
    BITMAPINFOHEADER header{};
    if (packed.size() < sizeof header) throw TextError(LoadString(IDS_CLIPBOARD_EMPTY));
    std::memcpy(&header, packed.data(), sizeof header);

    BITMAPFILEHEADER file{};
    file.bfType = 0x4D42; // "BM"
    file.bfSize = static_cast<DWORD>(sizeof file + packed.size());
    file.bfOffBits = static_cast<DWORD>(sizeof file + header.biSize + colour_bytes(header));
    std::vector<std::uint8_t> bytes(sizeof file + packed.size());
    std::memcpy(bytes.data(), &file, sizeof file);
    std::copy(packed.begin(), packed.end(), bytes.begin() + sizeof file);
    return bytes;
}

} // namespace

bool cDIBSection::CopyToClipboard(bool bAsDIB, WindowHandle owner) const {
    if (bAsDIB) {
        win::message_box(owner, LoadString(IDS_NO_DIB_TO_CLIPBOARD), kApplicationTitle, MB_OK);
        return false;
    }
    win::Bitmap bitmap = screen_bitmap(*this);
    if (!bitmap) return false;
    // Other programs look at what has just been put: a copy right behind another may meet them.
    constexpr int kAttempts = 4;
    constexpr DWORD kPause = 50; // milliseconds
    try {
        for (int attempt = 1; attempt < kAttempts; ++attempt) {
            if (win::Clipboard(owner).put(bitmap)) return true;
            Sleep(kPause);
        }
        return win::Clipboard(owner).put(bitmap);
    } catch (const PlatformError&) {
        return false;
    }
}

void open_from_clipboard(HWND owner, const OpenPictureFile& open) {
    const std::vector<std::uint8_t> png = win::Clipboard(owner).png_file();
    const bool last = !win::Clipboard::has_bitmap();
    if (!png.empty() && (open(png, last) || last)) return;
    open(bitmap_file(win::Clipboard(owner).packed_bitmap()), true);
}

} // namespace kelvane
