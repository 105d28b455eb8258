#include "app/mru_file_list.h"

#include "settings/scratch_folder.h"

#include <gmock/gmock.h>

namespace kelvane {
namespace {

using testing::ElementsAre;

std::vector<std::wstring> files(const cMRUFileList& list) {
    std::vector<std::wstring> files;
    for (int i = 1; i <= list.FileCount(); ++i)
        files.push_back(list.FileExists(i) ? list.file(i) : L"none");
    return files;
}

TEST(RecentFiles, MostRecentFirstAndTheOldestFallsOff) {
    cMRUFileList list;
    EXPECT_EQ(list.MaxFileCount(), 4);
    for (const wchar_t* file : {L"1", L"2", L"3", L"4", L"5"})
        list.AddFile(file, false);
    EXPECT_THAT(files(list), ElementsAre(L"5", L"4", L"3", L"2"));
    list.MaxFileCount(2);
    list.MaxFileCount(0);
    EXPECT_EQ(list.MaxFileCount(), 2);
    EXPECT_THAT(files(list), ElementsAre(L"5", L"4"));
    EXPECT_FALSE(list.FileExists(3));
    EXPECT_FALSE(list.FileExists(0));
}

TEST(RecentFiles, KnownFileMovesToTheTopWithNewSpellingAndFlag) {
    cMRUFileList list;
    list.AddFile(L"c:\\\x00E4.bmp", false);
    list.AddFile(L"c:\\b.bmp", true);
    list.AddFile(L"C:\\\x00C4.BMP", true);
    EXPECT_THAT(files(list), ElementsAre(L"C:\\\x00C4.BMP", L"c:\\b.bmp"));
    EXPECT_TRUE(list.fileflag(1));
    list.AddFile(L"c:\\b.bmp", false);
    EXPECT_FALSE(list.fileflag(1));
    EXPECT_TRUE(list.fileflag(2));
}

TEST(RecentFiles, LongPathsAreShownFromAWholeFolderOn) {
    const std::wstring whole = std::wstring(25, L'a') + L".bmp";
    const std::wstring file = L"\\" + std::wstring(23, L'b') + L".bmp";
    const std::wstring name = L"\\" + std::wstring(60, L'c') + L".bmp";
    const std::pair<std::wstring, std::wstring> kCaptions[] = {
        {L"C:\\" + whole, L"C:\\" + whole},
        {L"C:\\a" + whole, L"...\\a" + whole},
        {L"C:\\dir\\sub" + file, L"...\\sub" + file}, // a tail of 32 characters fits
        {L"C:\\dir\\subs" + file, L"..." + file},
        {L"C:\\dir" + name, L"..." + name},
        {name.substr(1), name.substr(1)}};
    for (const auto& [path, caption] : kCaptions) {
        cMRUFileList list;
        list.AddFile(path, false);
        EXPECT_EQ(list.MenuCaption(1), L"&1)  " + caption);
    }
}

TEST(RecentFiles, SurviveTheSettingsFile) {
    const ScratchFolder scratch;
    const std::wstring path =
        L"D:\\\x0434\x0443\x0433\x0430\\\x4E2D\x6587\\" + std::wstring(300, L'x');
    cMRUFileList list;
    list.AddFile(L"C:\\b.bmp", false);
    list.AddFile(path, true);
    list.Save(scratch.settings());
    cMRUFileList loaded;
    loaded.Load(scratch.settings());
    EXPECT_THAT(files(loaded), ElementsAre(path, L"C:\\b.bmp"));
    EXPECT_TRUE(loaded.fileflag(1));
    EXPECT_FALSE(loaded.fileflag(2));

    // A shorter list leaves nothing of the longer one behind.
    cMRUFileList().Save(scratch.settings());
    EXPECT_EQ(scratch.settings().ReadIniValue(L"ImageMRU", L"File1"), L"");
    EXPECT_EQ(scratch.settings().ReadIniValue(L"ImageMRU", L"MaxCount"), L"4");
}

TEST(RecentFiles, WhatAnotherProgramHasSavedMeanwhileIsKept) {
    const ScratchFolder scratch;
    scratch.put("[ImageMRU]\r\nCount=2\r\nFile1=1\r\nFile2=2\r\n");
    cMRUFileList list;
    list.Load(scratch.settings());
    list.AddFile(L"2", false);
    scratch.put("[ImageMRU]\r\nCount=2\r\nFile1=a\r\nFileFlag1=1\r\nFile2=1\r\n");
    list.Merge(scratch.settings());
    EXPECT_THAT(files(list), ElementsAre(L"2", L"a", L"1"));
    EXPECT_TRUE(list.fileflag(2));
}

TEST(RecentFiles, CountBeyondTheCapacityStays) {
    const ScratchFolder scratch;
    scratch.put("[ImageMRU]\r\nMaxCount=2\r\nCount=3\r\nFile1=a\r\nFileFlag1=1\r\nFile3=c\r\n");
    cMRUFileList list;
    list.Load(scratch.settings());
    EXPECT_EQ(list.MaxFileCount(), 2);
    EXPECT_THAT(files(list), ElementsAre(L"a", L"none", L"c"));
    list.AddFile(L"d", false);
    EXPECT_THAT(files(list), ElementsAre(L"d", L"a", L"none"));
}

TEST(RecentFiles, DamagedNumbersDoNoHarm) {
    for (const char* numbers :
         {"MaxCount=2000000000\r\nCount=2000000000", "MaxCount=-5\r\nCount=-7",
          "MaxCount=0\r\nCount=1e300", "MaxCount=abc\r\nCount=abc", ""}) {
        const ScratchFolder scratch;
        scratch.put("[ImageMRU]\r\n" + std::string(numbers) + "\r\nFile1=a\r\n");
        cMRUFileList list;
        list.Load(scratch.settings());
        list.AddFile(L"b", true);
        list.Save(scratch.settings());
        EXPECT_EQ(list.file(1), L"b") << numbers;
        EXPECT_GE(list.MaxFileCount(), 1) << numbers;
        EXPECT_LE(list.FileCount(), 101) << numbers;
    }
}

} // namespace
} // namespace kelvane
