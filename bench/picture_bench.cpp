// Geometry, reductions that find their limits, and clean-up beside OpenCV. Each pair has one name:
// `ours/...` is the whole operation as the program runs it, from 24 bits a pixel to 24 bits a
// pixel, `peer/...` what it is measured against.
#include "bench_pictures.h"
#include "black_white_pictures.h"

#include "engine/image_process.h"

#include <benchmark/benchmark.h>
#include <opencv2/imgproc.hpp>

#include <cstring>
#include <functional>
#include <string>

namespace kelvane::bench {
namespace {

void add(const std::string& name, const std::function<void(benchmark::State&)>& run) {
    benchmark::RegisterBenchmark(name.c_str(), [run](benchmark::State& state) {
        run(state);
    })->Unit(benchmark::kMillisecond);
}

// Operations that change what they measure start from the same picture every time.
void add_ours(const std::string& name, const cDIBSection& original,
              const std::function<bool(cImageProcessDIB&, cDIBSection&)>& run) {
    add("ours/" + name, [&original, run](benchmark::State& state) {
        cImageProcessDIB engine;
        for ([[maybe_unused]] auto _ : state) {
            state.PauseTiming();
            cDIBSection image = original.Copy();
            state.ResumeTiming();
            if (!run(engine, image)) state.SkipWithError("refused");
            state.PauseTiming();
            image.ClearUp();
            state.ResumeTiming();
        }
    });
}

void add_peer(const std::string& name, cDIBSection& original,
              const std::function<void(const cv::Mat&, cv::Mat&)>& run) {
    add("peer/" + name, [&original, run](benchmark::State& state) {
        const cv::Mat from = as_mat(original);
        cv::Mat to;
        for ([[maybe_unused]] auto _ : state)
            run(from, to);
    });
}

void add_geometry(cDIBSection& picture) {
    add_ours("mirror", picture, [](auto& engine, auto& image) { return engine.Mirror(image); });
    add_peer("mirror", picture, [](const cv::Mat& from, cv::Mat& to) { cv::flip(from, to, 1); });
    add_ours("flip", picture, [](auto& engine, auto& image) { return engine.Flip(image); });
    add_peer("flip", picture, [](const cv::Mat& from, cv::Mat& to) { cv::flip(from, to, 0); });
    add_ours("rotate 180", picture,
             [](auto& engine, auto& image) { return engine.RotateHalf(image); });
    add_peer("rotate 180", picture,
             [](const cv::Mat& from, cv::Mat& to) { cv::rotate(from, to, cv::ROTATE_180); });
    add_ours("rotate 90", picture,
             [](auto& engine, auto& image) { return engine.RotateRight(image); });
    add_ours("rotate 270", picture,
             [](auto& engine, auto& image) { return engine.RotateLeft(image); });
    add_peer("rotate 90", picture, [](const cv::Mat& from, cv::Mat& to) {
        cv::rotate(from, to, cv::ROTATE_90_CLOCKWISE);
    });
    add_ours("dark bounds", picture,
             [](auto& engine, auto& image) { return engine.DarkBounds(image).has_value(); });
}

cv::Mat grey_of(const cv::Mat& from) {
    static cv::Mat grey;
    cv::cvtColor(from, grey, cv::COLOR_BGR2GRAY);
    return grey;
}

void add_reductions(cDIBSection& picture) {
    add_ours("bw auto", picture, [](auto& engine, auto& image) {
        return engine.BlackAndWhite2(image, image, *engine.OtsuLimit(image));
    });
    add_peer("bw auto", picture, [](const cv::Mat& from, cv::Mat& to) {
        cv::threshold(grey_of(from), to, 0, 255, cv::THRESH_OTSU);
    });
    for (const int size : {3, 31, 301, 999}) {
        const std::string name = "local-bw " + std::to_string(size);
        add_ours(name, picture, [size](auto& engine, auto& image) {
            return engine.LocalBlackWhite(image, image, size, 10);
        });
        add_peer(name, picture, [size](const cv::Mat& from, cv::Mat& to) {
            cv::adaptiveThreshold(grey_of(from), to, 255, cv::ADAPTIVE_THRESH_MEAN_C,
                                  cv::THRESH_BINARY, size, 10);
        });
    }
}

// The peer labels the dark areas of a picture of bytes, no more.
void add_despeckle(const std::string& name, cDIBSection& picture) {
    add_ours("despeckle, " + name, picture,
             [](auto& engine, auto& image) { return engine.Despeckle(image, 10); });
    add_peer("despeckle, " + name, picture,
             [dark = cv::Mat()](const cv::Mat& from, cv::Mat& to) mutable {
                 if (dark.empty()) dark = 255 - grey_of(from);
                 cv::connectedComponents(dark, to, 8);
             });
}

// Dots and holes of one to four pixels.
cDIBSection noisy_scan() {
    cDIBSection picture = lettering();
    std::mt19937 random(3);
    for (int i = 0; i < 100000; ++i) {
        const auto x = static_cast<int>(random() % (kWidth - 1));
        const auto y = static_cast<int>(random() % (kHeight - 1));
        const int value = random() % 3 == 0 ? 0 : 255;
        std::memset(picture.view().pixel(x, y), value, random() % 2 == 0 ? 3 : 6);
        if (random() % 2 == 0) std::memset(picture.view().pixel(x, y + 1), value, 6);
    }
    return picture;
}

[[maybe_unused]] const bool registered = [] {
    static cDIBSection random = random_picture(), letters = lettering(), scan = noisy_scan(),
                       photo = photo_field(), dither = ordered_dither(), board = checkerboard(),
                       noise = random_picture();
    cImageProcessDIB().BlackAndWhite2(noise, noise, 128);
    add_geometry(random);
    add_reductions(random);
    add_despeckle("lettering", letters);
    add_despeckle("noisy scan", scan);
    add_despeckle("photo", photo);
    add_despeckle("ordered dither", dither);
    add_despeckle("checkerboard", board);
    add_despeckle("noise", noise);
    return true;
}();

} // namespace
} // namespace kelvane::bench
