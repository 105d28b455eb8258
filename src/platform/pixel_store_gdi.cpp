// Pixels in a DIB section that is selected into a memory device context, so that GDI draws and
// copies what the engine works on.
#include "image/pixel_store.h"

#include <windows.h>

namespace kelvane {
namespace {

BITMAPINFO bitmap_info(int width, int height, std::size_t bytes_per_row) {
    BITMAPINFO info{};
    info.bmiHeader.biSize = sizeof info.bmiHeader;
    info.bmiHeader.biWidth = width;
    info.bmiHeader.biHeight = height; // positive: the bottom row comes first
    info.bmiHeader.biPlanes = 1;
    info.bmiHeader.biBitCount = 24;
    info.bmiHeader.biCompression = BI_RGB;
    info.bmiHeader.biSizeImage =
        static_cast<DWORD>(bytes_per_row * static_cast<std::size_t>(height));
    return info;
}

class GdiStore final : public PixelStore {
  public:
    /// Handles may be missing afterwards; see `ready`.
    GdiStore(int width, int height, std::size_t bytes_per_row, HDC like)
        : context_(CreateCompatibleDC(like)) {
        if (context_ == nullptr) return;
        const BITMAPINFO info = bitmap_info(width, height, bytes_per_row);
        bitmap_ = CreateDIBSection(context_, &info, DIB_RGB_COLORS, &bits_, nullptr, 0);
        if (bitmap_ != nullptr) previous_ = SelectObject(context_, bitmap_);
    }
    ~GdiStore() override {
        if (bitmap_ != nullptr) {
            SelectObject(context_, previous_);
            DeleteObject(bitmap_);
        }
        if (context_ != nullptr) DeleteDC(context_);
    }

    bool ready() const { return bitmap_ != nullptr; }
    std::uint8_t* bits() override {
        GdiFlush(); // GDI batches drawing: finish it before the bytes are read
        return static_cast<std::uint8_t*>(bits_);
    }
    HDC device_context() const override { return context_; }
    HBITMAP bitmap() const override { return bitmap_; }

  private:
    HDC context_;
    HBITMAP bitmap_ = nullptr;
    HGDIOBJ previous_ = nullptr;
    void* bits_ = nullptr;
};

} // namespace

std::unique_ptr<PixelStore> PixelStore::create(int width, int height, std::size_t bytes_per_row,
                                               DeviceContext like) {
    auto store = std::make_unique<GdiStore>(width, height, bytes_per_row, like);
    if (!store->ready()) return nullptr;
    return store;
}

} // namespace kelvane
