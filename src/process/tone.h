// Tone and colour of single pixels. Every operation works in place and reports columns as byte
// offsets 0, 3, ... 3 x width - 3.
#pragma once

#include "base/random_source.h"
#include "image/image_view.h"
#include "image/progress.h"

namespace kelvane {

/// The command Darken: the level of its `Fade`.
inline constexpr int kDarkenLevel = 240;
/// The command Lighten, in per cent.
inline constexpr int kLightenPercent = 20;
/// Hues, in sextants.
inline constexpr int kLowestHue = -1;
inline constexpr int kHighestHue = 5;
/// The largest amount of noise, in per cent.
inline constexpr int kMostNoise = 100;

/// Every byte becomes byte x level / 255, division toward zero. `level` is 0 (black) to 255
/// (unchanged).
void Fade(ImageView image, int level, ProgressObserver* observer = nullptr);

/// Lightness times 1 + percent / 100, at most 1, hue and saturation kept. -100 gives black.
void Lighten(ImageView image, int percent, ProgressObserver* observer = nullptr);

/// Every pixel takes the hue `fHue` (sextants, -1 to 5: red 0, green 2, blue 4) and keeps its
/// lightness and saturation; greys and pure reds take a saturation of one half.
void Colourise(ImageView image, float fHue, ProgressObserver* observer = nullptr);

/// Adds to each byte a number of its own, spread evenly over `percent` x 128 / 100 steps around 0.
/// `bRandom` leaves a pixel alone unless a further number exceeds `percent`: with more percent
/// fewer pixels change, by more. Numbers are drawn column by column, blue, green, red.
/// `InitProgress` carries width - 1, in pixels, although positions are in bytes: kept for
/// compatibility.
void AddNoise(ImageView image, int percent, bool bRandom, RandomSource& random,
              ProgressObserver* observer = nullptr);

/// Every byte b becomes 255 - b. Reports its end only, as the combination of pictures does.
void NegativeImage(ImageView image, ProgressObserver* observer = nullptr);

} // namespace kelvane
