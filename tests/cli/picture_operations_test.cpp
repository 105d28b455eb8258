// Geometry, reductions that find their limits and clean-up on the command line: whole pictures.
#include "base/text.h"
#include "cli/command_line.h"
#include "cli/exit_code.h"
#include "image/bitmap_file.h"
#include "image/picture_reader.h"
#include "support/pictures.h"
#include "support/temporary_folder.h"

#include <gmock/gmock.h>

#include <sstream>

namespace kelvane::test {
namespace {

using testing::HasSubstr;
using Lines = std::vector<std::string>;

class PictureOperations : public testing::Test {
  protected:
    std::string path(const char* name) const { return utf8_text(folder_ / name); }
    int apply(const cDIBSection& picture, std::vector<std::string> operations) {
        save_bitmap(picture.view(), folder_ / "in.bmp");
        std::filesystem::remove(folder_ / "out.bmp");
        operations.insert(operations.begin(), {"apply", path("in.bmp"), "-o", path("out.bmp")});
        std::ostringstream out;
        error_.str("");
        return run_command_line(operations, {out, error_});
    }
    void expect_result(const cDIBSection& picture, const char* operation, const Lines& lines) {
        SCOPED_TRACE(operation);
        EXPECT_EQ(apply(picture, {operation}), kExitDone) << error_.str();
        EXPECT_TRUE(same_pixels(read_picture(folder_ / "out.bmp"), drawn(lines)));
    }

    TemporaryFolder folder_;
    std::ostringstream error_;
};

TEST_F(PictureOperations, Geometry) {
    const cDIBSection picture = drawn({"....", //
                                       ".##.", //
                                       "..#."});
    expect_result(picture, "crop:1,0,3x2", {"...", "##."});
    expect_result(picture, "trim", {"##", ".#"});
    expect_result(picture, "trim:1", {"....", ".##.", "..#.", "...."});
    expect_result(picture, "mirror", {"....", ".##.", ".#.."});
    expect_result(picture, "flip", {"..#.", ".##.", "...."});
    expect_result(picture, "rotate:90", {"...", ".#.", "##.", "..."});
    expect_result(picture, "rotate:180", {".#..", ".##.", "...."});
    expect_result(picture, "rotate:270", {"...", ".##", ".#.", "..."});
}

// Greys from the upper left.
cDIBSection greys(const std::vector<std::vector<int>>& rows) {
    cDIBSection picture =
        black_picture(static_cast<int>(rows[0].size()), static_cast<int>(rows.size()));
    for (std::size_t y = 0; y < rows.size(); ++y)
        for (std::size_t x = 0; x < rows[y].size(); ++x)
            std::memset(
                picture.view().pixel(static_cast<int>(x), static_cast<int>(rows.size() - 1 - y)),
                rows[y][x], 3);
    return picture;
}

TEST_F(PictureOperations, ReductionsAndCleanUp) {
    expect_result(greys({{140, 141, 200, 210}, {139, 230, 142, 139}}), "bw:auto", {"##..", "#.##"});
    // The means of the columns: 90, 110, 143.3 and 176.7.
    const cDIBSection uneven = greys({{90, 90, 150, 210}, {90, 90, 150, 150}, {90, 90, 150, 210}});
    expect_result(uneven, "local-bw:3,0", {"##..", "##.#", "##.."});
    expect_result(uneven, "local-bw:3,1", {".#..", ".#.#", ".#.."});
    expect_result(drawn({"#..##", "...##", "#####"}), "despeckle:1", {"...##", "...##", "#####"});
    expect_result(drawn({"##.##", "#####", "#####"}), "despeckle:1", {"#####", "#####", "#####"});
}

TEST_F(PictureOperations, WrongUseSaysWhatIsAccepted) {
    const std::pair<const char*, const char*> wrong[] = {
        {"bw:Auto", "from 0 to 255"},         {"local-bw:1,0", "from 3 to 999"},
        {"local-bw:4,0", "SIZE is odd"},      {"local-bw:3,256", "from -255 to 255"},
        {"despeckle:-1", "from 0 to"},        {"crop:-1,0,2x2", "from 0 to 1000000"},
        {"crop:0,0,3x0", "WIDTH and HEIGHT"}, {"crop:0,0,3", "WIDTH and HEIGHT"},
        {"trim:-1", "from 0 to 1000000"},     {"rotate:45", "90, 180 or 270"},
        {"flip:1", "takes no arguments"}};
    for (const auto& [operation, accepted] : wrong) {
        EXPECT_EQ(apply(black_picture(3, 3), {operation}), kExitUsage) << operation;
        EXPECT_THAT(error_.str(), HasSubstr(accepted)) << operation;
    }
}

TEST_F(PictureOperations, FailWhereThereIsNothingToTakeAndWriteNothing) {
    for (const char* beyond : {"crop:1,0,4x3", "crop:0,1,4x3", "crop:4,3,1x1"}) {
        EXPECT_EQ(apply(black_picture(4, 3), {beyond}), kExitFailed);
        EXPECT_THAT(error_.str(), HasSubstr("beyond the picture of 4 x 3 pixels"));
    }
    EXPECT_EQ(apply(flat_picture(4, 3, 129, 129, 129), {"trim"}), kExitFailed);
    EXPECT_THAT(error_.str(), HasSubstr("nothing dark"));
    EXPECT_FALSE(std::filesystem::exists(folder_ / "out.bmp"));
}

TEST_F(PictureOperations, TakeAPictureOfOnePixel) {
    const cDIBSection dot = drawn({"#"});
    for (const char* operation :
         {"crop:0,0,1x1", "trim", "mirror", "flip", "rotate:90", "rotate:180", "rotate:270",
          "bw:auto", "local-bw:999,0", "despeckle:0"})
        expect_result(dot, operation, {"#"});
    expect_result(dot, "despeckle:1", {"#"}); // removed as a dark area, then as a light one
    expect_result(drawn({"."}), "despeckle:2147483647", {"#"});
}

} // namespace
} // namespace kelvane::test
