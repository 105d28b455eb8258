#include "process/closest_colour.h"
#include "process/diffusion.h"
#include "process/grayscale.h"
#include "process/reference.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <random>

namespace kelvane::test {
namespace {

void add(std::uint8_t& byte, int amount) {
    byte = static_cast<std::uint8_t>(std::clamp(byte + amount, 0, 255));
}

// Passes `error` on, column by column order assumed; weights of below left, below, below right.
void diffuse(cDIBSection& image, int x, int y, const std::array<int, 3>& error,
             const std::array<int, 3>& below) {
    for (std::size_t c = 0; c < 3; ++c) {
        if (3 * x < 3 * image.Width() - 6) add(image.view().pixel(x + 1, y)[c], error[c] * 7 / 16);
        if (y >= image.Height() - 1) continue;
        for (int dx = -1; dx <= 1; ++dx)
            if (3 * (x + dx) >= 1 && 3 * (x + dx) < 3 * image.Width() - 3)
                add(image.view().pixel(x + dx, y + 1)[c],
                    error[c] * below[static_cast<std::size_t>(dx + 1)] / 16);
    }
}

cDIBSection slow_steinberg(cDIBSection image) {
    cDIBSection result = image.Copy();
    GrayScale(image.view());
    for (int x = 0; x < image.Width(); ++x)
        for (int y = 0; y < image.Height(); ++y) {
            const int v = pixel_at(image, x, y)[0];
            const int e = v < 129 ? (v < 17 ? 0 : v) : 127 - v;
            std::memset(result.view().pixel(x, y), v < 129 ? 0 : 255, 3);
            diffuse(image, x, y, {e, e, e}, {3, 5, 1});
        }
    return result;
}

cDIBSection slow_palette(cDIBSection image, const cPalette& palette) {
    cDIBSection result = image.Copy();
    for (int x = 0; x < image.Width(); ++x)
        for (int y = 0; y < image.Height(); ++y) {
            const auto [b, g, r] = pixel_at(image, x, y);
            const int k = std::max(palette.ClosestIndex(r, g, b), 1);
            const std::array<int, 3> got{palette.Blue(k), palette.Green(k), palette.Red(k)};
            const std::array<int, 3> e{b - got[0], g - got[1], r - got[2]};
            for (std::size_t c = 0; c < 3; ++c)
                result.view().pixel(x, y)[c] = static_cast<std::uint8_t>(got[c]);
            if (std::abs(e[0]) + std::abs(e[1]) + std::abs(e[2]) >= 4)
                diffuse(image, x, y, e, {0, 4, 0});
        }
    return result;
}

cPalette random_palette(int count, std::uint32_t seed) {
    std::mt19937 random(seed);
    std::vector<cPalette::Colour> colours(static_cast<std::size_t>(count));
    for (cPalette::Colour& colour : colours)
        for (std::uint8_t& channel : colour)
            channel = static_cast<std::uint8_t>(random() % 9 * 31); // many ties
    return cPalette(colours);
}

// run(image, buffer) leaves what the slow way makes of the image in both of them.
template <typename Operation, typename Reference>
void expect_diffusion(Operation run, Reference reference, int tall = 4) {
    for (const auto& [width, height] :
         odd_sizes({{1023, 5}, {1024, 5}, {1025, 5}, {1026, 5}, {2051, tall}, {1040, 37}})) {
        const cDIBSection original = random_picture(width, height, 9);
        const cDIBSection expected = reference(original.Copy());
        at_every_level([&, width = width, height = height] {
            cDIBSection image = original.Copy();
            cDIBSection buffer = black_picture(width, height);
            run(image.view(), buffer.view());
            EXPECT_TRUE(same_pixels(image, expected));
            EXPECT_TRUE(same_pixels(buffer, expected));
        });
    }
}

TEST(Diffusion, IsTheSlowWayColumnByColumn) {
    // A share of 1/16 seldom changes a result, so many rows cross the edges of strips.
    expect_diffusion([](ImageView image, ImageView buffer) { Steinberg(image, buffer); },
                     slow_steinberg, 150);
    const cPalette white({{255, 255, 255}}); // as far from black as can be
    for (const cPalette& palette : {white, random_palette(1, 4), random_palette(2, 4),
                                    random_palette(16, 4), random_palette(300, 4)}) {
        SCOPED_TRACE(palette.Count());
        expect_diffusion(
            [&](ImageView image, ImageView buffer) { ApplyPalette(image, buffer, palette); },
            [&](cDIBSection image) { return slow_palette(std::move(image), palette); });
    }
    cDIBSection image = black_picture(3, 3), buffer = black_picture(3, 3);
    EXPECT_THROW(ApplyPalette(image.view(), buffer.view(), {}), std::invalid_argument);
}

// An error of 4 passes 1 to the right and 1 below, which takes those pixels to the second entry.
TEST(Diffusion, PaletteErrorsBelowFourAreDropped) {
    at_every_level([] {
        for (const int blue : {3, 4}) {
            cDIBSection image = flat_picture(40, 40, blue, 0, 0), buffer = black_picture(40, 40);
            const cDIBSection original = image.Copy();
            const cPalette palette({{0, 0, 0}, {0, 0, static_cast<std::uint8_t>(2 * blue + 1)}});
            ApplyPalette(image.view(), buffer.view(), palette);
            EXPECT_EQ(pixel_at(image, 0, 0)[0], 0);
            EXPECT_EQ(pixel_at(image, 1, 0)[0], blue == 4 ? 9 : 0);
            EXPECT_TRUE(same_pixels(image, slow_palette(original.Copy(), palette)));
        }
    });
}

TEST(Diffusion, EventsOfBothOperations) {
    const auto apply = [](ImageView image, ImageView buffer, ProgressObserver* observer) {
        ApplyPalette(image, buffer, random_palette(3, 1), observer);
    };
    expect_events(9, 4, apply, {24}, columns(0, 24));
    std::vector<long> grey_first = columns(0, 24);
    grey_first.insert(grey_first.end(), {0, 3, 6, 9, 12, 15, 18, 21, 24});
    expect_events(9, 4, Steinberg, {24, 24}, grey_first, 2);
}

// Most are so close together that many cells keep them all: the cells are emptied on the way.
cPalette crowded_palette() {
    std::vector<cPalette::Colour> colours = random_palette(3, 6).colours();
    for (unsigned i = 0; i < 1000; ++i)
        colours.push_back({static_cast<std::uint8_t>(100 + i % 4),
                           static_cast<std::uint8_t>(100 + i / 4 % 4),
                           static_cast<std::uint8_t>(100 + i / 16 % 4)});
    return cPalette(colours);
}

TEST(ClosestColour, AnswersLikeTheScan) {
    for (const cPalette& palette :
         {cPalette(), random_palette(1, 6), random_palette(2, 6), random_palette(16, 6),
          random_palette(400, 6), crowded_palette()}) {
        ClosestColour closest(palette);
        for (int r = 0; r < 512; r += 5) // twice: some cells are no longer new
            for (int g = 0; g < 256; g += 9)
                for (int b = 0; b < 256; b += 21)
                    ASSERT_EQ(closest.index(r % 256, g, b), palette.ClosestIndex(r % 256, g, b))
                        << palette.Count() << ": " << r << ' ' << g << ' ' << b;
    }
    const cPalette black({{0, 0, 0}});
    EXPECT_EQ(black.ClosestIndex(255, 255, 255), 0);
    EXPECT_EQ(ClosestColour(black).index(255, 255, 255), 0);
    EXPECT_EQ(cPalette({{0, 0, 0}, {255, 255, 255}}).ClosestIndex(255, 255, 255), 2);
}

} // namespace
} // namespace kelvane::test
