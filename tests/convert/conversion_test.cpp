// Files converted by ImageMagick itself, and by programs in its place that hang or fail.
#include "convert/conversion.h"
#include "image/picture_reader.h"
#include "settings/catalogue.h"
#include "settings/folders.h"
#include "settings/scratch_folder.h"
#include "support/pictures.h"
#include "win/platform_error.h"

#include <gmock/gmock.h>
#include <windows.h>

namespace kelvane::test {
namespace {

using std::filesystem::path;
using testing::HasSubstr;

constexpr std::array<int, 3> kBlack{0, 0, 0};
constexpr std::array<int, 3> kWhite{255, 255, 255};

path imagemagick(const char* program) {
    return absolute(path(KELVANE_IMAGEMAGICK) / program);
}

// Answers as ImageMagick does and converts nothing.
path stand_in() {
    return std::filesystem::absolute(path(KELVANE_CONVERT_CHILD));
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
    }
    ~Conversions() override {
        SetEnvironmentVariableW(L"TMP", before_.c_str());
        EXPECT_TRUE(is_empty(scratch / kTemporary)) << "something was left behind";
    }

    bool use(const path& convert, const path& identify) {
        write_setting(scratch.settings(), settings::kConvertProgram, convert.wstring());
        write_setting(scratch.settings(), settings::kIdentifyProgram, identify.wstring());
        return converter.DetectConverter({});
    }
    bool use_imagemagick() { return use(imagemagick("convert.exe"), imagemagick("identify.exe")); }

    ScratchFolder scratch;
    SettingsFile settings = scratch.settings();
    Converter converter{settings};

  private:
    static constexpr const wchar_t* kTemporary = L"a %d [0] \x4E2D";
    std::wstring before_ = TempDir();
};

// Nearly: JPEG is not exact.
bool shows(const cDIBSection& picture, int x, int y, std::array<int, 3> colour) {
    const auto pixel = pixel_at(picture, x, y);
    for (std::size_t i = 0; i < pixel.size(); ++i)
        if (std::abs(pixel[i] - colour[i]) > 8) return false;
    return true;
}

TEST_F(Conversions, DetectionAsksBothPrograms) {
    EXPECT_FALSE(converter.DetectConverter({}));
    EXPECT_TRUE(use_imagemagick());
    EXPECT_TRUE(converter.available());
    EXPECT_TRUE(use(imagemagick("magick.exe"), imagemagick("magick.exe")));
    wchar_t folder[MAX_PATH];
    GetSystemDirectoryW(folder, MAX_PATH);
    const path other = path(folder) / "hostname.exe";
    ASSERT_TRUE(exists(other));
    EXPECT_FALSE(use(imagemagick("convert.exe"), other));
    EXPECT_FALSE(converter.available());
    EXPECT_FALSE(use(other, imagemagick("identify.exe")));
    EXPECT_FALSE(use(imagemagick("convert.exe"), "identify.exe"));
    EXPECT_FALSE(is_imagemagick(imagemagick("missing.exe"), {}));
}

TEST_F(Conversions, FormatListIsAskedForThreeTimes) {
    ASSERT_TRUE(use_imagemagick());
    const auto formats = parse_format_list(converter.format_list({}));
    EXPECT_GT(formats.size(), 150u);
    EXPECT_TRUE(can_hold_several(formats, L".Tif"));
    EXPECT_FALSE(can_hold_several(formats, L".jpg"));
    ASSERT_TRUE(use(stand_in(), stand_in()));
    SetEnvironmentVariableW(L"KELVANE_CHILD_LOG", (scratch / L"log").c_str());
    EXPECT_EQ(parse_format_list(converter.format_list({})).size(), 1u);
    EXPECT_EQ(file_text(scratch / L"log"), "xxx");
}

TEST_F(Conversions, EveryImageOfEveryKind) {
    for (const char* program : {"convert.exe", "magick.exe"}) {
        ASSERT_TRUE(use(imagemagick(program), imagemagick("identify.exe")));
        const Conversion pages(converter, picture("pages.tif"), {});
        ASSERT_EQ(pages.images().size(), 3u);
        EXPECT_EQ(pages.images()[1].width, 48);
        EXPECT_EQ(pages.images()[1].height, 64);
        EXPECT_TRUE(shows(read_picture(pages.images()[2].picture), 5, 5, {255, 0, 0}));
        EXPECT_EQ(Conversion(converter, picture("animation.gif"), {}).images().size(), 2u);
        EXPECT_EQ(Conversion(converter, picture("layers.psd"), {}).images().size(), 2u);
        EXPECT_EQ(Conversion(converter, picture("one.webp"), {}).images().size(), 1u);
        for (const char* name : {"drawing.svg", "transparent.webp"}) {
            const Conversion drawing(converter, picture(name), {});
            const cDIBSection drawn = read_picture(drawing.images().at(0).picture);
            EXPECT_EQ(drawn.Width(), 60);
            EXPECT_TRUE(shows(drawn, 5, 20, kBlack) && shows(drawn, 55, 20, kWhite)) << name;
        }
    }
}

TEST_F(Conversions, OddNamesAreOnlyNames) {
    ASSERT_TRUE(use_imagemagick());
    for (const wchar_t* name :
         {L"-list.tif", L"a%d.tif", L"b[1].tif", L"c.tif[1]", L"d.%03d", L"@e.tif", L"msl.tif",
          L"f g \x4E2D.tif", L"h.t\x0456f", L"no extension", L"i.tif;calc", L"$(j) `k`.tif"}) {
        const path file = scratch / name;
        copy_file(picture("pages.tif"), file);
        SetFileAttributesW(file.c_str(), FILE_ATTRIBUTE_READONLY);
        EXPECT_EQ(Conversion(converter, file, {}).images().size(), 3u) << file;
        EXPECT_EQ(file_text(file), file_text(picture("pages.tif")));
        SetFileAttributesW(file.c_str(), FILE_ATTRIBUTE_NORMAL);
    }
}

TEST_F(Conversions, OrderHoldsBeyondAHundredAndAThousand) {
    ASSERT_TRUE(use_imagemagick());
    const auto colour = [](std::size_t i) {
        return i % 2 == 0 ? std::array<int, 3>{0, 0, 255} : std::array<int, 3>{255, 0, 0};
    };
    const Conversion thousand(converter, picture("thousand.gif"), {});
    ASSERT_EQ(thousand.images().size(), 1002u);
    for (const std::size_t i : {100u, 101u, 999u, 1000u, 1001u})
        EXPECT_TRUE(shows(read_picture(thousand.images()[i].picture), 1, 1, colour(i))) << i;

    const Conversion hundred(converter, picture("hundred.gif"), {});
    std::vector<long> progress;
    hundred.make_previews([&](long done) { progress.push_back(done); });
    EXPECT_THAT(progress, testing::ElementsAre(50, 100, 102));
    for (const std::size_t i : {0u, 1u, 50u, 99u, 100u, 101u}) {
        const cDIBSection preview = read_picture(hundred.images()[i].preview);
        EXPECT_EQ(preview.Width(), 200);
        EXPECT_TRUE(shows(preview, 100, 100, colour(i))) << i;
    }
}

TEST_F(Conversions, FailureKeepsTheConvertersWords) {
    ASSERT_TRUE(use_imagemagick());
    try {
        const Conversion failed(converter, picture("broken.tif"), {});
        ADD_FAILURE() << "converted";
    } catch (const ConversionFailed& failure) {
        EXPECT_THAT(failure.report(), HasSubstr(L"Not a TIFF file"));
    }
    EXPECT_THROW(Conversion(converter, scratch / L"missing.tif", {}), PlatformError);
}

TEST_F(Conversions, HangingConverterIsEnded) {
    ASSERT_TRUE(use(stand_in(), stand_in()));
    const path file = scratch / L"picture.hang";
    write_text(file, "never read");
    int asked = 0;
    EXPECT_THROW(Conversion(converter, file, [&] { return ++asked < 30; }), ConverterCancelled);
    EXPECT_THROW(Conversion(converter, file, [] { return false; }), ConverterCancelled);
    EXPECT_EQ(asked, 30);
}

} // namespace
} // namespace kelvane::test
