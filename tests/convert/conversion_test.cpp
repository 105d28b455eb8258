// Files converted by ImageMagick itself, and by a stand-in that hangs.
#include "convert/conversion.h"
#include "image/picture_reader.h"
#include "settings/catalogue.h"
#include "settings/scratch_folder.h"
#include "settings/temporary_file.h"
#include "support/pictures.h"
#include "win/platform_error.h"

#include <gmock/gmock.h>
#include <process.h>
#include <windows.h>

#include <regex>

namespace kelvane::test {
namespace {

using std::filesystem::path;

path imagemagick(const char* program) {
    return absolute(path(KELVANE_IMAGEMAGICK) / program);
}
path picture(const char* name) {
    return path(KELVANE_CONVERTER_PICTURES) / name;
}

class Conversions : public testing::Test {
  protected:
    Conversions() {
        // A folder for temporary files that looks like a pattern and fits no 8-bit code page.
        create_directory(scratch / kTemporary);
        SetEnvironmentVariableW(L"TMP", (scratch / kTemporary).c_str());
        SetEnvironmentVariableW(L"MAGICK_CONFIGURE_PATH", L"users");
        use(imagemagick("convert.exe"), imagemagick("identify.exe"));
    }
    ~Conversions() override {
        SetEnvironmentVariableW(L"TMP", before_.c_str());
        EXPECT_TRUE(is_empty(scratch / kTemporary)) << "something was left behind";
    }
    bool use(const path& convert, const path& identify) {
        write_setting(settings, settings::kConvertProgram, convert.wstring());
        write_setting(settings, settings::kIdentifyProgram, identify.wstring());
        return converter.DetectConverter({});
    }
    auto converted(const path& file) {
        return std::make_unique<Conversion>(converter, file, nullptr);
    }

    ScratchFolder scratch;
    SettingsFile settings = scratch.settings();
    Converter converter{settings};
    const path stand_in = std::filesystem::absolute(KELVANE_CONVERT_CHILD);

  private:
    static constexpr const wchar_t* kTemporary = L"a %d [0] \x4E2D";
    std::wstring before_ = TempDir();
};

// Nearly: JPEG is not exact.
bool shows(const path& file, int x, int y, std::array<int, 3> colour) {
    const auto pixel = pixel_at(read_picture(file), x, y);
    return std::ranges::equal(pixel, colour, [](int a, int b) { return std::abs(a - b) < 3; });
}

TEST_F(Conversions, BothProgramsAreAskedWhatTheyAreAndForFormats) {
    EXPECT_TRUE(converter.available());
    EXPECT_TRUE(can_hold_several(parse_format_list(converter.format_list({})), L".Tif"));
    wchar_t folder[MAX_PATH];
    GetSystemDirectoryW(folder, MAX_PATH);
    const path other = path(folder) / "hostname.exe";
    ASSERT_TRUE(exists(other));
    EXPECT_FALSE(use(imagemagick("convert.exe"), other));
    EXPECT_FALSE(converter.available());
    EXPECT_FALSE(use(other, imagemagick("identify.exe")));
    current_path(path(KELVANE_IMAGEMAGICK));
    EXPECT_FALSE(use(imagemagick("convert.exe"), "identify.exe")) << "whatever lies there";
    current_path(path(folder));

    const path with_blanks = scratch / L"a stand-in";
    copy_file(stand_in, with_blanks);
    ASSERT_TRUE(use(with_blanks, with_blanks));
    SetEnvironmentVariableW(L"KELVANE_CHILD_LOG", (scratch / L"log").c_str());
    EXPECT_EQ(parse_format_list(converter.format_list({})).size(), 1u) << "not asked three times";
}

TEST_F(Conversions, EveryImageOfEveryKind) {
    for (const char* program : {"convert.exe", "magick.exe"}) {
        ASSERT_TRUE(use(imagemagick(program), imagemagick("magick.exe")));
        const auto pages = converted(picture("pages.tif"));
        ASSERT_EQ(pages->images().size(), 3u);
        EXPECT_EQ(pages->images()[1].width, 48);
        EXPECT_TRUE(shows(pages->images()[2].picture, 5, 5, {255, 0, 0}));
        EXPECT_EQ(converted(picture("layers.psd"))->images().size(), 2u);
        for (const char* name : {"drawing.svg", "transparent.webp"}) {
            const auto drawing = converted(picture(name));
            ASSERT_EQ(drawing->images().size(), 1u);
            EXPECT_TRUE(shows(drawing->images()[0].picture, 5, 20, {0, 0, 0})) << name;
            EXPECT_TRUE(shows(drawing->images()[0].picture, 55, 20, {255, 255, 255})) << name;
        }
    }
}

TEST_F(Conversions, OddNamesAreOnlyNames) {
    for (const wchar_t* name :
         {L"-list.tif", L"a%d.tif", L"b[1].tif", L"c.tif[1]", L"d.%03d", L"@f g \x4E2D.tif",
          L"h.t\x0456f", L"no extension", L"i.tif;calc"}) {
        const path file = scratch / name;
        copy_file(picture("pages.tif"), file);
        SetFileAttributesW(file.c_str(), FILE_ATTRIBUTE_READONLY);
        EXPECT_EQ(converted(file)->images().size(), 3u) << file;
        EXPECT_EQ(file_text(file), file_text(picture("pages.tif")));
        SetFileAttributesW(file.c_str(), FILE_ATTRIBUTE_NORMAL);
    }
}

TEST_F(Conversions, OrderHoldsBeyondAHundredAndAThousand) {
    const std::array<int, 3> colours[] = {{0, 0, 255}, {255, 0, 0}};
    const auto thousand = converted(picture("thousand.gif"));
    ASSERT_EQ(thousand->images().size(), 1002u);
    for (const std::size_t i : {100u, 101u, 999u, 1000u, 1001u})
        EXPECT_TRUE(shows(thousand->images()[i].picture, 1, 1, colours[i % 2])) << i;

    const auto hundred = converted(picture("hundred.gif"));
    std::vector<long> progress;
    hundred->make_previews([&](long done) { progress.push_back(done); });
    EXPECT_THAT(progress, testing::ElementsAre(50, 100, 102));
    for (const std::size_t i : {0u, 1u, 50u, 99u, 101u})
        EXPECT_TRUE(shows(hundred->images()[i].preview, 199, 199, colours[i % 2])) << i;
}

TEST_F(Conversions, FailureAndHangingLeaveNothing) {
    EXPECT_THROW(converted(picture("broken.tif")), ConversionFailed);
    EXPECT_THROW(converted(scratch / L"missing.tif"), PlatformError);
    ASSERT_TRUE(use(stand_in, stand_in));
    for (const wchar_t* name : {L"a.hang", L"script.MSL"})
        write_text(scratch / name, "never read");
    int asked = 0;
    const auto give_up = [&] { return ++asked < 30; };
    EXPECT_THROW(Conversion(converter, scratch / L"a.hang", give_up), ConverterCancelled);
    try {
        converted(scratch / L"script.MSL");
        ADD_FAILURE();
    } catch (const ConversionFailed& failure) {
        EXPECT_TRUE(std::regex_match(failure.report(),
                                     std::wregex(L"no decode delegate for testtmp[0-9]{10,20}")));
    }
}

std::string drawing_with(const std::string& picture) {
    return "<svg xmlns:xlink='http://www.w3.org/1999/xlink' width='8' height='8'>"
           "<image width='8' height='8' xlink:href='" +
           picture + "'/></svg>";
}

// The drawing is also a script, and refers to its copy or to itself.
TEST_F(Conversions, PictureWritesNoFiles) {
    const TemporaryFolder folder;
    const path file = folder / "logo.msvg";
    const std::string written = (folder / "written.png").generic_string();
    for (const std::string& script : {std::string("testtmp.msvg"), file.generic_string()}) {
        write_text(file, "<image><read filename='xc:red'/><write filename='" + written + "'/>" +
                             drawing_with("msl:" + script) + "</image>");
        EXPECT_EQ(converted(file)->images().size(), 1u);
        EXPECT_FALSE(exists(path(written))) << script;
    }
}

TEST_F(Conversions, PictureReachesNothingBeyondItself) {
    const ConverterFolder folder;
    const auto denied = [&](const char* file, const std::string& content) {
        write_text(folder / file, content);
        const std::wstring output = converter.convert(path(file).wstring() + L" null:", folder, {});
        return output.find(L"NotAuthorized") != std::wstring::npos;
    };
    for (const char* name : {"vid:x", "clipboard:", "http://[::1]:1/x.png", "//host/x.png",
                             "\\\\host\\x.png", "label:@a.msvg"})
        EXPECT_TRUE(denied("a.msvg", drawing_with(name))) << name;
    for (const char* name : {"a.html", "a.dot", "a.docx"})
        EXPECT_TRUE(denied(name, "text")) << name;
}

TEST_F(Conversions, KilledProgramTakesItsConverterAlongAndTheNextOneTidiesUp) {
    const auto running = [] { // whether a converter has begun, and nobody has removed its folder
        return std::ranges::any_of(
            std::filesystem::directory_iterator(TempDir()),
            [](const auto& each) { return exists(each.path() / "left.tmp"); });
    };
    const UniqueHandle killed(reinterpret_cast<HANDLE>(
        _wspawnl(_P_NOWAIT, stand_in.c_str(), L"child", L"hold", nullptr)));
    for (int i = 0; i < 3000 && !running(); ++i)
        Sleep(20);
    PrivateFolder();
    EXPECT_TRUE(running()) << "the folder of a running program is gone";
    TerminateProcess(killed.get(), 1);
    for (int i = 0; i < 3000 && running(); ++i, PrivateFolder())
        Sleep(20);
}

} // namespace
} // namespace kelvane::test
