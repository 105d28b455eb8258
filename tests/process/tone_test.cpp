#include "image/cpu.h"
#include "process/grayscale.h"
#include "process/hls_rgb.h"
#include "process/tone.h"
#include "support/pictures.h"
#include "support/recording_observer.h"

#include <gmock/gmock.h>

#include <cmath>
#include <functional>

namespace kelvane::test {
namespace {

using testing::ElementsAre;
using Bgr = std::array<int, 3>;

// One pixel's new colour, the slow obvious way.
using PixelRule = std::function<Bgr(const Bgr&)>;

cDIBSection each_pixel(const cDIBSection& from, const PixelRule& rule) {
    cDIBSection result = from.Copy();
    for (int x = 0; x < from.Width(); ++x)
        for (int y = 0; y < from.Height(); ++y) {
            const Bgr colour = rule(pixel_at(from, x, y));
            for (std::size_t i = 0; i < 3; ++i)
                result.view().pixel(x, y)[i] = static_cast<std::uint8_t>(colour[i]);
        }
    return result;
}

Bgr grey_rule(const Bgr& c) {
    const int v = static_cast<int>(std::nearbyint((222 * c[2] + 707 * c[1] + 71 * c[0]) / 1000.0));
    return {v, v, v};
}

Bgr hls_rule(const Bgr& c, const std::function<void(mHLSRGB::Hls&)>& change) {
    mHLSRGB::Hls hls = mHLSRGB::RGBToHLS(c[2], c[1], c[0]);
    change(hls);
    const mHLSRGB::Rgb rgb = mHLSRGB::HLSToRGB(hls);
    return {rgb.b, rgb.g, rgb.r};
}

struct ToneCase {
    std::string name;
    std::function<void(ImageView, ProgressObserver*)> run;
    PixelRule rule;
};

ToneCase lighten_case(int percent) {
    return {"lighten " + std::to_string(percent),
            [=](ImageView v, ProgressObserver* o) { Lighten(v, percent, o); },
            [=](const Bgr& c) {
                return hls_rule(c, [=](mHLSRGB::Hls& hls) {
                    hls.L = hls.L * (static_cast<float>(percent) / 100.0f + 1.0f);
                    if (hls.L > 1) hls.L = 1;
                });
            }};
}

ToneCase colourise_case(float hue) {
    return {"colourise " + std::to_string(hue),
            [=](ImageView v, ProgressObserver* o) { Colourise(v, hue, o); },
            [=](const Bgr& c) {
                return hls_rule(c, [=](mHLSRGB::Hls& hls) {
                    if (hls.H == 0) hls.S = 0.5f;
                    hls.H = hue;
                });
            }};
}

std::vector<ToneCase> tone_cases() {
    std::vector<ToneCase> cases{
        {"grey", [](ImageView v, ProgressObserver* o) { GrayScale(v, o); }, grey_rule},
        {"fade", [](ImageView v, ProgressObserver* o) { Fade(v, 128, o); },
         [](const Bgr& c) {
             return Bgr{c[0] * 128 / 255, c[1] * 128 / 255, c[2] * 128 / 255};
         }}};
    for (const int percent : {-100, -37, 20, 100})
        cases.push_back(lighten_case(percent));
    for (const float hue : {-1.0f, -0.3f, 0.0f, 0.7f, 1.0f, 2.5f, 3.1f, 4.0f, 5.0f})
        cases.push_back(colourise_case(hue));
    return cases;
}

std::vector<std::pair<int, int>> sizes_across_strips() {
    std::vector<std::pair<int, int>> sizes = odd_sizes();
    sizes.emplace_back(4131, 2);
    return sizes;
}

class Tone : public testing::TestWithParam<CpuLevel> {
    CpuLevelCap cap_{GetParam()};
};
INSTANTIATE_TEST_SUITE_P(EachProcessor, Tone, testing::Values(CpuLevel::Baseline, CpuLevel::Avx2));

TEST_P(Tone, IsTheSlowWayPixelByPixel) {
    for (const ToneCase& tone : tone_cases())
        for (const auto& [width, height] : sizes_across_strips()) {
            cDIBSection picture = random_picture(width, height, 5);
            const cDIBSection expected = each_pixel(picture, tone.rule);
            tone.run(picture.view(), nullptr);
            ASSERT_TRUE(same_pixels(picture, expected)) << tone.name;
        }
}

TEST_P(Tone, GreyOfEveryHalf) {
    // Green against red meets each remainder, exact halves over even and odd greys included.
    cDIBSection picture = black_picture(256, 256);
    for (int y = 0; y < 256; ++y)
        for (int x = 0; x < 256; ++x) {
            picture.view().pixel(x, y)[0] = static_cast<std::uint8_t>(x ^ y);
            picture.view().pixel(x, y)[1] = static_cast<std::uint8_t>(x);
            picture.view().pixel(x, y)[2] = static_cast<std::uint8_t>(y);
        }
    const cDIBSection expected = each_pixel(picture, grey_rule);
    GrayScale(picture.view());
    EXPECT_TRUE(same_pixels(picture, expected));
}

TEST_P(Tone, ColumnsAreReportedAscending) {
    for (const ToneCase& tone : tone_cases()) {
        RecordingObserver observer;
        tone.run(random_picture(4200, 2, 1).view(), &observer);
        EXPECT_THAT(observer.maxima, ElementsAre(12597)) << tone.name;
        EXPECT_EQ(observer.positions, columns(0, 12597)) << tone.name;
        EXPECT_EQ(observer.times.size(), 1u) << tone.name;
    }
}

TEST(Tone, GreyAndFadeValues) {
    const auto grey_of = [](int b, int g, int r) {
        cDIBSection pixel = flat_picture(1, 1, b, g, r);
        GrayScale(pixel.view());
        return pixel_at(pixel, 0, 0)[0];
    };
    EXPECT_EQ(grey_of(255, 255, 255), 255);
    EXPECT_EQ(grey_of(0, 255, 0), 180);
    EXPECT_EQ(grey_of(255, 0, 0), 18);
    cDIBSection pixel = flat_picture(1, 1, 255, 1, 2);
    Fade(pixel.view(), 128);
    EXPECT_THAT(pixel_at(pixel, 0, 0), ElementsAre(128, 0, 1));
}

TEST(Tone, GreysTakeHalfSaturationAndKeepTheirLightness) {
    cDIBSection grey = flat_picture(1, 1, 100, 100, 100);
    Colourise(grey.view(), 4);
    EXPECT_THAT(pixel_at(grey, 0, 0), ElementsAre(150, 50, 50));
    cDIBSection white = flat_picture(1, 1, 255, 255, 255);
    Colourise(white.view(), 2);
    EXPECT_THAT(pixel_at(white, 0, 0), ElementsAre(255, 255, 255));
}

TEST(HlsRgb, EveryColourComesBack) {
    for (int r = 0; r < 256; r += 5)
        for (int g = 0; g < 256; g += 3)
            for (int b = 0; b < 256; b += 5) {
                const mHLSRGB::Rgb back = mHLSRGB::HLSToRGB(mHLSRGB::RGBToHLS(r, g, b));
                ASSERT_TRUE(back.r == r && back.g == g && back.b == b) << r << ' ' << g << ' ' << b;
            }
}

TEST(HlsRgb, HuesOfThePrimaries) {
    EXPECT_EQ(mHLSRGB::RGBToHLS(255, 0, 0).H, 0);
    EXPECT_EQ(mHLSRGB::RGBToHLS(255, 255, 0).H, 1); // red before green
    EXPECT_EQ(mHLSRGB::RGBToHLS(0, 255, 255).H, 3); // green before blue
    EXPECT_EQ(mHLSRGB::RGBToHLS(0, 0, 255).H, 4);
    EXPECT_EQ(mHLSRGB::RGBToHLS(255, 0, 255).H, -1);
    EXPECT_EQ(mHLSRGB::RGBToHLS(51, 51, 51).S, 0);
}

TEST(HlsRgb, WorkedValues) {
    const mHLSRGB::Hls blue = mHLSRGB::RGBToHLS(51, 102, 204);
    EXPECT_FLOAT_EQ(blue.H, 11 / 3.0f);
    EXPECT_FLOAT_EQ(blue.L, 0.5f);
    EXPECT_FLOAT_EQ(blue.S, 0.6f);
    const mHLSRGB::Hls pale = mHLSRGB::RGBToHLS(204, 255, 230); // above half lightness
    EXPECT_FLOAT_EQ(pale.H, 2 + 26 / 51.0f);
    EXPECT_NEAR(pale.S, 1, 1e-6);

    const auto rgb = [](float hue, float lightness, float saturation) {
        const mHLSRGB::Rgb colour = mHLSRGB::HLSToRGB({hue, lightness, saturation});
        return Bgr{colour.r, colour.g, colour.b};
    };
    // The middle of every sextant: 191.25, 63.75 and the half 127.5, which goes to the even side.
    EXPECT_THAT(rgb(-0.5f, 0.5f, 0.5f), ElementsAre(191, 64, 128));
    EXPECT_THAT(rgb(0.5f, 0.5f, 0.5f), ElementsAre(191, 128, 64));
    EXPECT_THAT(rgb(1.5f, 0.5f, 0.5f), ElementsAre(128, 191, 64));
    EXPECT_THAT(rgb(2.5f, 0.5f, 0.5f), ElementsAre(64, 191, 128));
    EXPECT_THAT(rgb(3.5f, 0.5f, 0.5f), ElementsAre(64, 128, 191));
    EXPECT_THAT(rgb(4.5f, 0.5f, 0.5f), ElementsAre(128, 64, 191));
    EXPECT_THAT(rgb(0, 0.75f, 0.5f), ElementsAre(223, 159, 159));
    EXPECT_THAT(rgb(3, 2, 0), ElementsAre(510, 510, 510)); // clamping is the caller's
}

TEST(Noise, StaysWithinItsSpreadAndRepeatsWithItsSeed) {
    cDIBSection first = flat_picture(40, 30, 128, 128, 128);
    cDIBSection second = first.Copy();
    RandomSource random(7);
    RecordingObserver observer;
    AddNoise(first.view(), 50, false, random, &observer);
    int lowest = 255;
    int highest = 0;
    for (int x = 0; x < 40; ++x)
        for (int y = 0; y < 30; ++y)
            for (const int channel : pixel_at(first, x, y)) {
                lowest = std::min(lowest, channel);
                highest = std::max(highest, channel);
            }
    EXPECT_EQ(lowest, 96); // 50 x 128 / 100 = 64 steps from 128 - 32
    EXPECT_EQ(highest, 160);
    EXPECT_THAT(observer.maxima, ElementsAre(39)); // pixels, though positions are bytes
    EXPECT_EQ(observer.positions, columns(0, 117));
    RandomSource again(7);
    AddNoise(second.view(), 50, false, again);
    EXPECT_TRUE(same_pixels(second, first));
}

TEST(Noise, RandomChoiceChangesFewerPixelsWithMorePercent) {
    const auto changed = [](int percent, bool random_choice) {
        cDIBSection picture = flat_picture(50, 50, 128, 128, 128);
        RandomSource random(3);
        AddNoise(picture.view(), percent, random_choice, random);
        int count = 0;
        for (int x = 0; x < 50; ++x)
            for (int y = 0; y < 50; ++y)
                count += pixel_at(picture, x, y) != Bgr{128, 128, 128};
        return count;
    };
    EXPECT_EQ(changed(0, false), 0);
    EXPECT_EQ(changed(100, true), 0);
    EXPECT_NEAR(changed(80, true), 500, 100);
}

TEST_P(Tone, NegativeTurnsEveryByteAndReportsItsEndOnly) {
    cDIBSection picture = random_picture(33, 5, 2);
    const cDIBSection before = picture.Copy();
    RecordingObserver observer;
    NegativeImage(picture.view(), &observer);
    EXPECT_TRUE(same_pixels(picture, each_pixel(before, [](const Bgr& c) {
                                return Bgr{255 - c[0], 255 - c[1], 255 - c[2]};
                            })));
    EXPECT_TRUE(observer.maxima.empty() && observer.positions.empty());
    EXPECT_EQ(observer.times.size(), 1u);
}

TEST(RandomBits, GreyIsGreyAndColourHasNoBlue) {
    cDIBSection grey = black_picture(30, 20);
    grey.RandomiseBits(true);
    cDIBSection colour = black_picture(30, 20);
    colour.RandomiseBits(false);
    int greens = 0;
    for (int x = 0; x < 30; ++x)
        for (int y = 0; y < 20; ++y) {
            const Bgr g = pixel_at(grey, x, y);
            EXPECT_TRUE(g[0] == g[1] && g[1] == g[2]);
            EXPECT_EQ(pixel_at(colour, x, y)[0], 0);
            greens += pixel_at(colour, x, y)[1];
        }
    EXPECT_NEAR(greens / 600.0, 127.5, 20);
}

} // namespace
} // namespace kelvane::test
