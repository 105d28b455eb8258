// The platform's picture reader, with the same expectations on every system.
#include "image/orientation.h"
#include "platform/four_colours.h"

#include <gmock/gmock.h>

namespace kelvane::test {
namespace {

FileBytes operator+(FileBytes first, const FileBytes& second) {
    first.insert(first.end(), second.begin(), second.end());
    return first;
}

void expect_quarters(const FileBytes& bytes, int width, int height, const Quarters& expected,
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
    for (const char* name : {"palette.png", "deep.png", "interlaced.png", "quads.tif", "deep24.bmp",
                             "palette.bmp", "topdown.bmp", "runs.bmp"})
        expect_quarters(name, 32, 16, kFourColours);
    expect_quarters("two.ico", 32, 32, kFourColours);
    expect_quarters("arrow.cur", 32, 32, kFourColours);
    expect_quarters("gray.png", 32, 16, {{{0, 0, 0}, {64, 64, 64}, {128, 128, 128}, kWhite}});
    expect_quarters("mono.bmp", 32, 16, {{{0, 0, 0}, kWhite, kWhite, kWhite}});
    expect_quarters("cmyk.jpg", 32, 16, kFourColours, 12);
    expect_quarters("progressive.jpg", 32, 16, kFourColours, 14);
}

// Four images: a small one, then of one size one of fewer bits, the one to show, one like it.
TEST(PictureReader, IconsShowTheFirstOfTheLargestAndDeepest) {
    expect_quarters("four.ico", 2, 2, kFourColours);
    const FileBytes directory{0, 0,  1, 0,   1, 0, 32, 16, 0, 0, 1,
                              0, 48, 0, 115, 0, 0, 0,  22, 0, 0, 0};
    expect_quarters(directory + data_bytes("deep.png"), 32, 16, kFourColours);
}

TEST(PictureReader, TransparencyShowsWhitePaper) {
    expect_quarters("alpha.png", 32, 16, {{kRed, kWhite, {255, 127, 127}, kWhite}});
    expect_quarters("transparent.gif", 32, 16, {{kRed, kWhite, kBlue, kWhite}});
}

// What is opaque is black, whatever its colour; a picture without transparency stays as it is.
TEST(PictureReader, TransparencyAsInk) {
    const auto difference = [](const char* name, const Quarters& expected) {
        return largest_difference(decode_picture(data_bytes(name), Transparency::Ink), expected);
    };
    constexpr std::array<int, 3> kBlack{0, 0, 0}, kHalf{127, 127, 127};
    EXPECT_EQ(difference("alpha.png", {{kBlack, kWhite, kHalf, kWhite}}), 0);
    EXPECT_EQ(difference("transparent.gif", {{kBlack, kWhite, kBlack, kWhite}}), 0);
    EXPECT_EQ(difference("half.tif", {{kHalf, kHalf, kHalf, kWhite}}), 0);
    EXPECT_EQ(difference("deep.png", kFourColours), 0);
}

// Channels of 128 and alpha 128; offset 138 says whether the channels are multiplied by it.
TEST(PictureReader, PremultipliedAlpha) {
    const FileBytes colours = data_bytes("half.tif"), grey = data_bytes("half-gray.tif");
    expect_quarters(colours, 4, 2, {{{127, 127, 255}, {127, 255, 127}, {255, 127, 127}, kWhite}});
    expect_quarters(patched(colours, 138, {2}), 4, 2,
                    {{{127, 127, 191}, {127, 191, 127}, {191, 127, 127}, kWhite}});
    expect_quarters(grey, 4, 2, {{{127, 127, 127}, {191, 191, 191}, kWhite, kWhite}});
    expect_quarters(patched(grey, 138, {2}), 4, 2,
                    {{{127, 127, 127}, {159, 159, 159}, {191, 191, 191}, kWhite}});
}

TEST(PictureReader, FramesShowTheWholeCanvas) {
    expect_quarters("trimmed.gif", 32, 16, {{kWhite, kRed, kWhite, kWhite}});
    // Frames of four quarters that reach beyond the canvas and lie beyond it.
    const FileBytes four = data_bytes("transparent.gif");
    expect_quarters(patched(four, 53, {16, 0, 8, 0}), 32, 16, {{kWhite, kWhite, kWhite, kRed}});
    expect_quarters(patched(four, 53, {33, 0, 0, 0}), 32, 16, {{kWhite, kWhite, kWhite, kWhite}});
}

TEST(PictureReader, OrientationIsHonoured) {
    const Quarters turned[] = {
        {kRed, kGreen, kBlue, kWhite}, {kGreen, kRed, kWhite, kBlue}, {kWhite, kBlue, kGreen, kRed},
        {kBlue, kWhite, kRed, kGreen}, {kRed, kBlue, kGreen, kWhite}, {kBlue, kRed, kWhite, kGreen},
        {kWhite, kGreen, kBlue, kRed}, {kGreen, kWhite, kRed, kBlue},
    };
    // The mark's low byte in either byte order.
    for (const auto& [name, place] : {std::pair{"turned6.jpg", 30U}, {"turned8.jpg", 31U}}) {
        FileBytes bytes = data_bytes(name);
        for (std::uint8_t mark = 1; mark <= 8; ++mark) {
            SCOPED_TRACE(testing::Message() << name << ' ' << int{mark});
            bytes[place] = mark;
            const int width = mark < 5 ? 32 : 16;
            expect_quarters(bytes, width, 48 - width, turned[mark - 1], 12);
        }
    }
}

// A JPEG file with a thumbnail in its headers; the thumbnail's end mark is not the file's.
FileBytes with_thumbnail(const FileBytes& jpeg) {
    const auto length = static_cast<std::uint8_t>(jpeg.size() + 2 - 256);
    return FileBytes{0xFF, 0xD8, 0xFF, 0xE1, 1, length} + jpeg +
           FileBytes(jpeg.begin() + 2, jpeg.end());
}

TEST(PictureReader, CutFilesAreRefused) {
    for (const char* name :
         {"alpha.png", "arrow.cur", "cmyk.jpg", "deep.png", "deep24.bmp", "gray.png", "half.tif",
          "interlaced.png", "mono.bmp", "palette.bmp", "palette.png", "progressive.jpg", "runs.bmp",
          "topdown.bmp", "trimmed.gif", "turned1.jpg", "two.ico"})
        expect_refused_when_cut(name);
    expect_refused_when_cut(data_bytes("four.ico"), 262);
    expect_refused_when_cut(data_bytes("quads.tif"), 332);
    expect_refused_when_cut(data_bytes("transparent.gif"), 119);
    const FileBytes thumbnail = with_thumbnail(data_bytes("turned1.jpg"));
    expect_refused_when_cut(thumbnail, thumbnail.size());
}

// How many of the files open that are cut and then end in an end mark.
int opened_with_end_mark(FileBytes jpeg) {
    int opened = 0;
    for (jpeg.resize(jpeg.size() - 3); jpeg.size() > 3; jpeg.pop_back())
        opened += cause_of(jpeg + FileBytes{0xFF, 0xD9}) == "" ? 1 : 0;
    return opened;
}

TEST(PictureReader, AnEndMarkMakesNoPictureWhole) {
    for (const char* name : {"turned1.jpg", "cmyk.jpg", "progressive.jpg"})
        EXPECT_EQ(opened_with_end_mark(data_bytes(name)), 0) << name;
    EXPECT_NE(cause_of(data_bytes("one-pass.png")), "");
    EXPECT_NE(cause_of(bytes_of("P6 32 16 255\n")), "");
}

TEST(PictureReader, OtherBytesAreAnErrorInOneLine) {
    const std::string text = "It is only a text, though a long one, and no picture at all.\n";
    EXPECT_EQ(cause_of(bytes_of(text)), "not a picture that can be read");
    // The OLE picture loader would read it.
    EXPECT_EQ(cause_of(bytes_of({"lt\0\0\x36\6\0\0", 8}) + data_bytes("deep24.bmp")),
              "not a picture that can be read");
    EXPECT_EQ(cause_of({}), "the file is empty");
    // Seven bits a pixel: the decoder's own words, or the system's.
    const std::string cause = cause_of(patched(data_bytes("deep24.bmp"), 28, {7}));
    EXPECT_GT(cause.size(), 10u);
    EXPECT_EQ(cause.find('\n'), std::string::npos) << cause;
    EXPECT_FALSE(cause.ends_with('.')) << cause;
}

TEST(PictureReader, SizesThatCannotBe) {
    const FileBytes bitmap = data_bytes("deep24.bmp"), frames = data_bytes("trimmed.gif");
    const FileBytes photograph = data_bytes("turned1.jpg"), scan = data_bytes("half.tif");
    for (const FileBytes& empty : {patched(bitmap, 18, {0}), patched(frames, 8, {0}),
                                   patched(photograph, 199, {0, 0}), patched(scan, 18, {0})})
        EXPECT_EQ(cause_of(empty), "the picture has no pixels");
    for (const FileBytes& huge :
         {patched(patched(bitmap, 20, {1}), 24, {1}), patched(frames, 6, {255, 255, 255, 255}),
          patched(photograph, 199, {255, 0, 255, 0}), data_bytes("huge.png")})
        EXPECT_EQ(cause_of(huge), "the picture is too large");
}

TEST(Orientation, DamagedMarksCountAsUpright) {
    const FileBytes whole = data_bytes("turned6.jpg");
    EXPECT_EQ(orientation_mark(whole), 6);
    for (std::size_t size = 0; size < 38; ++size)
        EXPECT_EQ(orientation_mark(std::span(whole).first(size)), 1) << size;
}

} // namespace
} // namespace kelvane::test
