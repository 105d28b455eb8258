// The picture buffer and GDI, for programs whose pixels are DIB sections.
#include "image/dib_section.h"

#include <windows.h>

namespace kelvane {

static_assert(kSourceCopy == SRCCOPY);

bool cDIBSection::CreateDIB(DeviceContext lHDC, int lWidth, int lHeight, BitmapHandle& hDib) {
    const bool done = create(lWidth, lHeight, lHDC);
    hDib = this->hDib();
    return done;
}

bool cDIBSection::CreateFromPicture(BitmapHandle picThis) {
    ClearUp();
    BITMAP size{};
    if (GetObjectW(picThis, sizeof size, &size) == 0 || !Create(size.bmWidth, size.bmHeight))
        return false;
    const HDC source = CreateCompatibleDC(nullptr);
    const HGDIOBJ previous = SelectObject(source, picThis);
    const bool done = previous != nullptr && LoadPictureBlt(source, 0, 0);
    if (previous != nullptr) SelectObject(source, previous);
    DeleteDC(source);
    if (!done) ClearUp();
    return done;
}

bool cDIBSection::LoadPictureBlt(DeviceContext lHDC, int lSrcLeft, int lSrcTop, int lSrcWidth,
                                 int lSrcHeight, std::uint32_t eRop) {
    return BitBlt(hdc(), 0, 0, lSrcWidth < 0 ? width_ : lSrcWidth,
                  lSrcHeight < 0 ? height_ : lSrcHeight, lHDC, lSrcLeft, lSrcTop, eRop) != FALSE;
}

bool cDIBSection::PaintPicture(DeviceContext lHDC, int lDestLeft, int lDestTop, int lDestWidth,
                               int lDestHeight, int lSrcLeft, int lSrcTop,
                               std::uint32_t eRop) const {
    return BitBlt(lHDC, lDestLeft, lDestTop, lDestWidth < 0 ? width_ : lDestWidth,
                  lDestHeight < 0 ? height_ : lDestHeight, hdc(), lSrcLeft, lSrcTop, eRop) != FALSE;
}

} // namespace kelvane
