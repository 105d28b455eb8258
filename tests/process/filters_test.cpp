#include "process/filters.h"

#include "process/reference.h"
#include "support/recording_observer.h"

#include <limits>
#include <numeric>
#include <random>

namespace kelvane {
namespace {

using namespace test;

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
    EXPECT_EQ(pixel_at(convolved(flat_picture(1, 1, 1, 2, 3), kernel), 0, 0), (Bgr{255, 0, 255}));
    expect_convolution(FilterKernel(3, 1), 20, 5); // all cells zero
    // Wider than one stretch, for both ways of walking.
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

TEST(Convolution, PredefinedWeightsAndCentres) {
    const int types[] = {kBlur,    kBlurMore,    kSoften,         kSoftenMore,
                         kSharpen, kSharpenMore, kEmphasizeFirst, kEmphasizeSecond};
    const std::pair<int, int> expected[] = {{9, 1},  {25, 1}, {12, 4},  {44, 12},
                                            {7, 15}, {1, 5},  {20, 15}, {1, 15}};
    for (std::size_t i = 0; i < std::size(types); ++i) {
        const FilterKernel kernel = predefined_kernel(types[i]);
        EXPECT_EQ(std::pair(kernel.weight(), kernel.cell(0, 0)), expected[i]) << types[i];
    }
    EXPECT_EQ(predefined_kernel(kSoftenMore).cell(-1, 1), 2);
    EXPECT_EQ(predefined_kernel(kSharpenMore).cell(1, 1), 0);
    // Flat grey of 100 stays: (15 x 100 - 8 x 100) / 7.
    const cDIBSection grey = flat_picture(5, 5, 100, 100, 100);
    EXPECT_TRUE(same_pixels(convolved(grey, predefined_kernel(kSharpen)), grey));
}

cDIBSection ranked(const cDIBSection& picture, Rank rank) {
    return each_pixel(picture, [&](int x, int y) {
        Bgr colour = pixel_at(picture, x, y);
        if (x < 1 || y < 1 || x >= picture.Width() - 1 || y >= picture.Height() - 1) return colour;
        for (std::size_t c = 0; c < 3; ++c) {
            std::vector<int> nine;
            for (int i = 0; i < 9; ++i)
                nine.push_back(pixel_at(picture, x - 1 + i % 3, y - 1 + i / 3)[c]);
            std::sort(nine.begin(), nine.end());
            colour[c] = rank == Rank::Mean      ? std::accumulate(nine.begin(), nine.end(), 0) / 9
                        : rank == Rank::Minimum ? nine.front()
                                                : nine.back();
        }
        return colour;
    });
}

cDIBSection unsharpened(const cDIBSection& picture) {
    const cDIBSection blurred = convolved(picture, predefined_kernel(kBlur));
    return each_pixel(picture, [&](int x, int y) {
        const Bgr p = pixel_at(picture, x, y);
        const Bgr b = pixel_at(blurred, x, y);
        return Bgr{2 * p[0] - b[0], 2 * p[1] - b[1], 2 * p[2] - b[2]};
    });
}

cDIBSection embossed(const cDIBSection& picture) {
    const cDIBSection relief = convolved(picture, predefined_kernel(kEmboss));
    return each_pixel(relief, [&](int x, int y) {
        const Bgr p = pixel_at(relief, x, y);
        return Bgr{p[0] + 127, p[1] + 127, p[2] + 127}; // borders too
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
    const cDIBSection flat = embossed(flat_picture(4, 4, 10, 20, 30));
    EXPECT_EQ(pixel_at(flat, 1, 1), (Bgr{127, 127, 127}));
    EXPECT_EQ(pixel_at(flat, 0, 0), (Bgr{137, 147, 157}));
}

TEST(Filters, ReportEveryColumnInAscendingOrder) {
    cDIBSection image = random_picture(3000, 12, 1);
    cDIBSection buffer = black_picture(3000, 12);
    for (const int half : {0, 1, 2, 3, 4}) {
        RecordingObserver observer;
        convolve_in_place(image.view(), buffer.view(), random_kernel(2 * half + 1, 1, 1, 1),
                          &observer);
        const long last = 3 * 3000 - 3 * half - 3;
        EXPECT_EQ(observer.maxima, std::vector<long>{last});
        EXPECT_EQ(observer.positions, columns(3 * half, last));
        EXPECT_EQ(observer.times.size(), 1u);
    }
}

TEST(Filters, TinyPicturesStillReport) {
    const auto told = [](int width, int height) {
        RecordingObserver observer;
        rank_in_place(black_picture(width, height).view(), black_picture(width, height).view(),
                      Rank::Maximum, &observer);
        return observer;
    };
    const RecordingObserver narrow = told(2, 9);
    EXPECT_EQ(narrow.maxima, std::vector<long>{0});
    EXPECT_TRUE(narrow.positions.empty());
    EXPECT_EQ(narrow.times.size(), 1u);
    // Too low, not too narrow: the columns are walked although they hold nothing to do.
    EXPECT_EQ(told(9, 2).positions, columns(3, 21));
}

TEST(Filters, CompositesCompleteTwice) {
    cDIBSection image = random_picture(9, 9, 1);
    RecordingObserver observer;
    unsharp(image.view(), black_picture(9, 9).view(), &observer);
    EXPECT_EQ(observer.positions, columns(3, 21));
    EXPECT_EQ(observer.times.size(), 2u);
}

} // namespace
} // namespace kelvane
