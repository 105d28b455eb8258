// The platform's picture reader, with the same expectations on every system.
#include "image/photo_marks.h"
#include "platform/four_colours.h"

#include <gmock/gmock.h>

namespace kelvane::test {
namespace {

using Bytes = std::vector<std::uint8_t>;

Bytes data_bytes(const std::string& name) {
    const std::string text = file_text(data_file(name));
    EXPECT_FALSE(text.empty()) << name;
    return {text.begin(), text.end()};
}

std::string cause_of(const Bytes& bytes) {
    try {
        decode_picture(bytes);
    } catch (const FileError& error) {
        return error.what();
    }
    return "";
}

void expect_quarters(const Bytes& bytes, int width, int height, const Quarters& expected,
                     int tolerance = 0) {
    const cDIBSection picture = decode_picture(bytes);
    EXPECT_EQ(picture.Width(), width);
    EXPECT_EQ(picture.Height(), height);
    EXPECT_LE(largest_difference(picture, expected), tolerance);
}

void expect_quarters(const std::string& name, int width, int height, const Quarters& expected,
                     int tolerance = 0) {
    SCOPED_TRACE(name);
    expect_quarters(data_bytes(name), width, height, expected, tolerance);
}

TEST(PictureReader, FormatsOfEveryKindOfPixel) {
    for (const char* name :
         {"palette.png", "deep.png", "quads.tif", "deep24.bmp", "palette.bmp", "topdown.bmp"})
        expect_quarters(name, 32, 16, kFourColours);
    expect_quarters("two.ico", 32, 32, kFourColours);
    expect_quarters("arrow.cur", 32, 32, kFourColours);
    expect_quarters("gray.png", 32, 16, {{{0, 0, 0}, {64, 64, 64}, {128, 128, 128}, kWhite}});
    expect_quarters("mono.bmp", 32, 16, {{{0, 0, 0}, kWhite, kWhite, kWhite}});
    expect_quarters("cmyk.jpg", 32, 16, kFourColours, 12);
}

TEST(PictureReader, TransparencyShowsWhitePaper) {
    expect_quarters("alpha.png", 32, 16, {{kRed, kWhite, {255, 127, 127}, kWhite}});
    expect_quarters("transparent.gif", 32, 16, {{kRed, kWhite, kBlue, kWhite}});
}

TEST(PictureReader, OrientationIsHonoured) {
    const Quarters turned[] = {
        {kRed, kGreen, kBlue, kWhite}, {kGreen, kRed, kWhite, kBlue}, {kWhite, kBlue, kGreen, kRed},
        {kBlue, kWhite, kRed, kGreen}, {kRed, kBlue, kGreen, kWhite}, {kBlue, kRed, kWhite, kGreen},
        {kWhite, kGreen, kBlue, kRed}, {kGreen, kWhite, kRed, kBlue},
    };
    // The mark's low byte in either byte order.
    for (const auto& [name, place] : {std::pair{"turned6.jpg", 30U}, {"turned8.jpg", 31U}}) {
        Bytes bytes = data_bytes(name);
        for (std::uint8_t mark = 1; mark <= 8; ++mark) {
            SCOPED_TRACE(testing::Message() << name << ' ' << int{mark});
            bytes[place] = mark;
            const int width = mark < 5 ? 32 : 16;
            expect_quarters(bytes, width, 48 - width, turned[mark - 1], 12);
        }
    }
}

TEST(PictureReader, DamagedFilesAreAnErrorInOneLine) {
    for (const char* name : {"deep.png", "turned1.jpg", "quads.tif", "deep24.bmp", "two.ico"}) {
        SCOPED_TRACE(name);
        Bytes bytes = data_bytes(name);
        bytes.resize(bytes.size() * 2 / 3);
        const std::string cause = cause_of(bytes);
        EXPECT_NE(cause, "");
        EXPECT_THAT(cause, ::testing::Not(::testing::HasSubstr("\n")));
        EXPECT_THAT(cause, ::testing::Not(::testing::EndsWith(".")));
    }
    const std::string text = "It is only a text, though a long one, and no picture at all.\n";
    EXPECT_EQ(cause_of({text.begin(), text.end()}), "not a picture that can be read");
    EXPECT_EQ(cause_of({}), "the file is empty");
}

TEST(PictureReader, HugeClaimsAreRefused) {
    Bytes bytes = data_bytes("deep24.bmp");
    for (const std::size_t side : {18U, 22U})
        bytes[side + 2] = 1; // 65,536 pixels more
    EXPECT_EQ(cause_of(bytes), "the picture is too large");
}

TEST(PhotoMarks, DamagedMarksCountAsUpright) {
    const Bytes whole = data_bytes("turned6.jpg");
    EXPECT_EQ(orientation_mark(whole), 6);
    EXPECT_TRUE(is_complete(whole));
    for (std::size_t size = 0; size < 38; ++size)
        EXPECT_EQ(orientation_mark(std::span(whole).first(size)), 1) << size;
    EXPECT_FALSE(is_complete(std::span(whole).first(whole.size() - 1)));
}

} // namespace
} // namespace kelvane::test
