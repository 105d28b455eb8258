// Geometry, automatic limits and clean-up beside OpenCV. Each pair has one name: `ours/...` is the
// whole operation as the program runs it, `peer/...` what it is measured against.
#include "bench_pictures.h"
#include "black_white_pictures.h"

#include "engine/image_process.h"

#include <benchmark/benchmark.h>
#include <opencv2/imgproc.hpp>

#include <functional>
#include <string>

namespace kelvane::bench {
namespace {

void add(const std::string& name, const std::function<void()>& work) {
    benchmark::RegisterBenchmark(name.c_str(), [work](benchmark::State& state) {
        for ([[maybe_unused]] auto _ : state)
            work();
    })->Unit(benchmark::kMillisecond);
}

cDIBSection& picture() {
    static cDIBSection shared = random_picture();
    return shared;
}

void add_ours(const std::string& name, bool (cImageProcessDIB::*run)(cDIBSection&)) {
    add("ours/" + name, [run] { (cImageProcessDIB().*run)(picture()); });
}

void add_peer(const std::string& name, const std::function<void(const cv::Mat&, cv::Mat&)>& run) {
    add("peer/" + name, [run] {
        static cDIBSection from = random_picture();
        static cv::Mat to;
        run(as_mat(from), to);
    });
}

void add_geometry() {
    add_ours("mirror", &cImageProcessDIB::Mirror);
    add_peer("mirror", [](const cv::Mat& from, cv::Mat& to) { cv::flip(from, to, 1); });
    add_ours("flip", &cImageProcessDIB::Flip);
    add_peer("flip", [](const cv::Mat& from, cv::Mat& to) { cv::flip(from, to, 0); });
    add_ours("rotate 180", &cImageProcessDIB::RotateHalf);
    add_peer("rotate 180",
             [](const cv::Mat& from, cv::Mat& to) { cv::rotate(from, to, cv::ROTATE_180); });
    add_ours("rotate 90", &cImageProcessDIB::RotateRight);
    add_peer("rotate 90", [](const cv::Mat& from, cv::Mat& to) {
        cv::rotate(from, to, cv::ROTATE_90_CLOCKWISE);
    });
    add_ours("rotate 270", &cImageProcessDIB::RotateLeft);
    add_peer("rotate 270", [](const cv::Mat& from, cv::Mat& to) {
        cv::rotate(from, to, cv::ROTATE_90_COUNTERCLOCKWISE);
    });
    add("ours/dark bounds", [] { cImageProcessDIB().DarkBounds(picture()); });
}

[[maybe_unused]] const bool registered = (add_geometry(), true);

} // namespace
} // namespace kelvane::bench
