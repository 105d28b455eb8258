// The bytes of a picture file all the way to a script, which an independent reader checks.
#include "export/script_reader.h"
#include "export/vectorize.h"
#include "image/file_error.h"
#include "image/picture_reader.h"
#include "image/size_limit.h"
#include "reduce/black_white.h"

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

// Reading a script back costs far more than writing it.
constexpr int kLargestChecked = 64;
constexpr double kSize = .25;

std::optional<cDIBSection> decoded(std::span<const std::uint8_t> bytes) {
    try {
        return decode_picture(bytes);
    } catch (const FileError&) {
        return std::nullopt; // no picture: that is an answer
    }
}

std::string exported(const cDIBSection& picture, const ExportOptions& options) {
    // In memory: on a disk each script would wait until it is there.
    static const std::filesystem::path file =
        "/dev/shm/kelvane-picture-fuzz-" + std::to_string(getpid()) + ".scr";
    Vectorize(picture.view(), file, options);
    std::ifstream in(file, std::ios::binary);
    std::string text{std::istreambuf_iterator<char>(in), {}};
    std::filesystem::remove(file);
    return text;
}

void check(const cDIBSection& picture, ShapeKind shape) {
    ExportOptions options;
    options.size = kSize;
    options.optPoly = shape;
    const test::Script script = test::parse_script(exported(picture, options), kSize);
    const std::string fault = test::coverage_fault(
        shape == kShapeWire ? script.chains : script.polygons, test::dark_cells(picture.view()));
    if (fault.empty()) return;
    std::fputs(fault.c_str(), stderr);
    std::abort();
}

} // namespace
} // namespace kelvane

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace kelvane;
    std::optional<cDIBSection> picture = decoded({data, size});
    if (!picture || !Render2(*picture)) return 0;
    BlackAndWhite2(picture->view(), picture->view(), 128);
    if (picture->Width() > kLargestChecked || picture->Height() > kLargestChecked) return 0;
    check(*picture, kShapePolygon);
    check(*picture, kShapeWire);
    return 0;
}
