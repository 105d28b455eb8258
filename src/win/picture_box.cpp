#include "win/picture_box.h"

#include "win/dpi.h"

#include <cmath>

namespace kelvane::win {
namespace {

BITMAPINFO description(const cDIBSection& picture) {
    BITMAPINFO info{};
    info.bmiHeader.biSize = sizeof info.bmiHeader;
    info.bmiHeader.biWidth = picture.Width();
    info.bmiHeader.biHeight = picture.Height();
    info.bmiHeader.biPlanes = 1;
    info.bmiHeader.biBitCount = 24;
    info.bmiHeader.biCompression = BI_RGB;
    return info;
}

LONG zoomed(int pixels, double zoom) {
    return static_cast<LONG>(std::lround(pixels * zoom));
}

} // namespace

void draw_picture(HDC context, const RECT& target, const cDIBSection& picture) {
    if (picture.empty()) return;
    const BITMAPINFO info = description(picture);
    const int width = target.right - target.left;
    const int height = target.bottom - target.top;
    const bool whole_multiple = width % picture.Width() == 0 && height % picture.Height() == 0;
    SetStretchBltMode(context, whole_multiple ? COLORONCOLOR : HALFTONE);
    SetBrushOrgEx(context, 0, 0, nullptr);
    StretchDIBits(context, target.left, target.top, width, height, 0, 0, picture.Width(),
                  picture.Height(), picture.DIBSectionBitsPtr(), &info, DIB_RGB_COLORS, SRCCOPY);
}

void draw_picture_box(const DRAWITEMSTRUCT& box, const cDIBSection& picture, double zoom) {
    RECT target = box.rcItem;
    target.right = target.left + zoomed(picture.Width(), zoom);
    target.bottom = target.top + zoomed(picture.Height(), zoom);
    const int saved = SaveDC(box.hDC);
    IntersectClipRect(box.hDC, box.rcItem.left, box.rcItem.top, box.rcItem.right,
                      box.rcItem.bottom);
    draw_picture(box.hDC, target, picture);
    ExcludeClipRect(box.hDC, target.left, target.top, target.right, target.bottom);
    FillRect(box.hDC, &box.rcItem, GetSysColorBrush(COLOR_BTNFACE));
    RestoreDC(box.hDC, saved);
}

double picture_zoom(HWND window) {
    return static_cast<double>(dots_per_inch(window)) / USER_DEFAULT_SCREEN_DPI;
}

void fit_picture_box(HWND box, int width, int height) {
    const double zoom = picture_zoom(box);
    RECT outside{};
    RECT inside{};
    GetWindowRect(box, &outside);
    GetClientRect(box, &inside);
    const LONG frame_width = outside.right - outside.left - inside.right;
    const LONG frame_height = outside.bottom - outside.top - inside.bottom;
    SetWindowPos(box, nullptr, 0, 0, zoomed(width, zoom) + frame_width,
                 zoomed(height, zoom) + frame_height, SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
}

} // namespace kelvane::win
