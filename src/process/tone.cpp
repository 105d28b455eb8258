#include "process/tone.h"

#include "process/column_strips.h"
#include "process/point_rows.h"

#include <algorithm>
#include <cmath>

namespace kelvane {
namespace {

// A spread and its half, both cut toward zero.
struct Spread {
    int whole;
    int half;
};

std::uint8_t noisy(std::uint8_t value, Spread spread, RandomSource& random) {
    const double moved = random.next() * spread.whole + (value - spread.half);
    return static_cast<std::uint8_t>(std::clamp(std::lrint(moved), 0L, 255L));
}

} // namespace

void Fade(ImageView image, int level, ProgressObserver* observer) {
    const ProgressReporter progress(observer);
    const auto fade = point_rows().fade;
    progress.init(3L * image.width - 3);
    walk_columns(0, image.width, image.height, progress,
                 [&](int x, int count, int y) { fade(image.pixel(x, y), count, level); });
    progress.complete();
}

void Lighten(ImageView image, int percent, ProgressObserver* observer) {
    const ProgressReporter progress(observer);
    const auto lighten = point_rows().lighten;
    const float factor = static_cast<float>(percent) / 100 + 1;
    progress.init(3L * image.width - 3);
    walk_columns(0, image.width, image.height, progress,
                 [&](int x, int count, int y) { lighten(image.pixel(x, y), count, factor); });
    progress.complete();
}

void Colourise(ImageView image, float fHue, ProgressObserver* observer) {
    const ProgressReporter progress(observer);
    const auto colourise = point_rows().colourise;
    progress.init(3L * image.width - 3);
    walk_columns(0, image.width, image.height, progress,
                 [&](int x, int count, int y) { colourise(image.pixel(x, y), count, fHue); });
    progress.complete();
}

void AddNoise(ImageView image, int percent, bool bRandom, RandomSource& random,
              ProgressObserver* observer) {
    const ProgressReporter progress(observer);
    const int whole = percent * 128 / 100;
    const Spread spread{whole, whole / 2};
    progress.init(image.width - 1);
    for (int x = 0; x < image.width; ++x) {
        for (int y = 0; y < image.height; ++y) {
            if (bRandom && percent >= random.next() * 100) continue;
            std::uint8_t* pixel = image.pixel(x, y);
            for (int channel = 0; channel < 3; ++channel)
                pixel[channel] = noisy(pixel[channel], spread, random);
        }
        progress.at(3L * x);
    }
    progress.complete();
}

void NegativeImage(ImageView image, ProgressObserver* observer) {
    const ProgressReporter progress(observer);
    const auto invert = point_rows().invert;
    for (int y = 0; y < image.height; ++y)
        invert(image.row(y), image.width);
    progress.complete();
}

} // namespace kelvane
