// What a refused picture costs.
#include "platform/four_colours.h"

namespace kelvane::test {
namespace {

// The most memory that this process has used since the last "5" in clear_refs, in kilobytes.
long peak_memory() {
    const std::string status = file_text("/proc/self/status");
    return std::stol(status.substr(status.find("VmHWM:") + 6));
}

TEST(PictureReaderMemory, RefusedPicturesTakeNone) {
    write_text("/proc/self/clear_refs", "5");
    const long before = peak_memory();
    for (const FileBytes& file : {data_bytes("huge.png"), bytes_of("P6 60000 60000 255\n"),
                                  patched(data_bytes("trimmed.gif"), 6, {255, 255, 255, 255})})
        EXPECT_EQ(cause_of(file), "the picture is too large");
    // 8000 x 8000, an end of the bitmap at the start of the colour table, and pixels from there on.
    FileBytes table = patched(data_bytes("runs.bmp"), 54, {0, 1});
    table = patched(patched(table, 18, {64, 31, 0, 0, 64, 31, 0, 0}), 10, {54, 0, 0, 0});
    EXPECT_EQ(cause_of(table), "the picture is damaged or cut short");
    EXPECT_LT(peak_memory() - before, 20'000);
}

} // namespace
} // namespace kelvane::test
