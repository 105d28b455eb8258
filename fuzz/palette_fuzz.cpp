// The bytes of a palette file, and every pixel of a picture drawn with its colours.
#include "base/cpu.h"
#include "base/file_error.h"
#include "image/dib_section.h"
#include "process/diffusion.h"
#include "process/palette.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <cstring>

namespace kelvane {
namespace {

// Rows beyond a multiple of 16, which some processors take at once.
constexpr int kWidth = 19;
constexpr int kHeight = 35;

cPalette parsed(std::string_view text) {
    try {
        return parse_palette(text);
    } catch (const FileError&) {
        return {}; // no palette: that is an answer
    }
}

void require(bool sound, const char* fault) {
    if (sound) return;
    std::fputs(fault, stderr);
    std::abort();
}

cDIBSection shades() {
    cDIBSection picture;
    require(picture.Create(kWidth, kHeight), "no memory for a picture");
    for (int y = 0; y < kHeight; ++y)
        for (int x = 0; x < kWidth; ++x) {
            std::uint8_t* pixel = picture.view().pixel(x, y);
            pixel[0] = static_cast<std::uint8_t>(13 * x);
            pixel[1] = static_cast<std::uint8_t>(255 - 7 * y);
            pixel[2] = static_cast<std::uint8_t>(5 * x * y);
        }
    return picture;
}

cDIBSection drawn_with(const cPalette& palette, CpuLevel level) {
    const CpuLevelCap cap(level);
    cDIBSection picture = shades();
    cDIBSection buffer = picture.Copy();
    ApplyPalette(picture.view(), buffer.view(), palette);
    return picture;
}

bool holds(const cPalette& palette, const std::uint8_t* pixel) {
    const cPalette::Colour colour{pixel[2], pixel[1], pixel[0]};
    const auto& colours = palette.colours();
    return std::find(colours.begin(), colours.end(), colour) != colours.end();
}

void check(const cPalette& palette) {
    const cDIBSection fast = drawn_with(palette, CpuLevel::Avx2);
    const cDIBSection plain = drawn_with(palette, CpuLevel::Baseline);
    for (int y = 0; y < kHeight; ++y) {
        require(std::memcmp(fast.view().row(y), plain.view().row(y), 3 * kWidth) == 0,
                "two processors, two pictures");
        for (int x = 0; x < kWidth; ++x)
            require(holds(palette, plain.view().pixel(x, y)), "a pixel of another colour");
    }
}

} // namespace
} // namespace kelvane

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace kelvane;
    const cPalette palette = parsed({reinterpret_cast<const char*>(data), size});
    if (palette.Count() > 0) check(palette);
    return 0;
}
