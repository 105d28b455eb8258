// Pictures of every kind that logos come in, through the platform's own loader.
#include "image/file_bytes.h"
#include "image/picture_reader.h"

#include "support/temporary_folder.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

namespace kelvane {
namespace {

std::filesystem::path data(const std::string& name) {
    return std::filesystem::path(KELVANE_TEST_DATA) / "pictures" / name;
}

// Red, green and blue of a pixel, counted from the top left as displayed.
std::vector<int> colour(const cDIBSection& picture, int x, int y_from_top) {
    const std::uint8_t* pixel = picture.view().pixel(x, picture.Height() - 1 - y_from_top);
    return {pixel[2], pixel[1], pixel[0]};
}

std::vector<std::vector<int>> colours(const cDIBSection& picture) {
    std::vector<std::vector<int>> all;
    for (int y = 0; y < picture.Height(); ++y)
        for (int x = 0; x < picture.Width(); ++x)
            all.push_back(colour(picture, x, y));
    return all;
}

const std::vector<int> kWhite{255, 255, 255};
const std::vector<int> kBlack{0, 0, 0};
const std::vector<std::vector<int>> kScene{{255, 0, 0},   {0, 255, 0},     {0, 0, 255},
                                           {0, 0, 0},     {255, 255, 255}, {255, 255, 0},
                                           {0, 255, 255}, {128, 128, 128}};

TEST(PictureReader, ReadsTheSamePixelsFromEveryLosslessKind) {
    for (const char* name : {"rgb.png", "palette.png", "deep.png", "tiff24.tif", "bmp24.bmp",
                             "bmp24.dib", "gif.gif"}) {
        const cDIBSection picture = read_picture(data(name));
        ASSERT_EQ(picture.Width(), 4) << name;
        EXPECT_EQ(colours(picture), kScene) << name;
    }
    for (const std::vector<int>& pixel : colours(read_picture(data("gray.png")))) {
        EXPECT_EQ(pixel[0], pixel[1]);
        EXPECT_EQ(pixel[1], pixel[2]);
    }
}

TEST(PictureReader, ShowsTransparentPixelsOnWhitePaper) {
    const cDIBSection half = read_picture(data("half.png")); // alpha 128, or 127
    EXPECT_NEAR(colour(half, 3, 0)[0], 127, 1);
    EXPECT_EQ(colour(half, 0, 0)[0], 255);
    EXPECT_EQ(colour(half, 0, 1), kWhite);
    const cDIBSection gif = read_picture(data("transparent.gif"));
    EXPECT_EQ(colour(gif, 0, 0), kWhite);
    EXPECT_EQ(colour(gif, 1, 0), kBlack);
}

TEST(PictureReader, TurnsPhotographsUpright) {
    for (const char* name :
         {"turned3.jpg", "turned5.jpg", "turned6.jpg", "turned7.jpg", "turned8.jpg"}) {
        const cDIBSection picture = read_picture(data(name));
        ASSERT_EQ(picture.Width(), 32) << name;
        ASSERT_EQ(picture.Height(), 16) << name;
        EXPECT_LT(colour(picture, 4, 3)[0], 20) << name;
        EXPECT_GT(colour(picture, 27, 3)[0], 235) << name;
        EXPECT_GT(colour(picture, 4, 12)[0], 235) << name;
    }
}

TEST(PictureReader, TakesTheLargestIconAndACursorsShape) {
    const cDIBSection icon = read_picture(data("icon.ico"));
    EXPECT_EQ(icon.Width(), 16);
    EXPECT_EQ(colour(icon, 8, 8), (std::vector<int>{0, 0, 255}));
    const cDIBSection pointer = read_picture(data("pointer.cur"));
    ASSERT_EQ(pointer.Width(), 32);
    EXPECT_EQ(colour(pointer, 4, 4), kBlack);
    EXPECT_EQ(colour(pointer, 28, 4), kWhite);
}

TEST(PictureReader, RefusesWhatIsNoWholePicture) {
    for (const char* name : {"rgb.png", "bmp24.bmp", "turned6.jpg", "tiff24.tif"}) {
        std::vector<std::uint8_t> bytes = read_file_bytes(data(name));
        bytes.resize(bytes.size() / 2);
        EXPECT_THROW(decode_picture(bytes), FileError) << name;
    }
    const std::string text = "GRID MM 0.1;\nLAYER 21;\n";
    EXPECT_THROW(decode_picture({reinterpret_cast<const std::uint8_t*>(text.data()), text.size()}),
                 FileError);
}

TEST(PictureReader, OpensPathsInAnyScript) {
    const test::TemporaryFolder folder;
    const std::filesystem::path file = folder / u8"Prüfung" / u8"徽标.png";
    std::filesystem::create_directory(file.parent_path());
    std::filesystem::copy_file(data("rgb.png"), file);
    EXPECT_EQ(colours(read_picture(file)), kScene);
}

} // namespace
} // namespace kelvane
