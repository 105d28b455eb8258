#include "settings/folders.h"

#include "settings/scratch_folder.h"
#include "win/platform_error.h"

#include <gtest/gtest.h>

namespace kelvane {
namespace {

TEST(Folders, ExistingFolderIsTheLongestThatExists) {
    const ScratchFolder scratch;
    const std::wstring folder = scratch.path().wstring() + L"\\";
    EXPECT_EQ(ExistingFolderOf(folder + L"logo.png"), folder);
    EXPECT_EQ(ExistingFolderOf(folder), folder);
    EXPECT_EQ(ExistingFolderOf(folder + L"gone\\deeper\\logo.png"), folder);
    // A folder named without backslash is the last name of the path, as a file would be.
    EXPECT_EQ(ExistingFolderOf(scratch.path().wstring()),
              scratch.path().parent_path().wstring() + L"\\");
    EXPECT_EQ(ExistingFolderOf(L"C:\\logo.png"), L"C:\\");
    EXPECT_EQ(ExistingFolderOf(L"C:"), L"C:\\");
}

TEST(Folders, NothingThatExistsGivesTheProgramFolder) {
    EXPECT_TRUE(std::filesystem::exists(program_folder() + L"\\settings_tests.exe"));
    for (const wchar_t* path :
         {L"", L"Q:", L"Q:\\pics\\logo.png", L"logo.png", L"\\", L"\\logo.png"})
        EXPECT_EQ(ExistingFolderOf(path), program_folder()) << std::filesystem::path(path);
}

TEST(Folders, TemporaryFilesAreNewAndEmpty) {
    const ScratchFolder scratch;
    const std::wstring first = TempFileName(L"VBIM", scratch.path().wstring());
    const std::wstring second = TempFileName(L"", scratch.path().wstring());
    EXPECT_NE(first, second);
    EXPECT_EQ(std::filesystem::path(first).filename().wstring().substr(0, 3), L"VBI");
    EXPECT_EQ(std::filesystem::file_size(first), 0u);
    EXPECT_EQ(TempDir().back(), L'\\');
    EXPECT_THROW(TempFileName(L"VBI", scratch.path().wstring() + L"\\gone"), PlatformError);
    EXPECT_FALSE(platform_error_text(ERROR_PATH_NOT_FOUND).empty());
}

} // namespace
} // namespace kelvane
