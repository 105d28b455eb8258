#include "process/filters.h"

#include "process/reference.h"
#include "support/every_level.h"
#include "support/pictures.h"
#include "support/recording_observer.h"

#include <limits>
#include <random>

namespace kelvane {
namespace {

using namespace test;

constexpr std::int32_t kLeast = std::numeric_limits<std::int32_t>::min();
constexpr std::int32_t kMost = std::numeric_limits<std::int32_t>::max();

void expect_convolution(const FilterKernel& kernel, int width, int height) {
    const cDIBSection original = random_picture(width, height, 7);
    const cDIBSection expected = convolved(original, kernel);
    at_every_level([&] {
        cDIBSection image = original.Copy();
        cDIBSection buffer = random_picture(width, height, 8);
        convolve_in_place(image.view(), buffer.view(), kernel);
        EXPECT_TRUE(same_pixels(image, expected));
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

TEST(Convolution, LeastSumByMinusOneIsClamped) {
    FilterKernel kernel(1, -1);
    kernel.set_cell(0, 0, kLeast);
    expect_convolution(kernel, 40, 3);
    EXPECT_EQ(pixel_at(convolved(flat_picture(1, 1, 1, 2, 3), kernel), 0, 0),
              (std::array{255, 0, 255}));
}

TEST(Convolution, AllCellsZeroGiveBlack) {
    expect_convolution(FilterKernel(3, 1), 20, 5);
}

// The narrow path multiplies by a reciprocal: every sum it may meet, many weights.
TEST(Convolution, DividesExactly) {
    cDIBSection image = black_picture(256, 1);
    for (int x = 0; x < 256; ++x)
        for (int channel = 0; channel < 3; ++channel)
            image.view().pixel(x, 0)[channel] = static_cast<std::uint8_t>(x);
    for (const std::int32_t factor : {1, 2, 127, 128, -128})
        for (std::int32_t weight = 1; weight < 33000; weight += weight < 600 ? 1 : 1009) {
            FilterKernel kernel(1, weight);
            kernel.set_cell(0, 0, factor);
            const cDIBSection expected = convolved(image, kernel);
            at_every_level([&] {
                cDIBSection result = image.Copy();
                convolve(image.view(), result.view(), kernel);
                ASSERT_TRUE(same_pixels(result, expected)) << factor << " / " << weight;
            });
            ASSERT_FALSE(HasFailure());
        }
}

// The wide path multiplies by a reciprocal in single or, from 16385 on, in double precision. With
// the weight for a coefficient every sum stands beside a whole quotient, on it or one below.
TEST(Convolution, DividesWideSumsExactly) {
    cDIBSection image = black_picture(256 * 3, 3);
    for (int x = 0; x < image.Width(); ++x)
        for (int channel = 0; channel < 3; ++channel)
            image.view().pixel(x, 1)[channel] = static_cast<std::uint8_t>(x % 3 == 1 ? x / 3 : 1);
    for (const std::int32_t magnitude :
         {129, 257, 1000, 4900, 8191, 16383, 16384, 16385, 16411, 32767, 40000, 8000000})
        for (const std::int32_t weight : {magnitude, -magnitude})
            for (const std::int32_t beside : {-1, 0, 1}) {
                FilterKernel kernel(3, weight);
                kernel.set_cell(0, 0, weight);
                kernel.set_cell(1, 0, beside);
                const cDIBSection expected = convolved(image, kernel);
                at_every_level([&] {
                    cDIBSection result = image.Copy();
                    convolve(image.view(), result.view(), kernel);
                    EXPECT_TRUE(same_pixels(result, expected)) << weight << ' ' << beside;
                });
            }
}

// Wider than one stretch, for both ways of walking.
TEST(Convolution, WidePictures) {
    expect_convolution(predefined_kernel(kSoftenMore), 2100, 7);
    expect_convolution(random_kernel(7, 2, 9, 3), 2100, 9);
}

TEST(Convolution, PredefinedWeightsAndCentres) {
    const auto weight = [](int type) { return predefined_kernel(type).weight(); };
    EXPECT_EQ(weight(kBlur), 9);
    EXPECT_EQ(weight(kBlurMore), 25);
    EXPECT_EQ(weight(kSoften), 12);
    EXPECT_EQ(weight(kSoftenMore), 44);
    EXPECT_EQ(weight(kSharpen), 7);
    EXPECT_EQ(weight(kSharpenMore), 1);
    EXPECT_EQ(weight(kEmphasizeFirst), 20);
    EXPECT_EQ(weight(kEmphasizeSecond), 1);
    EXPECT_EQ(predefined_kernel(kSoften).cell(0, 0), 4);
    EXPECT_EQ(predefined_kernel(kSoftenMore).cell(0, 0), 12);
    EXPECT_EQ(predefined_kernel(kSoftenMore).cell(-1, 1), 2);
    EXPECT_EQ(predefined_kernel(kSharpenMore).cell(1, 1), 0);
    // Flat grey of 100 stays: (15 x 100 - 8 x 100) / 7.
    const cDIBSection grey = flat_picture(5, 5, 100, 100, 100);
    EXPECT_TRUE(same_pixels(convolved(grey, predefined_kernel(kSharpen)), grey));
}

TEST(Rank, AgainstTheReference) {
    for (const Rank rank : {Rank::Mean, Rank::Minimum, Rank::Maximum})
        for (const auto& [width, height] : odd_sizes()) {
            const cDIBSection original = random_picture(width, height, 5);
            const cDIBSection expected = ranked(original, rank);
            at_every_level([&, width = width, height = height] {
                cDIBSection image = original.Copy();
                cDIBSection buffer = black_picture(width, height);
                rank_in_place(image.view(), buffer.view(), rank);
                EXPECT_TRUE(same_pixels(image, expected));
            });
        }
}

TEST(Filters, UnsharpIsTwiceThePictureLessItsBlur) {
    for (const auto& [width, height] : odd_sizes()) {
        const cDIBSection original = random_picture(width, height, 6);
        const cDIBSection blurred = convolved(original, predefined_kernel(kBlur));
        cDIBSection expected = original.Copy();
        for (int y = 0; y < height; ++y)
            for (int byte = 0; byte < 3 * width; ++byte)
                expected.view().row(y)[byte] =
                    clamped(2 * original.view().row(y)[byte] - blurred.view().row(y)[byte]);
        at_every_level([&, width = width, height = height] {
            cDIBSection image = original.Copy();
            cDIBSection buffer = black_picture(width, height);
            unsharp(image.view(), buffer.view());
            EXPECT_TRUE(same_pixels(image, expected));
        });
    }
}

TEST(Filters, EmbossLiftsBordersAndTinyPicturesToo) {
    for (const auto& [width, height] : odd_sizes()) {
        const cDIBSection original = random_picture(width, height, 6);
        cDIBSection expected = convolved(original, predefined_kernel(kEmboss));
        for (int y = 0; y < height; ++y)
            for (int byte = 0; byte < 3 * width; ++byte)
                expected.view().row(y)[byte] = clamped(expected.view().row(y)[byte] + 127);
        at_every_level([&, width = width, height = height] {
            cDIBSection image = original.Copy();
            cDIBSection buffer = black_picture(width, height);
            emboss(image.view(), buffer.view(), predefined_kernel(kEmboss));
            EXPECT_TRUE(same_pixels(image, expected));
        });
    }
    cDIBSection flat = flat_picture(4, 4, 10, 20, 30);
    cDIBSection buffer = black_picture(4, 4);
    emboss(flat.view(), buffer.view(), predefined_kernel(kEmboss));
    EXPECT_EQ(pixel_at(flat, 1, 1), (std::array{127, 127, 127}));
    EXPECT_EQ(pixel_at(flat, 0, 0), (std::array{137, 147, 157}));
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
    cDIBSection narrow_image = random_picture(2, 9, 1);
    cDIBSection narrow_buffer = black_picture(2, 9);
    RecordingObserver narrow;
    rank_in_place(narrow_image.view(), narrow_buffer.view(), Rank::Maximum, &narrow);
    EXPECT_EQ(narrow.maxima, std::vector<long>{0});
    EXPECT_TRUE(narrow.positions.empty());
    EXPECT_EQ(narrow.times.size(), 1u);

    // Too low, not too narrow: the columns are walked although they hold nothing to do.
    cDIBSection low_image = random_picture(9, 2, 1);
    cDIBSection low_buffer = black_picture(9, 2);
    RecordingObserver low;
    rank_in_place(low_image.view(), low_buffer.view(), Rank::Minimum, &low);
    EXPECT_EQ(low.positions, columns(3, 21));
}

TEST(Filters, CompositesCompleteTwice) {
    cDIBSection image = random_picture(9, 9, 1);
    cDIBSection buffer = black_picture(9, 9);
    RecordingObserver observer;
    unsharp(image.view(), buffer.view(), &observer);
    EXPECT_EQ(observer.positions, columns(3, 21));
    EXPECT_EQ(observer.times.size(), 2u);
}

} // namespace
} // namespace kelvane
