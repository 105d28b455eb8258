#include "process/grayscale.h"
#include "process/hls_rgb.h"
#include "process/reference.h"
#include "process/tone.h"

#include <cmath>
#include <functional>
#include <set>

namespace kelvane::test {
namespace {

// One pixel's new colour, the slow obvious way.
using PixelRule = std::function<Bgr(const Bgr&)>;

PixelRule hls_rule(const std::function<void(mHLSRGB::Hls&)>& change) {
    return [change](const Bgr& c) {
        mHLSRGB::Hls hls = mHLSRGB::RGBToHLS(c[2], c[1], c[0]);
        change(hls);
        const mHLSRGB::Rgb rgb = mHLSRGB::HLSToRGB(hls);
        return Bgr{rgb.b, rgb.g, rgb.r};
    };
}

struct ToneCase {
    std::string name;
    std::function<void(ImageView, ProgressObserver*)> run;
    PixelRule rule;
};

std::vector<ToneCase> tone_cases() {
    std::vector<ToneCase> cases{{"grey", GrayScale, [](const Bgr& c) {
                                     const double v = std::nearbyint(
                                         (222 * c[2] + 707 * c[1] + 71 * c[0]) / 1000.0);
                                     return Bgr{int(v), int(v), int(v)};
                                 }}};
    for (const int level : {0, 1, 128, 240, 254, 255})
        cases.push_back({"fade " + std::to_string(level),
                         [=](ImageView v, ProgressObserver* o) { Fade(v, level, o); },
                         [=](const Bgr& c) {
                             return Bgr{c[0] * level / 255, c[1] * level / 255, c[2] * level / 255};
                         }});
    for (const int percent : {-100, -37, 20, 100})
        cases.push_back({"lighten " + std::to_string(percent),
                         [=](ImageView v, ProgressObserver* o) { Lighten(v, percent, o); },
                         hls_rule([=](mHLSRGB::Hls& hls) {
                             const float factor = static_cast<float>(percent) / 100.0f + 1.0f;
                             hls.L = std::min(hls.L * factor, 1.0f);
                         })});
    for (const float hue : {-1.0f, -0.3f, 0.0f, 0.7f, 1.0f, 2.5f, 3.1f, 4.0f, 5.0f})
        cases.push_back({"colourise " + std::to_string(hue),
                         [=](ImageView v, ProgressObserver* o) { Colourise(v, hue, o); },
                         hls_rule([=](mHLSRGB::Hls& hls) {
                             if (hls.H == 0) hls.S = 0.5f;
                             hls.H = hue;
                         })});
    return cases;
}

void expect_rule(const ToneCase& tone, const cDIBSection& picture) {
    SCOPED_TRACE(tone.name);
    const cDIBSection expected =
        each_pixel(picture, [&](int x, int y) { return tone.rule(pixel_at(picture, x, y)); });
    expect_at_every_level(picture, expected,
                          [&](ImageView image, ImageView) { tone.run(image, nullptr); });
}

TEST(Tone, IsTheSlowWayPixelByPixel) {
    for (const ToneCase& tone : tone_cases()) {
        for (const auto& [width, height] : odd_sizes())
            expect_rule(tone, random_picture(width, height, 5));
        expect_rule(tone, flat_picture(1, 1, 100, 100, 100)); // without hue and saturation
    }
    expect_rule(tone_cases()[0], greens_against_reds());
}

void expect_tone_events(const ToneCase& tone, const std::vector<long>& maxima,
                        const std::vector<long>& positions) {
    SCOPED_TRACE(tone.name);
    const auto run = [&](ImageView image, ImageView, auto* observer) { tone.run(image, observer); };
    at_every_level([&] { expect_events(4200, 2, run, maxima, positions); });
}

TEST(Tone, ColumnsAreReportedAscending) {
    for (const ToneCase& tone : tone_cases())
        expect_tone_events(tone, {12597}, columns(0, 12597));
}

TEST(Tone, LargePicturesGoInStrips) {
    for (const ToneCase& tone : tone_cases())
        if (tone.name == "grey" || tone.name == "fade 128")
            expect_strips([&](ImageView image, ImageView, ProgressObserver* observer) {
                tone.run(image, observer);
            });
}

TEST(Tone, NegativeTurnsEveryByteAndReportsItsEndOnly) {
    const ToneCase negative{"negative", NegativeImage, [](const Bgr& c) {
                                return Bgr{255 - c[0], 255 - c[1], 255 - c[2]};
                            }};
    expect_rule(negative, random_picture(33, 5, 2));
    expect_tone_events(negative, {}, {});
}

TEST(HlsRgb, EveryColourComesBack) {
    for (int r = 0; r < 256; r += 5)
        for (int g = 0; g < 256; g += 3)
            for (int b = 0; b < 256; b += 5) {
                const mHLSRGB::Rgb back = mHLSRGB::HLSToRGB(mHLSRGB::RGBToHLS(r, g, b));
                ASSERT_TRUE(back.r == r && back.g == g && back.b == b) << r << ' ' << g << ' ' << b;
            }
}

TEST(HlsRgb, MagentaHasTheLowestHueAndGreyNone) {
    EXPECT_FLOAT_EQ(mHLSRGB::RGBToHLS(255, 0, 255).H, -1);
    EXPECT_EQ(mHLSRGB::RGBToHLS(51, 51, 51).H, 0);
    EXPECT_EQ(mHLSRGB::RGBToHLS(51, 51, 51).S, 0);
}

TEST(HlsRgb, WorkedColours) {
    // The middle of every sextant: 191.25, 63.75 and the half 127.5, which goes to the even side.
    const std::pair<mHLSRGB::Hls, Bgr> colours[] = {
        {{-0.5f, 0.5f, 0.5f}, {191, 64, 128}}, {{0.5f, 0.5f, 0.5f}, {191, 128, 64}},
        {{1.5f, 0.5f, 0.5f}, {128, 191, 64}},  {{2.5f, 0.5f, 0.5f}, {64, 191, 128}},
        {{3.5f, 0.5f, 0.5f}, {64, 128, 191}},  {{4.5f, 0.5f, 0.5f}, {128, 64, 191}},
        {{0, 0.75f, 0.5f}, {223, 159, 159}},   {{3, 2, 0}, {510, 510, 510}}}; // not clamped here
    for (const auto& [hls, rgb] : colours) {
        const mHLSRGB::Rgb colour = mHLSRGB::HLSToRGB(hls);
        EXPECT_EQ((Bgr{colour.r, colour.g, colour.b}), rgb);
    }
}

cDIBSection noisy(int percent, bool random_choice) {
    cDIBSection picture = flat_picture(50, 50, 128, 128, 128);
    RandomSource random(7);
    AddNoise(picture.view(), percent, random_choice, random);
    return picture;
}

std::multiset<Bgr> pixels(const cDIBSection& picture) {
    std::multiset<Bgr> all;
    for (int x = 0; x < picture.Width(); ++x)
        for (int y = 0; y < picture.Height(); ++y)
            all.insert(pixel_at(picture, x, y));
    return all;
}

TEST(Noise, StaysWithinItsSpreadAndRepeatsWithItsSeed) {
    std::set<int> values;
    for (const Bgr& colour : pixels(noisy(50, false)))
        values.insert(colour.begin(), colour.end());
    EXPECT_EQ(*values.begin(), 96); // 50 x 128 / 100 = 64 steps from 128 - 32
    EXPECT_EQ(*values.rbegin(), 160);
    EXPECT_TRUE(same_pixels(noisy(50, false), noisy(50, false)));
    const auto add = [](ImageView image, ImageView, ProgressObserver* observer) {
        RandomSource random(7);
        AddNoise(image, 50, false, random, observer);
    };
    expect_events(50, 50, add, {49}, columns(0, 147)); // pixels, though positions are bytes
}

TEST(Noise, RandomChoiceChangesFewerPixelsWithMorePercent) {
    constexpr Bgr kUntouched{128, 128, 128};
    EXPECT_EQ(pixels(noisy(0, false)).count(kUntouched), 2500u);
    EXPECT_EQ(pixels(noisy(100, true)).count(kUntouched), 2500u);
    EXPECT_NEAR(static_cast<double>(pixels(noisy(80, true)).count(kUntouched)), 2000, 100);
}

TEST(RandomBits, GreyIsGreyAndColourHasNoBlue) {
    cDIBSection picture = black_picture(30, 20);
    picture.RandomiseBits(true);
    for (const auto& [b, g, r] : pixels(picture))
        EXPECT_TRUE(b == g && g == r);
    picture.RandomiseBits(false);
    int greens = 0;
    for (const auto& [b, g, r] : pixels(picture)) {
        EXPECT_EQ(b, 0);
        greens += g;
    }
    EXPECT_NEAR(greens / 600.0, 127.5, 20);
}

} // namespace
} // namespace kelvane::test
