#include "image/random_bits.h"

#include <cmath>
#include <cstring>

namespace kelvane {
namespace {

std::uint8_t random_byte(RandomSource& random) {
    return static_cast<std::uint8_t>(std::lrint(random.next() * 255));
}

void fill_grey(ImageView image, RandomSource& random) {
    for (int y = 0; y < image.height; ++y)
        for (int x = 0; x < image.width; ++x)
            std::memset(image.pixel(x, y), random_byte(random), 3);
}

void fill_colour(ImageView image, RandomSource& random) {
    for (int x = 0; x < image.width; ++x)
        for (int y = 0; y < image.height; ++y) {
            std::uint8_t* pixel = image.pixel(x, y);
            pixel[0] = 0;
            pixel[1] = random_byte(random);
            pixel[2] = random_byte(random);
        }
}

} // namespace

void randomise_bits(ImageView image, bool grey, RandomSource& random) {
    if (grey)
        fill_grey(image, random);
    else
        fill_colour(image, random);
}

} // namespace kelvane
