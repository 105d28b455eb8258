// Screenshots of windows, for people to look at.
#pragma once

#include "image/bitmap_file.h"
#include "support/pictures.h"

#include <windows.h>

#include <algorithm>
#include <cmath>
#include <filesystem>
#include <string>

namespace kelvane::test {

/// Red increases to the right, blue upwards; green is a product of two sines.
inline cDIBSection colourful_picture(int width, int height) {
    cDIBSection picture = black_picture(width, height);
    for (int y = 0; y < height; ++y)
        for (int x = 0; x < width; ++x) {
            const double hill = std::sin(x / 24.0) * std::sin(y / 24.0);
            const int colour[] = {255 * y / height, static_cast<int>(128 + 127 * hill),
                                  255 * x / width};
            std::copy_n(colour, 3, picture.view().pixel(x, y));
        }
    return picture;
}

/// A window with its frame as it is on the screen.
inline void save_screenshot(HWND window, const std::filesystem::path& folder,
                            const std::string& name) {
    RedrawWindow(window, nullptr, nullptr, RDW_INVALIDATE | RDW_UPDATENOW | RDW_ALLCHILDREN);
    RECT area{};
    GetWindowRect(window, &area);
    cDIBSection picture = black_picture(area.right - area.left, area.bottom - area.top);
    const HDC context = GetWindowDC(window);
    EXPECT_TRUE(picture.LoadPictureBlt(context, 0, 0));
    ReleaseDC(window, context);
    std::filesystem::create_directories(folder);
    save_bitmap(picture.view(), folder / (name + ".bmp"));
}

} // namespace kelvane::test
