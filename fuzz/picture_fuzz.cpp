// The bytes of a picture file, through an operation and all the way to a script, which an
// independent reader checks.
#include "png_checksums.h"

#include "base/file_error.h"
#include "engine/image_process.h"
#include "export/script_reader.h"
#include "export/smooth_drawing.h"
#include "image/picture_reader.h"
#include "image/size_limit.h"

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <optional>
#include <string>
#include <unistd.h>

namespace kelvane {
namespace {

// Larger ones are only read: an operation and reading a script back cost far more.
constexpr int kLargestChecked = 200;
constexpr int kMostSmoothed = 4096; // pixels
constexpr double kSize = .25;

std::optional<cDIBSection> decoded(Bytes bytes) {
    try {
        return decode_picture(bytes);
    } catch (const FileError&) {
        return std::nullopt; // no picture: that is an answer
    }
}

std::string exported(const cDIBSection& picture, const ExportOptions& options,
                     ExportReport& report) {
    // In memory: on a disk each script would wait until it is there.
    static const std::filesystem::path file =
        "/dev/shm/kelvane-picture-fuzz-" + std::to_string(getpid()) + ".scr";
    report = Vectorize(picture.view(), file, options);
    std::ifstream in(file, std::ios::binary);
    std::string text{std::istreambuf_iterator<char>(in), {}};
    std::filesystem::remove(file);
    return text;
}

// One after the other: filters, tone, dithering, another size.
constexpr unsigned kOperations = kReserved + 5;

void operate(unsigned operation, cDIBSection& picture) {
    cImageProcessDIB engine;
    cDIBSection buffer = picture.Copy();
    if (operation > 0 && operation < kReserved) {
        engine.set_FilterType(static_cast<int>(operation));
        engine.ProcessImage(picture, buffer);
    }
    if (operation == kReserved) engine.GrayScale(picture);
    if (operation == kReserved + 1) engine.NegativeImage(picture);
    if (operation == kReserved + 2) engine.Lighten(picture, 40);
    if (operation == kReserved + 3) engine.Steinberg(picture, buffer);
    if (operation == kReserved + 4) picture = picture.Resample(29, 43);
}

std::vector<test::Path> outlines(const test::Script& script, std::int16_t shape) {
    if (shape == kShapePolygon) return script.polygons;
    if (shape == kShapeWire) return script.chains;
    std::vector<test::Path> paths;
    for (const test::Path& corners : script.rectangles) {
        const auto [left, bottom] = corners[0];
        const auto [right, top] = corners[1];
        paths.push_back({{left, bottom}, {right, bottom}, {right, top}, {left, top}});
    }
    return paths;
}

void stop_at(const std::string& fault) {
    if (fault.empty()) return;
    std::fputs(fault.c_str(), stderr);
    std::abort();
}

void check(const cDIBSection& picture, unsigned way, double tolerance) {
    ExportOptions options;
    options.size = kSize;
    options.optPoly = static_cast<std::int16_t>(way % 3);
    options.exp = way >= 3; // rectangles only line by line
    const auto drawing = [&](ExportReport& report) {
        return outlines(test::parse_script(exported(picture, options, report), kSize),
                        options.optPoly);
    };
    ExportReport report;
    const std::vector<test::Path> exact = drawing(report);
    stop_at(test::coverage_fault(exact, test::dark_cells(picture.view())));
    if (!options.exp || picture.Width() * picture.Height() > kMostSmoothed) return;
    options.smooth = tolerance;
    const std::vector<test::Path> smooth = drawing(report);
    stop_at(test::smooth_fault(smooth, exact, report.bridges, tolerance));
}

} // namespace
} // namespace kelvane

extern "C" std::size_t LLVMFuzzerMutate(std::uint8_t* data, std::size_t size, std::size_t most);

extern "C" std::size_t LLVMFuzzerCustomMutator(std::uint8_t* data, std::size_t size,
                                               std::size_t most, unsigned) {
    size = LLVMFuzzerMutate(data, size, most);
    kelvane::set_png_checksums({data, size});
    return size;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace kelvane;
    std::optional<cDIBSection> picture = decoded({data, size});
    if (!picture || !Render2(*picture)) return 0;
    // What is done with the picture depends on the bytes, so that a finding can be repeated.
    const unsigned choice = crc32(0, data, static_cast<uInt>(size));
    if (picture->Width() > kLargestChecked || picture->Height() > kLargestChecked) return 0;
    operate(choice % kOperations, *picture);
    BlackAndWhite2(picture->view(), picture->view(), 128);
    const unsigned drawing = choice / kOperations;
    check(*picture, drawing % 5, (5 + drawing / 5 % 46) / 100.);
    return 0;
}
