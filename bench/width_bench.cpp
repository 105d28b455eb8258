// The check of lines and gaps, and its opening beside OpenCV's with the same disc.
#include "black_white_pictures.h"
#include "export/disc.h"
#include "export/width_check.h"

#include <benchmark/benchmark.h>
#include <opencv2/imgproc.hpp>

#include <array>
#include <stdexcept>

namespace kelvane::bench {
namespace {

using MakePicture = cDIBSection (*)();

// The disc that is opened by and the widths of its rows. Odd: OpenCV moves what it opens by an even
// one.
constexpr int kDiameter = 13;
constexpr std::array<int, kDiameter> kDiscRows{5, 9, 11, 11, 13, 13, 13, 13, 13, 11, 11, 9, 5};

// From the picture to both reports, as an export does it.
void check(benchmark::State& state, MakePicture make) {
    const cDIBSection picture = make();
    const auto limit = static_cast<double>(state.range(0));
    for (auto _ : state) {
        const BitPicture drawn = drawn_pixels(picture.view());
        benchmark::DoNotOptimize(check_widths(drawn, WidthOf::Lines, limit));
        benchmark::DoNotOptimize(check_widths(drawn, WidthOf::Gaps, limit));
    }
}

void one_bit_a_pixel(benchmark::State& state, MakePicture make) {
    const cDIBSection picture = make();
    for (auto _ : state)
        benchmark::DoNotOptimize(drawn_pixels(picture.view()));
}

void open_ours(benchmark::State& state, MakePicture make) {
    const cDIBSection picture = make();
    const BitPicture drawn = drawn_pixels(picture.view());
    for (auto _ : state) {
        BitPicture opened = drawn;
        Disc(kDiameter).open(opened);
        benchmark::DoNotOptimize(opened);
    }
}

cv::Mat disc_of_opencv() {
    cv::Mat disc = cv::Mat::zeros(kDiameter, kDiameter, CV_8U);
    for (int y = 0; y < kDiameter; ++y)
        disc.row(y).colRange((kDiameter - kDiscRows[y]) / 2, (kDiameter + kDiscRows[y]) / 2) = 1;
    return disc;
}

void require_equal(const cv::Mat& theirs, BitPicture ours) {
    Disc(kDiameter).open(ours);
    for (int y = 0; y < kHeight; ++y)
        for (int x = 0; x < kWidth; ++x)
            if (ours.get(x, y) != (theirs.at<std::uint8_t>(y, x) != 0))
                throw std::runtime_error("the openings differ");
}

void open_opencv(benchmark::State& state, MakePicture make) {
    cv::setNumThreads(1);
    const cDIBSection picture = make();
    const BitPicture drawn = drawn_pixels(picture.view());
    cv::Mat bytes(kHeight, kWidth, CV_8U), opened;
    for (int y = 0; y < kHeight; ++y)
        for (int x = 0; x < kWidth; ++x)
            bytes.at<std::uint8_t>(y, x) = drawn.get(x, y) ? 255 : 0;
    const cv::Mat disc = disc_of_opencv();
    for (auto _ : state)
        cv::morphologyEx(bytes, opened, cv::MORPH_OPEN, disc, {-1, -1}, 1, cv::BORDER_CONSTANT, 0);
    require_equal(opened, drawn);
}

#define KELVANE_WIDTH_BENCH(picture)                                                               \
    BENCHMARK_CAPTURE(check, picture, &picture)                                                    \
        ->Unit(benchmark::kMillisecond)                                                            \
        ->Arg(3)                                                                                   \
        ->Arg(12)                                                                                  \
        ->Arg(40)                                                                                  \
        ->Arg(300);                                                                                \
    BENCHMARK_CAPTURE(one_bit_a_pixel, picture, &picture)->Unit(benchmark::kMillisecond);          \
    BENCHMARK_CAPTURE(open_ours, picture, &picture)->Unit(benchmark::kMillisecond);                \
    BENCHMARK_CAPTURE(open_opencv, picture, &picture)->Unit(benchmark::kMillisecond)

KELVANE_WIDTH_BENCH(lettering);
KELVANE_WIDTH_BENCH(photo_field);
KELVANE_WIDTH_BENCH(ordered_dither);
KELVANE_WIDTH_BENCH(checkerboard);

} // namespace
} // namespace kelvane::bench
