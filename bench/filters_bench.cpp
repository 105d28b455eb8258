// Filters, combination and resampling beside OpenCV. Each pair has one name: `ours/...` is the
// whole operation as the program runs it, work buffer and copies included, `observed/...` the same
// with its columns reported, `large/...` that on a picture of 8000 x 6000.
#include "bench_pictures.h"

#include "engine/image_process.h"

#include <benchmark/benchmark.h>
#include <opencv2/imgproc.hpp>

#include <string>

namespace kelvane::bench {
namespace {

struct Pictures {
    cDIBSection image = random_picture(1);
    cDIBSection buffer = random_picture(2);
};

Pictures& pictures() {
    static Pictures shared;
    return shared;
}

cv::Mat cv_kernel(const cImageProcessDIB& engine) {
    const int half = engine.FilterArraySize() / 2;
    cv::Mat kernel(engine.FilterArraySize(), engine.FilterArraySize(), CV_32F);
    for (int y = -half; y <= half; ++y)
        for (int x = -half; x <= half; ++x)
            kernel.at<float>(y + half, x + half) = static_cast<float>(engine.FilterValue(x, y)) /
                                                   static_cast<float>(engine.FilterWeight());
    return kernel;
}

Pictures& large_pictures() {
    static Pictures shared{random_picture(1, kLargeWidth, kLargeHeight),
                           empty_picture(kLargeWidth, kLargeHeight)};
    return shared;
}

void ours(benchmark::State& state, cImageProcessDIB engine, Pictures& work) {
    for ([[maybe_unused]] auto _ : state)
        if (!engine.ProcessImage(work.image, work.buffer)) state.SkipWithError("refused");
}

// An observer that does nothing: measures the cost of reporting every column.
void ours_observed(benchmark::State& state, cImageProcessDIB engine, Pictures& work) {
    ProgressObserver observer;
    engine.set_observer(&observer);
    ours(state, std::move(engine), work);
}

template <typename Peer> void peer(benchmark::State& state, Peer run) {
    Pictures& work = pictures();
    const cv::Mat from = as_mat(work.image);
    cv::Mat to = as_mat(work.buffer);
    for ([[maybe_unused]] auto _ : state)
        run(from, to);
}

template <typename Peer>
void add_pair(const std::string& name, const cImageProcessDIB& engine, Peer run) {
    const auto add = [](const std::string& full_name, auto function) {
        benchmark::RegisterBenchmark(full_name.c_str(), function)->Unit(benchmark::kMillisecond);
    };
    add("ours/" + name, [engine](benchmark::State& state) { ours(state, engine, pictures()); });
    add("observed/" + name,
        [engine](benchmark::State& state) { ours_observed(state, engine, pictures()); });
    add("large/" + name,
        [engine](benchmark::State& state) { ours_observed(state, engine, large_pictures()); });
    add("peer/" + name, [run](benchmark::State& state) { peer(state, run); });
}

cImageProcessDIB predefined(int type) {
    cImageProcessDIB engine;
    engine.set_FilterType(type);
    return engine;
}

cImageProcessDIB custom(int size, int weight, int scale) {
    cImageProcessDIB engine;
    engine.set_FilterType(kCustom);
    engine.set_FilterArraySize(size);
    for (int y = -size / 2; y <= size / 2; ++y)
        for (int x = -size / 2; x <= size / 2; ++x)
            engine.set_FilterValue(x, y, ((3 * x + 5 * y * y + 11) % 7 - 2) * scale);
    engine.set_FilterWeight(weight);
    return engine;
}

void add_convolution(const std::string& name, const cImageProcessDIB& engine) {
    const cv::Mat kernel = cv_kernel(engine);
    add_pair(name, engine,
             [kernel](const cv::Mat& from, cv::Mat& to) { cv::filter2D(from, to, -1, kernel); });
}

void add_filters() {
    add_pair("blur", predefined(kBlur), [](const cv::Mat& from, cv::Mat& to) {
        cv::blur(from, to, {3, 3});
    });
    add_pair("blur_more", predefined(kBlurMore), [](const cv::Mat& from, cv::Mat& to) {
        cv::blur(from, to, {5, 5});
    });
    add_convolution("soften", predefined(kSoften));
    add_convolution("soften_more", predefined(kSoftenMore));
    add_convolution("sharpen", predefined(kSharpen));
    add_convolution("sharpen_more", predefined(kSharpenMore));
    add_convolution("emboss", predefined(kEmboss));
    add_pair("unsharp", predefined(kUnsharp), [](const cv::Mat& from, cv::Mat& to) {
        cv::blur(from, to, {3, 3});
        cv::addWeighted(from, 2, to, -1, 0, to);
    });
    add_convolution("custom_7x7", custom(7, 49, 1));
    add_convolution("custom_7x7_large", custom(7, 4900, 100));
    const cv::Mat square = cv::Mat::ones(3, 3, CV_8U);
    add_pair("minimum", predefined(kMinimumRank),
             [square](const cv::Mat& from, cv::Mat& to) { cv::erode(from, to, square); });
    add_pair("maximum", predefined(kMaximumRank),
             [square](const cv::Mat& from, cv::Mat& to) { cv::dilate(from, to, square); });
    add_pair("mean_rank", predefined(kMeanRank), [](const cv::Mat& from, cv::Mat& to) {
        cv::blur(from, to, {3, 3});
    });
}

void ours_add(benchmark::State& state) {
    Pictures& work = pictures();
    cImageProcessDIB engine;
    for ([[maybe_unused]] auto _ : state)
        engine.AddImages(work.buffer, work.image, -1, 0, 0, 0, 2, 3, 3, 3);
}

void peer_add(benchmark::State& state) {
    peer(state, [](const cv::Mat& from, cv::Mat& to) { cv::addWeighted(from, -1, to, 2, 6, to); });
}

void ours_negative(benchmark::State& state) {
    cImageProcessDIB engine;
    for ([[maybe_unused]] auto _ : state)
        engine.NegativeImage(pictures().image);
}

void peer_negative(benchmark::State& state) {
    cv::Mat image = as_mat(pictures().image);
    for ([[maybe_unused]] auto _ : state)
        cv::bitwise_not(image, image);
}

void ours_resample(benchmark::State& state) {
    const auto width = static_cast<int>(state.range(0));
    const int height = width * kHeight / kWidth;
    for ([[maybe_unused]] auto _ : state)
        benchmark::DoNotOptimize(pictures().image.Resample(height, width));
}

void peer_resample(benchmark::State& state) {
    const auto width = static_cast<int>(state.range(0));
    const int height = width * kHeight / kWidth;
    for ([[maybe_unused]] auto _ : state) {
        cv::Mat to;
        cv::resize(as_mat(pictures().image), to, {width, height}, 0, 0, cv::INTER_LINEAR);
        benchmark::DoNotOptimize(to.data);
    }
}

[[maybe_unused]] const bool registered = (add_filters(), true);

BENCHMARK(ours_add)->Name("ours/add")->Unit(benchmark::kMillisecond);
BENCHMARK(peer_add)->Name("peer/add")->Unit(benchmark::kMillisecond);
BENCHMARK(ours_negative)->Name("ours/negative")->Unit(benchmark::kMillisecond);
BENCHMARK(peer_negative)->Name("peer/negative")->Unit(benchmark::kMillisecond);
BENCHMARK(ours_resample)
    ->Name("ours/resample")
    ->Arg(kWidth / 2)
    ->Arg(kWidth * 2)
    ->Unit(benchmark::kMillisecond);
BENCHMARK(peer_resample)
    ->Name("peer/resample")
    ->Arg(kWidth / 2)
    ->Arg(kWidth * 2)
    ->Unit(benchmark::kMillisecond);

} // namespace
} // namespace kelvane::bench
