// Files that replace others, on a real file system and under writers that are killed.
#include "base/safe_file.h"
#include "support/temporary_folder.h"

#include <gtest/gtest.h>

#include <csignal>

namespace kelvane::test {
namespace {

// Raises the signal before the end; 0 is none.
void write(const std::filesystem::path& target, const std::string& text, int signal = 0) {
    SafeFile file(target);
    file.write(text);
    if (signal != 0) std::raise(signal);
    file.commit();
}

TEST(SafeFile, LeavesOneWholeFile) {
    // Of one name, because on Windows the killed process runs this test from its beginning.
    const std::filesystem::path folder = "safe-file-test", target = folder / "s.scr";
    std::filesystem::remove_all(folder);
    std::filesystem::create_directory(folder);
    const auto expect_only = [&](const std::string& text) {
        EXPECT_EQ(file_text(target), text);
        EXPECT_EQ(std::distance(std::filesystem::directory_iterator(folder), {}), 1);
    };
    const auto killed = [](int status) { return status != 0; };
    write(target, "before");
    { SafeFile(target).write("dropped"); }
    for (const int signal : {SIGINT, SIGTERM}) {
        EXPECT_EXIT(write(target, "half", signal), killed, "");
        expect_only("before");
    }
    write(target, "new");
    expect_only("new");
    const std::ifstream reader(target); // Windows lets such a file be written, but not replaced
    write(target, "x");
    expect_only("x");
}

} // namespace
} // namespace kelvane::test
