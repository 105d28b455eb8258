#include "process/despeckle.h"

#include "process/reference.h"

#include <random>
#include <utility>
#include <vector>

namespace kelvane::test {
namespace {

// Turns areas of pixels with that byte to the other one, pixel after pixel.
void slow_clear(cDIBSection& picture, int byte, bool corners, std::size_t most) {
    const auto inside = [&](int x, int y) {
        return x >= 0 && y >= 0 && x < picture.Width() && y < picture.Height();
    };
    std::vector<bool> met(static_cast<std::size_t>(picture.Width() * picture.Height()));
    for (int y = 0; y < picture.Height(); ++y)
        for (int x = 0; x < picture.Width(); ++x) {
            std::vector<std::pair<int, int>> area;
            const auto meet = [&](int px, int py) {
                if (!inside(px, py) || pixel_at(picture, px, py)[0] != byte) return;
                const auto index = static_cast<std::size_t>(py * picture.Width() + px);
                if (!met[index]) area.emplace_back(px, py);
                met[index] = true;
            };
            meet(x, y);
            for (std::size_t i = 0; i < area.size(); ++i)
                for (int dy = -1; dy <= 1; ++dy)
                    for (int dx = -1; dx <= 1; ++dx)
                        if (corners || dx == 0 || dy == 0)
                            meet(area[i].first + dx, area[i].second + dy);
            if (area.size() <= most)
                for (const auto& [px, py] : area)
                    std::memset(picture.view().pixel(px, py), 255 - byte, 3);
        }
}

cDIBSection slow_despeckle(cDIBSection picture, std::size_t most) {
    slow_clear(picture, 0, true, most);
    slow_clear(picture, 255, false, most);
    return picture;
}

cDIBSection black_and_white(int width, int height, unsigned dark_percent) {
    std::mt19937 random(7);
    return each_pixel(black_picture(width, height), [&](int, int) {
        return random() % 100 < dark_percent ? Bgr{0, 0, 0} : Bgr{255, 255, 255};
    });
}

TEST(Despeckle, IsTheSlowWayPixelByPixel) {
    for (const auto& [width, height] :
         odd_sizes({{62, 9}, {63, 9}, {64, 9}, {65, 8}, {127, 8}, {128, 7}, {300, 61}}))
        for (const unsigned dark_percent : {0u, 15u, 40u, 50u, 60u, 90u, 100u})
            for (const int most : {0, 1, 2, 3, 7, 60, width * height}) {
                SCOPED_TRACE(testing::Message()
                             << width << " x " << height << ", " << dark_percent << " %, " << most);
                const cDIBSection picture = black_and_white(width, height, dark_percent);
                expect_at_every_level(
                    picture, slow_despeckle(picture.Copy(), static_cast<std::size_t>(most)),
                    [&, most = most](ImageView image, ImageView) { Despeckle(image, 128, most); });
                if (HasFailure()) return;
            }
}

TEST(Despeckle, DarkAreasConnectAtCornersLightOnesDoNotAndDarkOnesGoFirst) {
    const auto expect = [](const std::vector<std::string>& before, int most,
                           const std::vector<std::string>& after) {
        cDIBSection picture = drawn(before);
        Despeckle(picture.view(), 128, most);
        EXPECT_TRUE(same_pixels(picture, drawn(after)));
    };
    expect({"#...", ".#..", "..#."}, 2, {"#...", ".#..", "..#."});
    expect({"#...", ".#..", "..#."}, 3, {"....", "....", "...."});
    expect({"####", "#.##", "##.#", "####"}, 1, {"####", "####", "####", "####"});
    // The dot in the hole goes first; the hole is then as large as the ring around it.
    expect({"#####", "#...#", "#.#.#", "#...#", "#####"}, 8,
           {"#####", "#...#", "#...#", "#...#", "#####"});
    expect({"#####", "#...#", "#.#.#", "#...#", "#####"}, 9,
           {"#####", "#####", "#####", "#####", "#####"});
}

TEST(Despeckle, TakesGreysAsAnExportDoes) {
    cDIBSection picture = flat_picture(70, 2, 129, 129, 129);
    std::memset(picture.view().pixel(66, 1), 128, 6);
    Despeckle(picture.view(), 128, 1);
    EXPECT_TRUE(
        same_pixels(picture, each_pixel(picture, [](int x, int y) {
                        return y == 1 && (x == 66 || x == 67) ? Bgr{0, 0, 0} : Bgr{255, 255, 255};
                    })));
}

TEST(Despeckle, Events) {
    const auto run = [](ImageView image, ImageView, ProgressObserver* observer) {
        Despeckle(image, 128, 5, observer);
    };
    expect_events(6, 3, run, {11}, {0, 2, 3, 5, 6, 7, 8, 9, 10, 11});
}

} // namespace
} // namespace kelvane::test
