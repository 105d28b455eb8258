// What a refused picture costs.
#include "platform/four_colours.h"

#include <sys/resource.h>

namespace kelvane::test {
namespace {

// The most memory that this process has ever used, in kilobytes.
long peak_memory() {
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    return usage.ru_maxrss;
}

TEST(PictureReaderMemory, PicturesTooLargeTakeNone) {
    const std::string files[] = {
        file_text(data_file("huge.png")),
        {"GIF89a\xFF\xFF\xFF\xFF\0\0\0,\0\0\0\0\1\0\1\0\0\2\2D\1\0;", 31},
        "P6 60000 60000 255\n",
    };
    const long before = peak_memory();
    for (const std::string& file : files)
        try {
            decode_picture({reinterpret_cast<const std::uint8_t*>(file.data()), file.size()});
            ADD_FAILURE();
        } catch (const FileError& error) {
            EXPECT_EQ(error.fault(), FileFault::kTooLarge);
        }
    EXPECT_LT(peak_memory() - before, 50'000);
}

} // namespace
} // namespace kelvane::test
