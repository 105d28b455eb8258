#include "settings/settings_file.h"

#include "settings/catalogue.h"
#include "settings/folders.h"
#include "settings/scratch_folder.h"
#include "settings/temporary_file.h"
#include "win/platform_error.h"
#include "win/unique_handle.h"

#include <gtest/gtest.h>

#include <random>

namespace kelvane {
namespace {

using namespace std::string_literals;

const std::wstring kEveryScript = L"D:\\Größe\\\x0434\x0443\x0433\x0430\\"
                                  L"\x4E2D\x6587\\\xD83D\xDE00\\logo.png";

struct SettingsFileTest : testing::Test {
    const ScratchFolder scratch;
    const SettingsFile file = scratch.settings();
};

TEST_F(SettingsFileTest, EverySettingHasItsKeyDefaultAndLimits) {
    EXPECT_EQ(read_setting(file, settings::kLanguage), 10000);
    EXPECT_FALSE(std::filesystem::exists(scratch.ini())) << "reading made a file";
    scratch.put("");
    write_setting(file, settings::kLanguage, 0);
    for (const NumberSetting& setting : {settings::kNewWidth, settings::kNewHeight}) {
        EXPECT_EQ(read_setting(file, setting), 0);
        write_setting(file, setting, 26754);
        EXPECT_EQ(read_setting(file, setting), 26754);
    }
    const struct {
        NumberSetting setting;
        int missing, lowest, highest;
    } limited[] = {{settings::kUseRed, 0, 0, 1},
                   {settings::kUseGreen, 0, 0, 1},
                   {settings::kUseBlue, 0, 0, 1},
                   {settings::kHideSeveralImagesWarning, 0, 0, 1}};
    for (const auto& [setting, missing, lowest, highest] : limited) {
        EXPECT_EQ(read_setting(file, setting), missing);
        for (const int value : {lowest - 1, highest + 1, lowest, highest}) {
            write_setting(file, setting, value);
            const bool taken = value >= lowest && value <= highest;
            EXPECT_EQ(read_setting(file, setting), taken ? value : missing) << setting.key;
        }
    }
    for (const OptionalSetting& setting :
         {settings::kBrightnessLimit, settings::kColourLimit, settings::kEdgeLimit,
          settings::kLayer, settings::kUnit, settings::kVersion, settings::kFullAutotrace,
          settings::kAutotraceShape, settings::kLinewiseShape}) {
        EXPECT_EQ(read_setting(file, setting), std::nullopt);
        write_setting(file, setting, -1);
        EXPECT_EQ(read_setting(file, setting), -1);
    }
    EXPECT_EQ(read_setting(file, settings::kPixelSize), L"1");
    write_setting(file, settings::kPixelSize, 2.5);
    for (const PathSetting& setting : {settings::kOpenFolder, settings::kSaveFolder,
                                       settings::kConvertProgram, settings::kIdentifyProgram}) {
        EXPECT_EQ(read_setting(file, setting), L"");
        write_setting(file, setting, L"C:\\p");
    }
    EXPECT_EQ(scratch.bytes(),
              "[global]\r\nlanguage=0\r\nlastpath=C:\\p\r\nlastpath2=C:\\p\r\n"
              "[imageexport]\r\nresx=26754\r\nresy=26754\r\nbwr=1\r\nbwg=1\r\nbbb=1\r\n"
              "bwval=-1\r\nbwval2=-1\r\nbwval3=-1\r\nlayer=-1\r\nunit=-1\r\nversion=-1\r\n"
              "exp1=-1\r\npoly1=-1\r\npoly2=-1\r\nsize=2.5\r\n"
              "[ImageMagick]\r\nWarning=1\r\nConvert=C:\\p\r\nIdentify=C:\\p\r\n");
}

TEST_F(SettingsFileTest, ValuesOfEveryScriptSurvive) {
    for (const std::wstring& value :
         {kEveryScript, L" x"s, L"x "s, L"\tx"s, L"x\t"s, L"'x'"s, L"\"x\""s, L"'"s, L"\"x"s,
          L"x\""s, L"a=b;c"s, L"[x]"s, L""s}) {
        EXPECT_TRUE(file.WriteIniValue(L"s", L"k", value));
        EXPECT_EQ(file.ReadIniValue(L"s", L"k"), value);
    }
    for (const std::wstring& end : {L"\r"s, L"\n"s, L"\0"s}) {
        file.WriteIniValue(L"s", L"k", L" one" + end + L"other=1");
        EXPECT_EQ(file.ReadIniValue(L"s", L"k"), L" one");
        EXPECT_EQ(file.ReadIniValue(L"s", L"other"), L"");
    }
    // Empty is missing, and what is no number is 0: German.
    file.WriteIniValue(L"global", L"language", L"");
    EXPECT_EQ(read_setting(file, settings::kLanguage), 10000);
    file.WriteIniValue(L"global", L"language", L"abc");
    EXPECT_EQ(read_setting(file, settings::kLanguage), 0);
}

TEST_F(SettingsFileTest, OnlyPathsAreReadBeyond254Characters) {
    const std::wstring path = L"C:\\" + std::wstring(3000, L'\x4E2D');
    write_setting(file, settings::kConvertProgram, path);
    EXPECT_EQ(read_setting(file, settings::kConvertProgram), path);
    EXPECT_EQ(file.ReadIniValue(L"ImageMagick", L"Convert"), path.substr(0, 254));
}

TEST_F(SettingsFileTest, AnOlderFileKeepsWhatIsNotOurs) {
    scratch.put("; mine\r\n[other]\r\nname=Gr\xF6\xDF"
                "e\r\n[global]\r\nlanguage=0\r\nodd=1\r\n");
    write_setting(file, settings::kSaveFolder, L"C:\\pics\\");
    EXPECT_EQ(scratch.bytes().substr(0, 6), "; mine") << "turned into UTF-16 without need";
    write_setting(file, settings::kOpenFolder, kEveryScript);
    write_setting(file, settings::kConvertProgram, kEveryScript);
    EXPECT_EQ(scratch.bytes().substr(0, 4), std::string("\xFF\xFE;\0", 4));
    EXPECT_EQ(read_setting(file, settings::kOpenFolder), kEveryScript);
    EXPECT_EQ(read_setting(file, settings::kSaveFolder), L"C:\\pics\\");
    EXPECT_EQ(read_setting(file, settings::kLanguage), 0);
    EXPECT_EQ(file.ReadIniValue(L"other", L"name"), L"Größe");
    EXPECT_EQ(file.ReadIniValue(L"global", L"odd"), L"1");

    EXPECT_TRUE(file.DeleteIniSection(L"global"));
    EXPECT_EQ(file.ReadIniValue(L"global", L"odd"), L"");
    EXPECT_EQ(file.ReadIniValue(L"other", L"name"), L"Größe");
}

TEST_F(SettingsFileTest, AFileWithAUtf8MarkStaysOne) {
    scratch.put("\xEF\xBB\xBF[global]\r\nlanguage=0\r\nodd=\xC3\xB6\r\n");
    write_setting(file, settings::kOpenFolder, kEveryScript);
    EXPECT_EQ(scratch.bytes().substr(0, 11), "\xEF\xBB\xBF[global]");
    EXPECT_EQ(read_setting(file, settings::kLanguage), 0);
    EXPECT_EQ(file.ReadIniValue(L"global", L"odd"), L"\xF6");
    EXPECT_EQ(read_setting(file, settings::kOpenFolder), kEveryScript);
}

TEST_F(SettingsFileTest, AFileThatCannotBeWrittenSwallowsWrites) {
    const std::string before = "[global]\r\nlanguage=0\r\n";
    scratch.put(before);
    {
        const UniqueHandle lock(CreateFileW(scratch.ini().c_str(), GENERIC_READ, FILE_SHARE_READ,
                                            nullptr, OPEN_EXISTING, 0, nullptr));
        write_setting(file, settings::kOpenFolder, kEveryScript);
        write_setting(file, settings::kLanguage, 10000);
    }
    EXPECT_EQ(scratch.bytes(), before);
    const SettingsFile folder(scratch.path());
    EXPECT_FALSE(folder.WriteIniValue(L"global", L"language", L"0"));
    EXPECT_EQ(read_setting(folder, settings::kLanguage), 10000);
}

TEST_F(SettingsFileTest, RubbishAndSizeDoNoHarm) {
    std::mt19937 random(1);
    std::string rubbish(100000, '\0');
    for (char& c : rubbish)
        c = static_cast<char>(random());
    const std::string line = "[section]\r\nkey=" + std::string(70, 'x') + "\r\n";
    std::string large;
    while (large.size() < (10u << 20))
        large += line;
    for (const std::string& bytes : {rubbish, "\xFF\xFE" + rubbish, large}) {
        scratch.put(bytes);
        EXPECT_EQ(read_setting(file, settings::kLanguage), 10000);
        write_setting(file, settings::kOpenFolder, kEveryScript);
        read_setting(file, settings::kOpenFolder);
        EXPECT_GE(scratch.bytes().size(), bytes.size() / 2) << "the user's file was cut down";
    }
    EXPECT_EQ(scratch.bytes().substr(0, 9), "[section]") << "too large to be rewritten";
}

using Folders = SettingsFileTest;

TEST_F(Folders, ExistingFolderIsTheLongestThatExists) {
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

TEST_F(Folders, NothingThatExistsGivesTheProgramFolder) {
    EXPECT_TRUE(std::filesystem::exists(program_folder() + L"\\settings_tests.exe"));
    for (const wchar_t* path :
         {L"", L"Q:", L"Q:\\pics\\logo.png", L"logo.png", L"\\", L"\\logo.png"})
        EXPECT_EQ(ExistingFolderOf(path), program_folder()) << std::filesystem::path(path);
}

TEST_F(Folders, TemporaryFilesAreNewAndEmpty) {
    const std::wstring first = TempFileName(L"VBIM", scratch.path().wstring());
    const std::wstring second = TempFileName(L"", scratch.path().wstring());
    EXPECT_NE(first, second);
    EXPECT_EQ(std::filesystem::path(first).filename().wstring().substr(0, 3), L"VBI");
    EXPECT_EQ(std::filesystem::file_size(first), 0u);
    EXPECT_EQ(TempDir().back(), L'\\');
    EXPECT_THROW(TempFileName(L"VBI", scratch.path().wstring() + L"\\gone"), PlatformError);
}

} // namespace
} // namespace kelvane
