// The platform's picture reader, with the same expectations on every system.
#include "image/photo_marks.h"
#include "image/upright_picture.h"
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
    expect_quarters("alpha.png", 32, 16, {{kRed, kWhite, {127, 127, 255}, kWhite}});
    expect_quarters("transparent.gif", 32, 16, {{kRed, kWhite, kBlue, kWhite}});
}

TEST(PictureReader, OrientationIsHonoured) {
    expect_quarters("turned1.jpg", 32, 16, kFourColours, 12);
    expect_quarters("turned3.jpg", 32, 16, {{kWhite, kBlue, kGreen, kRed}}, 12);
    expect_quarters("turned6.jpg", 16, 32, {{kBlue, kRed, kWhite, kGreen}}, 12);
    expect_quarters("turned8.jpg", 16, 32, {{kGreen, kWhite, kRed, kBlue}}, 12);
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

TEST(PictureReader, NamesInAnyScript) {
    const TemporaryFolder folder;
    const std::filesystem::path file = folder / u8"Prüfung/徽标.png";
    std::filesystem::create_directories(file.parent_path());
    write_text(file, file_text(data_file("palette.png")));
    EXPECT_EQ(largest_difference(read_picture(file), kFourColours), 0);
}

TEST(UprightPicture, TurnsEveryOrientation) {
    // Where the file's first and second pixel of three by two come to lie, x and y from the top.
    const std::array<int, 4> places[] = {{0, 0, 1, 0}, {2, 0, 1, 0}, {2, 1, 1, 1}, {0, 1, 1, 1},
                                         {0, 0, 0, 1}, {1, 0, 1, 1}, {1, 2, 1, 1}, {0, 2, 0, 1}};
    for (int mark = 1; mark <= 8; ++mark) {
        SCOPED_TRACE(mark);
        UprightPicture upright(3, 2, mark);
        upright.put_row(0, Bytes{10, 20, 30}.data(), {1, 0, 0, 0, -1});
        upright.put_row(1, Bytes{40, 50, 60}.data(), {1, 0, 0, 0, -1});
        const cDIBSection picture = upright.take();
        ASSERT_EQ(picture.Width(), mark < 5 ? 3 : 2);
        const auto& place = places[mark - 1];
        const int top = picture.Height() - 1;
        EXPECT_EQ(*picture.view().pixel(place[0], top - place[1]), 10);
        EXPECT_EQ(*picture.view().pixel(place[2], top - place[3]), 20);
    }
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
