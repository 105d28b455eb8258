#include "engine/image_process.h"

#include "support/pictures.h"
#include "support/recording_observer.h"
#include "support/temporary_folder.h"

#include <limits>

namespace kelvane::test {
namespace {

template <typename Action>
void expect_error(std::uint32_t number, int string_id, const char* text, Action action) {
    try {
        action();
        ADD_FAILURE() << "no error raised";
    } catch (const EngineError& error) {
        EXPECT_EQ(error.number(), number);
        EXPECT_EQ(error.string_id(), string_id);
        EXPECT_STREQ(error.what(), text);
        EXPECT_EQ(error.source(), "program.cImageProcess");
    }
}

TEST(Engine, RefusesPropertyValuesAndKeepsTheOldOnes) {
    cImageProcessDIB engine("program");
    engine.set_FilterType(kSoftenMore);
    for (const int type : {0, 16, -1})
        expect_error(0x8004051A, 16100, "Invalid filter types.",
                     [&] { engine.set_FilterType(type); });
    for (const int size : {0, 4, -2, std::numeric_limits<int>::min()})
        expect_error(0x80040519, 16101, "Size must be an odd number",
                     [&] { engine.set_FilterArraySize(size); });
    for (const int size : {11, -1})
        expect_error(0x8004051A, 16102, "Invalid size.  Size should be an odd number from 3 to 9",
                     [&] { engine.set_FilterArraySize(size); });
    EXPECT_EQ(engine.FilterType(), kSoftenMore);
    EXPECT_EQ(engine.FilterArraySize(), 5);
    EXPECT_EQ(engine.FilterWeight(), 44);
    EXPECT_THROW(engine.FilterValue(3, 0), std::out_of_range);
    EXPECT_THROW(engine.set_FilterValue(0, -3, 1), std::out_of_range);
    EXPECT_FALSE(engine.RangeOVL());
}

TEST(Engine, AFailedExportClearsTheRangeFlag) {
    const TemporaryFolder folder;
    cImageProcessDIB engine;
    engine.Vectorize(black_picture(1, 1), folder / "s.scr", {.size = 33027});
    EXPECT_TRUE(engine.RangeOVL());
    EXPECT_THROW(engine.Vectorize(black_picture(1, 1), folder.path(), {}), std::runtime_error);
    EXPECT_FALSE(engine.RangeOVL());
}

TEST(Engine, ANewSizeClearsTheCells) {
    cImageProcessDIB engine;
    engine.set_FilterType(kCustom);
    engine.set_FilterWeight(-7);
    engine.set_FilterArraySize(7);
    EXPECT_EQ(engine.FilterWeight(), -7);
    engine.set_FilterValue(-3, 2, 5);
    EXPECT_EQ(engine.FilterValue(-3, 2), 5);
    EXPECT_EQ(engine.FilterValue(2, -3), 0);
    engine.set_FilterArraySize(1);
    EXPECT_EQ(engine.FilterArraySize(), 1);
    engine.set_FilterArraySize(7);
    EXPECT_EQ(engine.FilterValue(-3, 2), 0);
}

TEST(Engine, FiltersWithoutKernelKeepTheCellsAndResetTheWeight) {
    cImageProcessDIB engine;
    for (const int type : {kMeanRank, kMinimumRank, kMaximumRank, kReserved, kUnsharp}) {
        engine.set_FilterType(kSoftenMore);
        engine.set_FilterType(type);
        EXPECT_EQ(engine.FilterArraySize(), 5);
        EXPECT_EQ(engine.FilterValue(0, 0), 12);
        EXPECT_EQ(engine.FilterWeight(), 0);
    }
    // To run unsharp leaves the blur's kernel, and no weight.
    cDIBSection image = random_picture(6, 6, 1);
    cDIBSection buffer = black_picture(6, 6);
    EXPECT_TRUE(engine.ProcessImage(image, buffer));
    EXPECT_EQ(engine.FilterType(), kUnsharp);
    EXPECT_EQ(engine.FilterArraySize(), 3);
    EXPECT_EQ(engine.FilterValue(0, 0), 1);
    EXPECT_EQ(engine.FilterWeight(), 0);
    engine.set_FilterType(kSoften);
    engine.set_FilterType(kCustom);
    EXPECT_EQ(engine.FilterWeight(), 12);
}

using Engine = cImageProcessDIB;
using Picture = cDIBSection;

TEST(Engine, RefusesPicturesThatDoNotFit) {
    constexpr bool (*calls[])(Engine&, Picture&, Picture&) = {
        [](Engine& e, Picture& a, Picture& b) { return e.ProcessImage(a, b); },
        [](Engine& e, Picture& a, Picture& b) { return e.AddImages(a, b, 0, 0, 0, 0, 0, 0, 0, 0); },
        [](Engine& e, Picture& a, Picture& b) {
            return e.ApplyPalette(a, b, cPalette({{1, 2, 3}}));
        },
        [](Engine& e, Picture& a, Picture& b) { return e.Steinberg(a, b); },
        [](Engine& e, Picture& a, Picture& b) { return e.EdgeDetect2(a, b, 0); },
        [](Engine& e, Picture& a, Picture& b) { return e.LocalBlackWhite(a, b, 3, 0); }};
    cImageProcessDIB engine;
    const cDIBSection original = random_picture(8, 8, 1);
    const cDIBSection smaller = random_picture(8, 7, 2);
    for (std::size_t i = 0; i < std::size(calls); ++i) {
        SCOPED_TRACE(i);
        cDIBSection picture = original.Copy(), other = smaller.Copy(), none;
        cDIBSection given_away = original.Copy();
        const cDIBSection owner = std::move(given_away);
        EXPECT_FALSE(calls[i](engine, other, picture));
        for (cDIBSection* empty : {&none, &given_away}) { // NOLINT: moved from on purpose
            EXPECT_FALSE(calls[i](engine, picture, *empty));
            EXPECT_FALSE(calls[i](engine, *empty, picture));
        }
        EXPECT_TRUE(same_pixels(picture, original));
        EXPECT_TRUE(same_pixels(other, smaller));
    }
}

TEST(Engine, NamedCombinationsAndReductions) {
    cImageProcessDIB engine;
    const cDIBSection source = flat_picture(1, 1, 1, 2, 3);
    const auto after = [](auto operation) {
        cDIBSection target = flat_picture(1, 1, 4, 5, 6);
        EXPECT_TRUE(operation(target));
        return pixel_at(target, 0, 0);
    };
    const std::array black{0, 0, 0}, white{255, 255, 255};
    EXPECT_EQ(after([&](Picture& t) { return engine.AddLightest(source, t); }),
              (std::array{1, 2, 3}));
    EXPECT_EQ(after([&](Picture& t) { return engine.AddDarkest(source, t); }),
              (std::array{4, 5, 6}));
    EXPECT_EQ(
        after([&](Picture& t) { return engine.AddImages(source, t, 2, 1, 2, 3, 3, 4, 5, 6); }),
        (std::array{28, 38, 46}));
    EXPECT_EQ(after([&](Picture& t) { return engine.BlackAndWhite(t, t, 4); }), white); // grey 5
    EXPECT_EQ(after([&](Picture& t) {
                  return engine.LineArt2(t, t, 4, {false, false, true});
              }),
              black);
}

TEST(Engine, RefusesAnEmptyPicture) {
    cImageProcessDIB engine;
    cDIBSection none;
    EXPECT_FALSE(engine.GrayScale(none) || engine.Fade(none, 9) || engine.Lighten(none, 9) ||
                 engine.Colourise(none, 1) || engine.AddNoise(none, 9) ||
                 engine.NegativeImage(none) || engine.Despeckle(none, 9) ||
                 engine.Crop(none, {0, 0, 1, 1}) || engine.Mirror(none) || engine.Flip(none) ||
                 engine.RotateHalf(none) || engine.RotateRight(none) || engine.RotateLeft(none) ||
                 engine.DarkBounds(none) || engine.OtsuLimit(none));
}

TEST(Engine, RefusesWhatItCannotRun) {
    cImageProcessDIB engine;
    const cDIBSection original = random_picture(8, 8, 1);
    cDIBSection image = original.Copy();
    cDIBSection buffer = black_picture(8, 8);
    EXPECT_FALSE(engine.ProcessImage(image, image));
    engine.set_FilterWeight(0);
    EXPECT_FALSE(engine.ProcessImage(image, buffer));
    engine.set_FilterType(kReserved);
    EXPECT_FALSE(engine.ProcessImage(image, buffer));
    EXPECT_FALSE(engine.ApplyPalette(image, buffer, {}));
    EXPECT_FALSE(engine.LineArt2(image, buffer, 128, {}));
    for (const int size : {-3, 1, 4, 1001})
        EXPECT_FALSE(engine.LocalBlackWhite(image, buffer, size, 0));
    for (const int offset : {-256, 256})
        EXPECT_FALSE(engine.LocalBlackWhite(image, buffer, 3, offset));
    EXPECT_FALSE(engine.Despeckle(image, -1));
    EXPECT_FALSE(engine.Crop(image, {1, 0, 8, 8}));
    for (const int margin : {-1, 1000001})
        EXPECT_FALSE(engine.Crop(image, {0, 0, 8, 8}, margin));
    EXPECT_TRUE(same_pixels(image, original));
    // A picture smaller than the kernel is left alone, and that counts as done.
    cDIBSection tiny = black_picture(2, 2), tiny_buffer = black_picture(2, 2);
    engine.set_FilterType(kSoftenMore);
    EXPECT_TRUE(engine.ProcessImage(tiny, tiny_buffer));
}

TEST(Engine, TakesForDarkWhatAnExportDoes) {
    cImageProcessDIB engine;
    cDIBSection picture = flat_picture(3, 2, 129, 129, 129);
    std::memset(picture.view().pixel(1, 0), 128, 3);
    EXPECT_EQ(engine.DarkBounds(picture), (PixelRect{1, 1, 1, 1}));
    EXPECT_TRUE(engine.Despeckle(picture, 0));
    EXPECT_TRUE(same_pixels(picture, drawn({"...", ".#."})));
}

TEST(Engine, AnUnknownShapeIsScannedButNotWritten) {
    TemporaryFolder folder;
    cImageProcessDIB engine;
    RecordingObserver observer;
    engine.set_observer(&observer);
    ExportOptions options;
    for (const std::int16_t kind : {-1, 3}) {
        options.optPoly = kind;
        engine.Vectorize(drawn({"#..#", "##.."}), folder / "a.scr", options);
    }
    EXPECT_EQ(observer.maxima, (std::vector<long>{9, 9}));
    EXPECT_EQ(observer.positions, (std::vector<long>{0, 1, 0, 1}));
    EXPECT_EQ(observer.times.size(), 2u);
    engine.Vectorize({}, folder / "a.scr", {});
    EXPECT_FALSE(std::filesystem::exists(folder / "a.scr"));
}

TEST(Engine, EmphasizesInTwoPasses) {
    cImageProcessDIB engine;
    RecordingObserver observer;
    engine.set_observer(&observer);
    const cDIBSection original = flat_picture(5, 5, 200, 100, 40);
    cDIBSection image = original.Copy();
    cDIBSection buffer = black_picture(5, 5);
    engine.set_FilterType(kEmphasizeFirst);
    EXPECT_TRUE(engine.ProcessImage(image, buffer));
    EXPECT_TRUE(same_pixels(image, original));
    EXPECT_EQ(pixel_at(buffer, 2, 2), (std::array{70, 35, 14})); // 7 v / 20
    EXPECT_EQ(pixel_at(buffer, 0, 2), (std::array{200, 100, 40}));
    engine.set_FilterType(kEmphasizeSecond);
    EXPECT_TRUE(engine.ProcessImage(image, buffer));
    EXPECT_EQ(pixel_at(image, 2, 2), (std::array{255, 245, 98}));
    EXPECT_EQ(observer.maxima, (std::vector<long>{9, 9}));
    EXPECT_EQ(observer.positions, (std::vector<long>{3, 6, 9, 3, 6, 9}));
    EXPECT_EQ(observer.times.size(), 2u);
}

} // namespace
} // namespace kelvane::test
