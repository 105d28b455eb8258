// Files that replace others, on a real file system and under writers that are killed.
#include "image/file_error.h"
#include "image/safe_file.h"
#include "support/temporary_folder.h"

#include <gtest/gtest.h>

#include <csignal>

namespace kelvane::test {
namespace {

struct SafeFiles : testing::Test {
    SafeFiles() { write_text(target, "before"); }
    // The old file is as it was and alone.
    void expect_nothing_new() const {
        EXPECT_EQ(file_text(target), "before");
        EXPECT_EQ(std::distance(std::filesystem::directory_iterator(folder.path()), {}), 1);
    }
    void write(const std::string& text) const {
        SafeFile file(target);
        file.write(text);
        file.commit();
    }

    const TemporaryFolder folder;
    const std::filesystem::path target = folder / "s.scr";
};

TEST_F(SafeFiles, ReplaceOnCommitOnly) {
    { SafeFile(target).write("half"); }
    expect_nothing_new();
    write("new");
    EXPECT_EQ(file_text(target), "new");
    const std::ifstream reader(target); // on Windows, what is open can be written but not replaced
    write("x");
    EXPECT_EQ(file_text(target), "x");
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator(folder.path()), {}), 1);
}

TEST_F(SafeFiles, AKilledWriterLeavesNothing) {
    const auto killed = [](int status) { return status != 0; };
    for (const int signal : {SIGINT, SIGTERM})
        EXPECT_EXIT(
            {
                SafeFile half(target);
                half.write("half");
                std::raise(signal);
            },
            killed, "");
    expect_nothing_new();
}

} // namespace
} // namespace kelvane::test
