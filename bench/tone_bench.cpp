// Tone, reductions and diffusion beside OpenCV and ImageMagick. Each pair has one name: `ours/...`
// is the whole operation as the program runs it, `observed/...` the same with its columns reported,
// `large/...` that on a picture of 8000 x 6000, `peer/...` what it is measured against.
#include "bench_pictures.h"

#include "engine/image_process.h"

#include <benchmark/benchmark.h>
#include <opencv2/imgproc.hpp>
#include <wand/MagickWand.h>

#include <cmath>
#include <cstring>
#include <functional>
#include <string>

namespace kelvane::bench {
namespace {

struct Pictures {
    explicit Pictures(cDIBSection picture)
        : original(std::move(picture)), image(original.Copy()), buffer(original.Copy()) {}
    cDIBSection original;
    cDIBSection image;
    cDIBSection buffer;
};

Pictures& large_pictures() {
    static Pictures shared(random_picture(1, kLargeWidth, kLargeHeight));
    return shared;
}

void add(const std::string& name, std::function<void(benchmark::State&)> run) {
    benchmark::RegisterBenchmark(name.c_str(), [run](benchmark::State& state) {
        run(state);
    })->Unit(benchmark::kMillisecond);
}

// Operations that change what they measure start from the same pixels every time.
void restore(benchmark::State& state, Pictures& work) {
    state.PauseTiming();
    copy_pixels(work.original.view(), work.image.view());
    state.ResumeTiming();
}

using Ours = std::function<bool(cImageProcessDIB&, Pictures&)>;

void add_ours(const std::string& name, Pictures& work, const Ours& run) {
    const auto measure = [run](benchmark::State& state, Pictures& pictures,
                               ProgressObserver* observer) {
        cImageProcessDIB engine;
        engine.set_observer(observer);
        for ([[maybe_unused]] auto _ : state) {
            restore(state, pictures);
            if (!run(engine, pictures)) state.SkipWithError("refused");
        }
    };
    add("ours/" + name, [&, measure](benchmark::State& state) { measure(state, work, nullptr); });
    add("observed/" + name, [&, measure](benchmark::State& state) {
        ProgressObserver observer;
        measure(state, work, &observer);
    });
    add("large/" + name, [measure](benchmark::State& state) {
        ProgressObserver observer;
        measure(state, large_pictures(), &observer);
    });
}

void add_peer(const std::string& name, Pictures& work,
              const std::function<void(cv::Mat&, cv::Mat&)>& run) {
    add("peer/" + name, [&work, run](benchmark::State& state) {
        cv::Mat image = as_mat(work.image);
        cv::Mat buffer = as_mat(work.buffer);
        for ([[maybe_unused]] auto _ : state) {
            restore(state, work);
            run(image, buffer);
        }
    });
}

void add_tone(Pictures& work) {
    add_ours("grayscale", work, [](auto& e, Pictures& p) { return e.GrayScale(p.image); });
    add_peer("grayscale", work, [](cv::Mat& image, cv::Mat&) {
        static cv::Mat grey;
        cv::cvtColor(image, grey, cv::COLOR_BGR2GRAY);
        cv::cvtColor(grey, image, cv::COLOR_GRAY2BGR);
    });
    add_ours("negative", work, [](auto& e, Pictures& p) { return e.NegativeImage(p.image); });
    add_peer("negative", work, [](cv::Mat& image, cv::Mat&) { cv::bitwise_not(image, image); });
    add_ours("lighten", work, [](auto& e, Pictures& p) { return e.Lighten(p.image, 20); });
    add_ours("colourise", work, [](auto& e, Pictures& p) { return e.Colourise(p.image, 2.5f); });
    add_peer("lighten, colourise", work, [](cv::Mat& image, cv::Mat&) {
        static cv::Mat hls;
        cv::cvtColor(image, hls, cv::COLOR_BGR2HLS);
        cv::cvtColor(hls, image, cv::COLOR_HLS2BGR);
    });
    add_ours("darken", work, [](auto& e, Pictures& p) { return e.Fade(p.image, 240); });
    add_peer("darken", work,
             [](cv::Mat& image, cv::Mat&) { cv::convertScaleAbs(image, image, 240.0 / 255); });
    add_ours("noise", work, [](auto& e, Pictures& p) { return e.AddNoise(p.image, 30); });
}

void add_reductions(Pictures& work) {
    add_ours("bw", work,
             [](auto& e, Pictures& p) { return e.BlackAndWhite2(p.image, p.buffer, 128); });
    add_ours("line-art", work, [](auto& e, Pictures& p) {
        return e.LineArt2(p.image, p.buffer, 128, {true, true, false});
    });
    add_ours("edges", work,
             [](auto& e, Pictures& p) { return e.EdgeDetect2(p.image, p.buffer, 120); });
    add_peer("memory copy", work, [](cv::Mat& image, cv::Mat& buffer) {
        std::memcpy(buffer.data, image.data, image.total() * image.elemSize());
        benchmark::ClobberMemory();
    });
    add_peer("grey + threshold", work, [](cv::Mat& image, cv::Mat& buffer) {
        static cv::Mat grey;
        cv::cvtColor(image, grey, cv::COLOR_BGR2GRAY);
        cv::threshold(grey, grey, 128, 255, cv::THRESH_BINARY);
        cv::cvtColor(grey, buffer, cv::COLOR_GRAY2BGR);
    });
}

// Smooth shades with some grain, as photographs have them.
cDIBSection photograph() {
    cDIBSection picture = random_picture();
    for (int y = 0; y < kHeight; ++y)
        for (int x = 0; x < kWidth; ++x)
            for (int c = 0; c < 3; ++c) {
                std::uint8_t& byte = picture.view().pixel(x, y)[c];
                const double shade = std::sin(x / (90.0 + 31 * c)) + std::cos(y / (70.0 + 17 * c));
                byte = static_cast<std::uint8_t>(127 + 55 * shade + byte % 16);
            }
    return picture;
}

cPalette sixteen_colours() {
    std::vector<cPalette::Colour> colours;
    for (unsigned i = 0; i < 16; ++i) {
        const auto channel = [i](unsigned bit) {
            return static_cast<std::uint8_t>((i >> bit & 1) * (i & 8 ? 255 : 128));
        };
        colours.push_back({channel(2), channel(1), channel(0)});
    }
    return cPalette(colours);
}

// The peer's copy is made outside the clock.
void add_magick(const std::string& name, Pictures& work,
                const std::function<bool(MagickWand*)>& run) {
    add("peer/" + name, [&work, run](benchmark::State& state) {
        MagickSetResourceLimit(ThreadResource, 1);
        MagickWand* source = NewMagickWand();
        MagickConstituteImage(source, kWidth, kHeight, "BGR", CharPixel,
                              work.original.DIBSectionBitsPtr());
        for ([[maybe_unused]] auto _ : state) {
            state.PauseTiming();
            MagickWand* wand = CloneMagickWand(source);
            state.ResumeTiming();
            if (!run(wand)) state.SkipWithError("refused");
            state.PauseTiming();
            DestroyMagickWand(wand);
            state.ResumeTiming();
        }
        DestroyMagickWand(source);
    });
}

bool magick_palette(MagickWand* wand) {
    static MagickWand* const palette = [] {
        const cPalette colours = sixteen_colours();
        MagickWand* made = NewMagickWand();
        MagickConstituteImage(made, 16, 1, "RGB", CharPixel, colours.colours().data());
        return made;
    }();
    return MagickRemapImage(wand, palette, FloydSteinbergDitherMethod) == MagickTrue;
}

bool magick_two_greys(MagickWand* wand) {
    return MagickQuantizeImage(wand, 2, GRAYColorspace, 0, MagickTrue, MagickFalse) == MagickTrue;
}

void add_diffusion(Pictures& work) {
    add_ours("steinberg", work,
             [](auto& e, Pictures& p) { return e.Steinberg(p.image, p.buffer); });
    add_magick("steinberg", work, magick_two_greys);
    add_ours("palette of 16", work, [](auto& e, Pictures& p) {
        static const cPalette palette = sixteen_colours();
        return e.ApplyPalette(p.image, p.buffer, palette);
    });
    add_magick("palette of 16", work, magick_palette);
}

} // namespace
} // namespace kelvane::bench

int main(int argc, char** argv) {
    using namespace kelvane::bench;
    MagickWandGenesis();
    Pictures noise(random_picture());
    Pictures photo(photograph());
    add_tone(noise);
    add_reductions(noise);
    add_diffusion(photo);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    MagickWandTerminus();
}
