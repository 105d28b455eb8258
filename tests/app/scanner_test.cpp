// Scanning, with a stand-in for the scanner's library.
#include "app_test.h"

#include "base/library_search.h"
#include "settings/folders.h"

#include "ids.h"

#include <gmock/gmock.h>

namespace kelvane::test {
namespace {

class Scanning : public AppTest {
  protected:
    Scanning() : library_(std::filesystem::path(program_folder()) / "EZTW32.DLL") {}
    ~Scanning() override {
        std::error_code ignored;
        remove(library_, ignored);
    }
    void install_library() {
        copy_file(std::filesystem::path(program_folder()) / "scanner" / "EZTW32.DLL", library_,
                  std::filesystem::copy_options::overwrite_existing);
    }

  private:
    std::filesystem::path library_;
};

// A library in the current folder counts for nothing, nor, by name alone, one beside the program.
TEST_F(Scanning, MissingLibraryIsExplained) {
    search_libraries_in_system_only();
    SetCurrentDirectoryW((program_folder() + L"\\scanner").c_str());
    for (const unsigned command : {kCmdSelectSource, kCmdAcquire}) {
        expect_error(LoadString(sizeof(void*) == 8 ? IDS_SCANNER_NEEDS_32_BIT
                                                   : IDS_SCANNER_LIBRARY_MISSING));
        choose(command);
    }
    EXPECT_TRUE(main.forms().empty());
    install_library();
    EXPECT_EQ(LoadLibraryW(L"EZTW32.DLL"), nullptr);
    SetCurrentDirectoryW(program_folder().c_str());
}

TEST_F(Scanning, ScannedPictureIsANewDocument) {
    install_library();
    const cDIBSection picture = random_picture(17, 13, 2);
    SetEnvironmentVariableW(L"KELVANE_SCAN", saved(picture).c_str());
    const auto files = temporary_files();
    choose(kCmdSelectSource);
    wchar_t owner[8] = L"";
    GetEnvironmentVariableW(L"KELVANE_SCAN_OWNER", owner, std::size(owner));
    EXPECT_EQ(std::wstring(owner), L"yes");
    choose(kCmdAcquire);
    ASSERT_EQ(main.forms().size(), 1u);
    EXPECT_TRUE(same_pixels(picture_of(*main.forms()[0]), picture));
    EXPECT_EQ(caption(*main.forms()[0]), L"Image: Image 1");
    EXPECT_EQ(temporary_files(), files);
}

TEST_F(Scanning, CancelledOrFailedScanLeavesNothing) {
    install_library();
    const auto files = temporary_files();
    SetEnvironmentVariableW(L"KELVANE_SCAN", L"cancel");
    choose(kCmdAcquire); // no message
    SetEnvironmentVariableW(L"KELVANE_SCAN", L"fail");
    script.expect_message(
        testing::StartsWith(L"Error ! [OK]: An error occured whilst trying to scan an image: "));
    choose(kCmdAcquire);
    EXPECT_TRUE(main.forms().empty());
    EXPECT_EQ(temporary_files(), files);
}

} // namespace
} // namespace kelvane::test
