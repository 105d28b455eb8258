// The checks for completeness on the bytes of a picture file.
#include "image/completeness.h"
#include "image/gif_format.h"
#include "image/icon_format.h"
#include "image/orientation.h"
#include "image/resolution.h"

#include <cstdio>
#include <cstdlib>

namespace kelvane {
namespace {

// With fewer bytes a file may count as one of another format.
constexpr std::size_t kLongestSignature = 44;

void require(bool sound, const char* fault) {
    if (sound) return;
    std::fputs(fault, stderr);
    std::abort();
}

// A file whose first part holds the whole picture holds it as well.
void check_parts(Bytes file) {
    const bool whole = completeness(file) == Completeness::Complete;
    for (const std::size_t size : {file.size() - 1, file.size() / 2, file.size() / 3})
        if (size >= kLongestSignature && completeness(file.first(size)) == Completeness::Complete)
            require(whole, "a part is complete, the whole is not");
}

// The image that is cut out of a file is complete when the file is.
void check_images(Bytes file) {
    if (completeness(file) != Completeness::Complete) return;
    if (is_icon(file))
        require(completeness(largest_icon(file)) == Completeness::Complete, "an icon is cut");
    if (is_gif(file)) {
        const auto frame = first_gif_frame(file);
        require(frame && completeness(frame->file) == Completeness::Complete, "a frame is cut");
    }
}

} // namespace
} // namespace kelvane

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace kelvane;
    const Bytes file(data, size);
    const int mark = orientation_mark(file);
    require(mark >= 1 && mark <= 8, "no orientation");
    const auto resolution = file_resolution(file);
    require(!resolution || (resolution->x >= 1 && resolution->x <= 1e6 && resolution->y >= 1 &&
                            resolution->y <= 1e6),
            "no resolution");
    if (size > 0) check_parts(file);
    check_images(file);
    return 0;
}
