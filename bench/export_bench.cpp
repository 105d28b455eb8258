// A picture in memory to a text of its outlines on disk: our export beside potrace.
//
// potrace runs with curve fitting off and no despeckling, and its polygons are printed by the
// cheapest text writer there could be: a plain line per point through the same block writes.
#include "black_white_pictures.h"
#include "export/script_text.h"
#include "export/shape_writers.h"
#include "export/vectorize.h"

#include <benchmark/benchmark.h>
#include <potracelib.h>

#include <charconv>
#include <cstdio>
#include <filesystem>
#include <malloc.h>
#include <memory>
#include <string>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>
#include <vector>

namespace kelvane::bench {
namespace {

using MakePicture = cDIBSection (*)();

// In memory: ours waits until its file is on the disk, peers do not.
std::filesystem::path output_file() {
    return "/dev/shm/kelvane-export-bench.scr";
}

void export_ours(const cDIBSection& picture, ShapeKind shape, double smooth = 0) {
    ExportOptions options;
    options.smooth = smooth;
    options.lay = 21;
    options.unit = 3;
    options.size = .1;
    options.optPoly = shape;
    benchmark::DoNotOptimize(Vectorize(picture.view(), output_file(), options));
}

class PotraceBitmap {
  public:
    explicit PotraceBitmap(const cDIBSection& picture) {
        constexpr int kWordBits = static_cast<int>(8 * sizeof(potrace_word));
        bitmap_.w = picture.Width();
        bitmap_.h = picture.Height();
        bitmap_.dy = (bitmap_.w + kWordBits - 1) / kWordBits;
        words_.resize(static_cast<std::size_t>(bitmap_.dy) * bitmap_.h);
        bitmap_.map = words_.data();
        for (int y = 0; y < bitmap_.h; ++y)
            for (int x = 0; x < bitmap_.w; ++x)
                if (picture.view().pixel(x, y)[0] < 129)
                    words_[static_cast<std::size_t>(y) * bitmap_.dy + x / kWordBits] |=
                        potrace_word{1} << (kWordBits - 1 - x % kWordBits);
    }
    const potrace_bitmap_t* get() const { return &bitmap_; }

  private:
    potrace_bitmap_t bitmap_{};
    std::vector<potrace_word> words_;
};

char* print_point(const potrace_dpoint_t& point, char* to) {
    to = std::to_chars(to, to + 32, point.x).ptr;
    *to++ = ' ';
    to = std::to_chars(to, to + 32, point.y).ptr;
    *to++ = '\n';
    return to;
}

void print_paths(const potrace_path_t* path) {
    const std::unique_ptr<std::FILE, int (*)(std::FILE*)> file(
        std::fopen(output_file().c_str(), "wb"), std::fclose);
    std::vector<char> block(1 << 20);
    char* end = block.data();
    for (; path; path = path->next) {
        const potrace_curve_t& curve = path->curve;
        for (int i = 0; i < curve.n; ++i) {
            // Without fitting every segment is a corner: its tip, then its end.
            end = print_point(curve.c[i][1], end);
            end = print_point(curve.c[i][2], end);
            if (end > block.data() + block.size() - 256) {
                std::fwrite(block.data(), 1, static_cast<std::size_t>(end - block.data()),
                            file.get());
                end = block.data();
            }
        }
    }
    std::fwrite(block.data(), 1, static_cast<std::size_t>(end - block.data()), file.get());
}

void export_potrace(const cDIBSection& picture) {
    const std::unique_ptr<potrace_param_t, void (*)(potrace_param_t*)> parameters(
        potrace_param_default(), potrace_param_free);
    parameters->turdsize = 0;
    parameters->alphamax = 0;
    parameters->opticurve = 0;
    const PotraceBitmap bitmap(picture);
    const std::unique_ptr<potrace_state_t, void (*)(potrace_state_t*)> state(
        potrace_trace(parameters.get(), bitmap.get()), potrace_state_free);
    if (!state || state->status != POTRACE_STATUS_OK) throw std::runtime_error("potrace failed");
    print_paths(state->plist);
}

// Memory that `work` takes at its peak beyond what the process held before, in megabytes: measured
// in a child process of its own.
template <typename Work> double peak_megabytes(Work work) {
    malloc_trim(0); // what the heap keeps from earlier pictures would hide what the child takes
    const auto peak_of_child = [](const auto& run) {
        const pid_t child = fork();
        if (child == 0) {
            run();
            _exit(0);
        }
        int status = 0;
        rusage usage{};
        wait4(child, &status, 0, &usage);
        return static_cast<double>(usage.ru_maxrss) / 1024;
    };
    return peak_of_child(work) - peak_of_child([] {});
}

template <typename Work> void measure(benchmark::State& state, Work work) {
    const double peak = peak_megabytes(work);
    for (auto _ : state)
        work();
    const auto bytes = static_cast<double>(std::filesystem::file_size(output_file()));
    state.counters["peak_MB"] = peak;
    state.counters["script_MB"] = bytes / 1e6;
    state.SetBytesProcessed(static_cast<std::int64_t>(bytes) * state.iterations());
    std::filesystem::remove(output_file());
}

void export_polygons(benchmark::State& state, MakePicture make) {
    const cDIBSection picture = make();
    measure(state, [&] { export_ours(picture, kShapePolygon); });
}

void export_wires(benchmark::State& state, MakePicture make) {
    const cDIBSection picture = make();
    measure(state, [&] { export_ours(picture, kShapeWire); });
}

void export_smooth_polygons(benchmark::State& state, MakePicture make) {
    const cDIBSection picture = make();
    measure(state, [&] { export_ours(picture, kShapePolygon, kMostSmoothing); });
}

void potrace_peer(benchmark::State& state, MakePicture make) {
    const cDIBSection picture = make();
    measure(state, [&] { export_potrace(picture); });
}

// The writer alone: every pixel a rectangle of its own.
void writer_only(benchmark::State& state) {
    ExportOptions options;
    options.optPoly = kShapeRectangle;
    options.unit = 3;
    options.size = .1;
    std::uint64_t bytes = 0;
    for (auto _ : state) {
        SafeFile file(output_file());
        ScriptText text(&file, options, kWidth, kHeight);
        for (int y = 0; y < kHeight; y += 2)
            for (int x = 0; x < kWidth; x += 2)
                write_rectangle(text, {x, x + 1}, y);
        text.finish();
        bytes = text.bytes();
    }
    state.SetBytesProcessed(static_cast<std::int64_t>(bytes) * state.iterations());
    std::filesystem::remove(output_file());
}

#define KELVANE_EXPORT_BENCH(picture)                                                              \
    BENCHMARK_CAPTURE(export_polygons, picture, &picture)->Unit(benchmark::kMillisecond);          \
    BENCHMARK_CAPTURE(export_wires, picture, &picture)->Unit(benchmark::kMillisecond);             \
    BENCHMARK_CAPTURE(export_smooth_polygons, picture, &picture)->Unit(benchmark::kMillisecond);   \
    BENCHMARK_CAPTURE(potrace_peer, picture, &picture)->Unit(benchmark::kMillisecond)

KELVANE_EXPORT_BENCH(lettering);
KELVANE_EXPORT_BENCH(photo_field);
KELVANE_EXPORT_BENCH(ordered_dither);
KELVANE_EXPORT_BENCH(checkerboard);
BENCHMARK(writer_only)->Unit(benchmark::kMillisecond);

} // namespace
} // namespace kelvane::bench
