// What a board report says of a picture, and lengths on the board.
#include "base/number_text.h"
#include "export/board_report.h"
#include "export/layers.h"
#include "export/length.h"
#include "support/pictures.h"
#include "support/recording_observer.h"

#include <gmock/gmock.h>

namespace kelvane::test {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using enum BoardWarning;

void fill(const cDIBSection& picture, int x, int y, int width, int height) {
    auto* const bits = const_cast<std::uint8_t*>(picture.DIBSectionBitsPtr());
    for (int row = y; row < y + height; ++row)
        std::memset(bits + row * picture.BytesPerScanLine() + 3 * x, 0,
                    3 * static_cast<std::size_t>(width));
}

// White, with two blocks 2 pixels apart, and a bar of 1 x 30 pixels.
cDIBSection blocks_and_bar() {
    cDIBSection picture = flat_picture(200, 100, 255, 255, 255);
    fill(picture, 10, 20, 40, 30);
    fill(picture, 52, 20, 40, 30);
    fill(picture, 120, 20, 1, 30);
    return picture;
}

BoardQuestion question_of(double size, std::int16_t layer = 21) {
    BoardQuestion question;
    question.options.size = size;
    question.options.unit = kMillimetres;
    question.options.lay = layer;
    return question;
}

TEST(BoardReport, SizesThinPlacesAndWarnings) {
    const cDIBSection picture = blocks_and_bar();
    BoardReport report = check_board(picture.view(), question_of(.05));
    EXPECT_DOUBLE_EQ(report.picture_width_mm, 10);
    EXPECT_DOUBLE_EQ(report.picture_height_mm, 5);
    const InkBox& ink = report.ink;
    EXPECT_THAT((std::array{ink.x, ink.y, ink.width, ink.height}), ElementsAre(10, 20, 111, 30));
    EXPECT_DOUBLE_EQ(report.ink_width_mm, 5.55);
    EXPECT_DOUBLE_EQ(report.ink_height_mm, 1.5);
    EXPECT_EQ(report.lines.places.places, 1U);
    EXPECT_EQ(report.lines.places.thinnest->x, 120);
    EXPECT_TRUE(report.lines.places.too_thin.get(120, 35));
    EXPECT_DOUBLE_EQ(*report.lines.thinnest_mm, .05);
    EXPECT_EQ(report.gaps.places.places, 1U);
    EXPECT_DOUBLE_EQ(*report.gaps.thinnest_mm, .1);
    EXPECT_THAT(report.warnings, ElementsAre(ThinLines, ThinGaps));
}

TEST(BoardReport, MeasuresWhatIsWideEnoughOnlyWhenAsked) {
    const cDIBSection picture = blocks_and_bar();
    BoardQuestion question = question_of(.2);
    EXPECT_FALSE(check_board(picture.view(), question).lines.thinnest_mm);
    question.measures = true;
    BoardReport report = check_board(picture.view(), question);
    EXPECT_DOUBLE_EQ(*report.lines.thinnest_mm, .2);
    EXPECT_DOUBLE_EQ(*report.gaps.thinnest_mm, .4);
    EXPECT_THAT(report.warnings, IsEmpty());
    fill(picture, 0, 0, 200, 100); // wider than any disc
    report = check_board(picture.view(), question);
    EXPECT_NEAR(*report.lines.thinnest_mm, 20, .2);
    EXPECT_FALSE(report.gaps.thinnest_mm);
    question.limits = {0, 0};
    report = check_board(blocks_and_bar().view(), question);
    EXPECT_FALSE(report.lines.thinnest_mm || report.gaps.thinnest_mm);
}

// So that a dialog can stop it when there is input.
TEST(BoardReport, TheExportAndTheCheckReportEveryRow) {
    const cDIBSection picture = drawn({"....", ".##.", "##.."});
    ExportOptions options;
    options.smooth = .5;
    RecordingObserver observer;
    CountExport(picture.view(), options, &observer);
    EXPECT_THAT(observer.maxima, ElementsAre(9, 15, 3)); // runs, their links, outlines
    EXPECT_THAT(observer.positions,
                ElementsAre(0, 1, 2, 0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14));
    observer = {};
    board_widths(drawn_pixels(picture.view()), WidthOf::Gaps, question_of(.05), &observer);
    EXPECT_THAT(observer.maxima, ElementsAre(3));
    EXPECT_THAT(observer.positions, ElementsAre(0, 1, 2, 3));
}

TEST(BoardReport, WarningsOfLayersSizesAndNumbers) {
    const cDIBSection block = black_picture(20, 20), white = flat_picture(9, 9, 255, 255, 255);
    const auto warnings = [&](const BoardQuestion& question, const cDIBSection& picture) {
        return check_board(picture.view(), question).warnings;
    };
    std::vector<int> bottom;
    for (std::int16_t layer = 1; layer <= 255; ++layer) {
        BoardQuestion question = question_of(.1, layer);
        const auto found = warnings(question, block);
        if (found == std::vector{NotMirrored}) bottom.push_back(layer);
        question.mirrored = true;
        EXPECT_EQ(warnings(question, block).size(), layer == 20 ? 1U : 0U) << layer;
    }
    EXPECT_THAT(bottom, ElementsAre(16, 22, 24, 26, 28, 30, 32, 34, 36, 38, 40, 42, 52));
    EXPECT_THAT(warnings(question_of(0, 20), white),
                ElementsAre(NoPixelSize, NothingDark, OutlineLayer));
    BoardReport report;
    add_objects(report, {.shapes = 19000, .bridges = 1000});
    EXPECT_THAT(report.warnings, IsEmpty());
    add_objects(report, {.shapes = 19000, .bridges = 1001});
    EXPECT_THAT(report.warnings, ElementsAre(BoardWarning::ManyObjects));
}

// The far edge of the picture is where it was asked to be.
TEST(Length, ThePictureBecomesAsWideAsAsked) {
    for (const double wanted : {20., 9.9, .8, 787.4, 33.33, 1e-3, 123456.789})
        for (int pixels = 1; pixels <= 4000; ++pixels)
            ASSERT_EQ(NumberToText(pixels * pixel_size_for_length(wanted, pixels)),
                      NumberToText(wanted))
                << pixels;
    EXPECT_EQ(converted_length(1, 1, 0), 1000); // inch, mil
    EXPECT_EQ(converted_length(25.4, 3, 1), 1); // mm, inch
    EXPECT_EQ(converted_length(2, 2, 3), .002); // mic, mm
    EXPECT_EQ(pixel_size_for_resolution(254, 3), .1);
}

} // namespace
} // namespace kelvane::test
