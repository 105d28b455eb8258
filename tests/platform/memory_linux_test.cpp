// What a refused picture costs.
#include "platform/four_colours.h"

namespace kelvane::test {
namespace {

void forget_peak_memory() {
    write_text("/proc/self/clear_refs", "5");
}

// The most memory that this process has used since then, in kilobytes.
long peak_memory() {
    const std::string status = file_text("/proc/self/status");
    return std::stol(status.substr(status.find("VmHWM:") + 6));
}

TEST(PictureReaderMemory, PicturesTooLargeTakeNone) {
    const std::string files[] = {
        file_text(data_file("huge.png")),
        {"GIF89a\xFF\xFF\xFF\xFF\0\0\0,\0\0\0\0\1\0\1\0\0\2\2D\1\0;", 31},
        "P6 60000 60000 255\n",
    };
    forget_peak_memory();
    const long before = peak_memory();
    for (const std::string& file : files)
        try {
            decode_picture({reinterpret_cast<const std::uint8_t*>(file.data()), file.size()});
            ADD_FAILURE();
        } catch (const FileError& error) {
            EXPECT_EQ(error.fault(), FileFault::kTooLarge);
        }
    EXPECT_LT(peak_memory() - before, 20'000);
}

} // namespace
} // namespace kelvane::test
