#include "process/filters.h"

#include "process/reference.h"

#include <limits>
#include <numeric>
#include <random>

namespace kelvane::test {
namespace {

constexpr std::int32_t kLeast = std::numeric_limits<std::int32_t>::min();
constexpr std::int32_t kMost = std::numeric_limits<std::int32_t>::max();

void expect_convolution(const FilterKernel& kernel, int width, int height) {
    const cDIBSection original = random_picture(width, height, 7);
    const cDIBSection expected = convolved(original, kernel);
    expect_at_every_level(original, expected, [&](ImageView image, ImageView buffer) {
        convolve_in_place(image, buffer, kernel);
    });
    at_every_level([&] {
        cDIBSection buffer = random_picture(width, height, 8);
        convolve_to_buffer(original.view(), buffer.view(), kernel);
        EXPECT_TRUE(same_pixels(buffer, expected));
    });
}

FilterKernel random_kernel(int size, std::int32_t largest, std::int32_t weight,
                           std::uint32_t seed) {
    std::mt19937 random(seed);
    std::uniform_int_distribution<std::int32_t> cell(largest == kMost ? kLeast : -largest, largest);
    FilterKernel kernel(size, weight);
    for (int i = -kernel.half(); i <= kernel.half(); ++i)
        for (int j = -kernel.half(); j <= kernel.half(); ++j)
            kernel.set_cell(i, j, cell(random));
    return kernel;
}

TEST(Convolution, PredefinedKernelsOverOddSizes) {
    for (const int type : {kBlur, kBlurMore, kSoften, kSoftenMore, kSharpen, kSharpenMore, kEmboss,
                           kEmphasizeFirst, kEmphasizeSecond})
        for (const auto& [width, height] : odd_sizes()) {
            SCOPED_TRACE(type);
            expect_convolution(predefined_kernel(type), width, height);
        }
}

// Small cells take the narrow path, the others the wide one, the largest with sums that wrap.
TEST(Convolution, AnyCellsAndWeights) {
    for (const int size : {1, 3, 5, 7, 9})
        for (const std::int32_t largest : {1, 14, 300, 40000, kMost})
            for (const std::int32_t weight : {1, -1, 3, 100, -7, 33000, kMost, kLeast}) {
                SCOPED_TRACE(testing::Message()
                             << size << ", cells to " << largest << ", weight " << weight);
                expect_convolution(random_kernel(size, largest, weight, 11), 45, 10);
                if (HasFailure()) return;
            }
}

TEST(Convolution, ExtremeSumsAndWidths) {
    FilterKernel kernel(1, -1);
    kernel.set_cell(0, 0, kLeast);
    expect_convolution(kernel, 40, 3);
    expect_convolution(FilterKernel(3, 1), 20, 5); // all cells zero
    // Wider than one span, on both paths.
    expect_convolution(predefined_kernel(kSoftenMore), 2100, 7);
    expect_convolution(random_kernel(7, 2, 9, 3), 2100, 9);
}

void expect_quotients(const cDIBSection& image, const FilterKernel& kernel) {
    SCOPED_TRACE(testing::Message() << kernel.cell(0, 0) << " / " << kernel.weight());
    expect_at_every_level(image, convolved(image, kernel), [&](ImageView result, ImageView) {
        convolve(image.view(), result, kernel);
    });
}

// The narrow path multiplies by a reciprocal: every sum it may meet, many weights.
TEST(Convolution, DividesExactly) {
    const cDIBSection image = each_pixel(black_picture(256, 1), [](int x, int) {
        return Bgr{x, x, x};
    });
    for (const std::int32_t factor : {1, 2, 127, 128, -128})
        for (std::int32_t weight = 1; weight < 33000; weight += weight < 600 ? 1 : 1009) {
            FilterKernel kernel(1, weight);
            kernel.set_cell(0, 0, factor);
            expect_quotients(image, kernel);
            ASSERT_FALSE(HasFailure());
        }
}

// The wide path multiplies by a reciprocal in single or, from 16385 on, in double precision. With
// the weight for a coefficient every sum stands beside a whole quotient, on it or one below.
TEST(Convolution, DividesWideSumsExactly) {
    const cDIBSection image = each_pixel(black_picture(256 * 3, 3), [](int x, int y) {
        const int value = y != 1 ? 0 : x % 3 == 1 ? x / 3 : 1;
        return Bgr{value, value, value};
    });
    for (const std::int32_t magnitude :
         {129, 257, 1000, 4900, 8191, 16383, 16384, 16385, 16411, 32767, 40000, 8000000})
        for (const std::int32_t weight : {magnitude, -magnitude})
            for (const std::int32_t beside : {-1, 0, 1}) {
                FilterKernel kernel(3, weight);
                kernel.set_cell(0, 0, weight);
                kernel.set_cell(1, 0, beside);
                expect_quotients(image, kernel);
            }
}

cDIBSection ranked(const cDIBSection& picture, Rank rank) {
    return each_channel(picture, [&](int x, int y, std::size_t c) {
        if (x < 1 || y < 1 || x >= picture.Width() - 1 || y >= picture.Height() - 1)
            return pixel_at(picture, x, y)[c];
        std::vector<int> nine;
        for (int i = 0; i < 9; ++i)
            nine.push_back(pixel_at(picture, x - 1 + i % 3, y - 1 + i / 3)[c]);
        return rank == Rank::Mean      ? std::accumulate(nine.begin(), nine.end(), 0) / 9
               : rank == Rank::Minimum ? std::ranges::min(nine)
                                       : std::ranges::max(nine);
    });
}

cDIBSection unsharpened(const cDIBSection& picture) {
    const cDIBSection blurred = convolved(picture, predefined_kernel(kBlur));
    return each_channel(picture, [&](int x, int y, std::size_t c) {
        return 2 * pixel_at(picture, x, y)[c] - pixel_at(blurred, x, y)[c];
    });
}

cDIBSection embossed(const cDIBSection& picture) {
    const cDIBSection relief = convolved(picture, predefined_kernel(kEmboss));
    return each_channel(relief, [&](int x, int y, std::size_t c) {
        return pixel_at(relief, x, y)[c] + 127; // borders too
    });
}

TEST(Filters, AgainstTheReferences) {
    for (const auto& [width, height] : odd_sizes()) {
        const cDIBSection original = random_picture(width, height, 5);
        for (const Rank rank : {Rank::Mean, Rank::Minimum, Rank::Maximum})
            expect_at_every_level(
                original, ranked(original, rank),
                [&](ImageView image, ImageView buffer) { rank_in_place(image, buffer, rank); });
        expect_at_every_level(original, unsharpened(original),
                              [](ImageView image, ImageView buffer) { unsharp(image, buffer); });
        expect_at_every_level(original, embossed(original), [](ImageView image, ImageView buffer) {
            emboss(image, buffer, predefined_kernel(kEmboss));
        });
    }
}

TEST(Filters, ReportEveryColumnInAscendingOrder) {
    for (const int half : {0, 1, 2, 3, 4}) {
        const long last = 3 * 3000 - 3 * half - 3;
        const FilterKernel kernel = random_kernel(2 * half + 1, 1, 1, 1);
        expect_events(
            3000, 12,
            [&](ImageView image, ImageView buffer, ProgressObserver* observer) {
                convolve_in_place(image, buffer, kernel, observer);
            },
            {last}, columns(3 * half, last));
    }
    expect_events(9, 9, unsharp, {21}, columns(3, 21), 2); // the blur completes as well
}

TEST(Filters, LargePicturesGoInStrips) {
    expect_strips([](ImageView image, ImageView buffer, ProgressObserver* observer) {
        convolve_in_place(image, buffer, predefined_kernel(kBlurMore), observer);
    });
    expect_strips([](ImageView image, ImageView buffer, ProgressObserver* observer) {
        rank_in_place(image, buffer, Rank::Maximum, observer);
    });
    expect_strips(unsharp);
    expect_strips([](ImageView image, ImageView buffer, ProgressObserver* observer) {
        emboss(image, buffer, predefined_kernel(kEmboss), observer);
    });
}

TEST(Filters, TinyPicturesStillReport) {
    const auto maximum = [](ImageView image, ImageView buffer, ProgressObserver* observer) {
        rank_in_place(image, buffer, Rank::Maximum, observer);
    };
    expect_events(2, 9, maximum, {0}, {});
    // Too low, not too narrow: the columns are walked although they hold nothing to do.
    expect_events(9, 2, maximum, {21}, columns(3, 21));
}

} // namespace
} // namespace kelvane::test
