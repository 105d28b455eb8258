// The operations of the command line: what each one asks of the engine, and what it refuses.
#include "cli/command_line.h"
#include "cli/exit_code.h"
#include "cli/operations.h"
#include "cli/utf8_path.h"
#include "image/bitmap_file.h"
#include "image/file_error.h"
#include "image/picture_reader.h"
#include "support/pictures.h"
#include "support/temporary_folder.h"

#include <gmock/gmock.h>

#include <set>
#include <sstream>

namespace kelvane::test {
namespace {

using testing::HasSubstr;
using testing::StartsWith;

// What an operation works with; `other` is the picture in other.bmp.
struct Work {
    cImageProcessDIB& engine;
    cDIBSection& picture;
    cDIBSection& buffer;
    cDIBSection& other;
};
using Call = std::function<void(Work)>;

Call filtered(std::vector<int> passes) {
    return [passes = std::move(passes)](Work w) {
        for (const int type : passes) {
            w.engine.set_FilterType(type);
            ASSERT_TRUE(w.engine.ProcessImage(w.picture, w.buffer));
        }
    };
}

void custom_filtered(Work w) {
    w.engine.set_FilterType(kCustom);
    w.engine.set_FilterArraySize(3);
    w.engine.set_FilterWeight(-5);
    for (int i = 0; i < 9; ++i)
        w.engine.set_FilterValue(i % 3 - 1, i / 3 - 1, i + 1);
    ASSERT_TRUE(w.engine.ProcessImage(w.picture, w.buffer));
}

class Operations : public testing::Test {
  protected:
    Operations() {
        save_bitmap(picture_.view(), folder_ / "in.bmp");
        save_bitmap(other_.view(), folder_ / "other.bmp");
        save_bitmap(black_picture(20, 11).view(), folder_ / "small.bmp");
        write_text(folder_ / "two, colours.pal", "2\r\n10 20 30\r\n200 100 50\r\n");
        write_text(folder_ / "wrong.pal", "1 2 256\n");
        write_text(folder_ / "no colours.pal", "JASC-PAL\n0100\n0\n");
    }

    std::string path(const std::string& name) const { return utf8_text(folder_ / utf8_path(name)); }
    int apply(const std::string& output, std::vector<std::string> more) {
        more.insert(more.begin(), {"apply", path("in.bmp"), "-o", path(output)});
        out_.str("");
        error_.str("");
        return run_command_line(more, {out_, error_});
    }
    std::vector<std::pair<std::string, Call>> calls() const;

    TemporaryFolder folder_;
    cDIBSection picture_ = random_picture(21, 11, 1);
    cDIBSection other_ = random_picture(21, 11, 2);
    std::ostringstream out_;
    std::ostringstream error_;
};

std::vector<std::pair<std::string, Call>> Operations::calls() const {
    const std::string other = path("other.bmp");
    std::vector<std::pair<std::string, Call>> calls{
        {"emphasize", filtered({kEmphasizeFirst, kEmphasizeSecond})},
        {"custom:3,-5,1,2,3,4,5,6,7,8,9", custom_filtered},
        {"grayscale", [](Work w) { w.engine.GrayScale(w.picture); }},
        {"darken", [](Work w) { w.engine.Fade(w.picture, 240); }},
        {"darken:0", [](Work w) { w.engine.Fade(w.picture, 0); }},
        {"lighten", [](Work w) { w.engine.Lighten(w.picture, 20); }},
        {"lighten:-35", [](Work w) { w.engine.Lighten(w.picture, -35); }},
        {"colourise:-0.25", [](Work w) { w.engine.Colourise(w.picture, -0.25f); }},
        {"noise:40", [](Work w) { w.engine.AddNoise(w.picture, 40); }},
        {"noise:40,random", [](Work w) { w.engine.AddNoise(w.picture, 40, true); }},
        {"negative", [](Work w) { w.engine.NegativeImage(w.picture); }},
        {"steinberg", [](Work w) { w.engine.Steinberg(w.picture, w.buffer); }},
        {"palette:" + path("two, colours.pal"),
         [](Work w) {
             w.engine.ApplyPalette(w.picture, w.buffer, cPalette({{10, 20, 30}, {200, 100, 50}}));
         }},
        {"bw:99", [](Work w) { w.engine.BlackAndWhite2(w.picture, w.buffer, 99); }},
        {"line-art:99,0,1,1",
         [](Work w) {
             w.engine.LineArt2(w.picture, w.buffer, 99, {false, true, true});
         }},
        {"edges:150", // spares the first row and column
         [](Work w) { w.engine.EdgeDetect2(w.picture, w.picture, 150); }},
        {"resample:8x5", [](Work w) { w.picture = w.picture.Resample(5, 8); }},
        {"add-lightest:" + other, [](Work w) { w.engine.AddLightest(w.other, w.picture); }},
        {"add-darkest:" + other, [](Work w) { w.engine.AddDarkest(w.other, w.picture); }},
        {"add:" + other + ",-1,2,3,4,2,-5,6,7",
         [](Work w) { w.engine.AddImages(w.other, w.picture, -1, 2, 3, 4, 2, -5, 6, 7); }}};
    const std::pair<const char*, int> filters[] = {
        {"soften", kSoften},       {"soften-more", kSoftenMore}, {"blur", kBlur},
        {"blur-more", kBlurMore},  {"sharpen", kSharpen},        {"sharpen-more", kSharpenMore},
        {"unsharp", kUnsharp},     {"emboss", kEmboss},          {"median", kMeanRank},
        {"minimum", kMinimumRank}, {"maximum", kMaximumRank}};
    for (const auto& [name, type] : filters)
        calls.emplace_back(name, filtered({type}));
    return calls;
}

TEST_F(Operations, EachAsksTheEngineForWhatItsNameSays) {
    std::set<std::string> untried;
    for (const OperationInfo& info : operations())
        untried.emplace(info.name);
    for (const auto& [text, call] : calls()) {
        untried.erase(text.substr(0, text.find(':')));
        cImageProcessDIB engine;
        engine.seed_noise(5);
        cDIBSection expected = picture_.Copy();
        cDIBSection buffer = black_picture(21, 11);
        call({engine, expected, buffer, other_});
        engine.seed_noise(5);
        cDIBSection actual = picture_.Copy();
        parse_operation(text)(actual, engine);
        EXPECT_TRUE(same_pixels(actual, expected)) << text;
        EXPECT_FALSE(same_pixels(actual, picture_)) << text;
    }
    EXPECT_THAT(untried, testing::UnorderedElementsAre("local-bw", "despeckle", "crop", "trim",
                                                       "mirror", "flip", "rotate"));
}

TEST_F(Operations, WrongUseSaysWhatIsAccepted) {
    const std::pair<const char*, std::vector<const char*>> wrong[] = {
        {"there are soften, soften-more, blur", {"", "Blur"}},
        {"takes no arguments", {"blur:3", "negative:"}},
        {"LEVEL is from 0 to 255", {"darken:256", "darken:-1"}},
        {"takes 0 to 1 argument", {"darken:1,2"}},
        {"PERCENT is from -100 to 1000", {"lighten:-101", "lighten:20%"}},
        {"colourise:HUE", {"colourise"}},
        {"HUE is from -1 to 5", {"colourise:5.1", "colourise:nan"}},
        {"PERCENT is from 0 to 100", {"noise:101"}},
        {"random", {"noise:5,often"}},
        {"bw:LIMIT", {"bw"}},
        {"LIMIT is from 0 to 255", {"bw:99999999999", "bw: 5"}},
        {"LIMIT is from 0 to 256", {"edges:257"}},
        {"takes 4 argument", {"line-art:9,1,1"}},
        {"G is from 0 to 1", {"line-art:9,1,2,1"}},
        {"at least one of R, G and B is 1", {"line-art:9,0,0,0"}},
        {"SIZE x SIZE coefficients", {"custom:3"}},
        {"WEIGHT divides every sum and cannot be 0", {"custom:1,0,7"}},
        {"SIZE is odd", {"custom:2,1,1,1,1,1"}},
        {"SIZE is from 1 to 9", {"custom:11,1"}},
        {"takes 11 argument", {"custom:3,1,1,1,1,1,1,1,1,1"}},
        {"from -100000 to 100000", {"custom:1,1,100001"}},
        {"WIDTH and HEIGHT", {"resample:20", "resample:0x5", "resample:5x5x5"}},
        {"needs a file name", {"palette", "add-darkest:", "add:,1,0,0,0,1,0,0,0"}},
        {"a file name and 8 numbers", {"add:a.bmp,1,0,0,0,1,0,0"}},
        {"a multiplier is from -1000 to 1000", {"add:a.bmp,1001,0,0,0,1,0,0,0"}},
    };
    for (const auto& [accepted, texts] : wrong)
        for (const char* text : texts) {
            EXPECT_EQ(apply("out.bmp", {"negative", text}), kExitUsage) << text;
            EXPECT_THAT(error_.str(), HasSubstr(accepted)) << text;
        }
    EXPECT_EQ(apply("out.bmp", {}), kExitUsage);
    EXPECT_EQ(apply("out.bmp", {"noise:5", "--seed", "x"}), kExitUsage);
    EXPECT_FALSE(std::filesystem::exists(folder_ / "out.bmp"));
}

TEST_F(Operations, FilesOfNoUseAreNamedWithTheCause) {
    write_text(folder_ / "out.bmp", "before");
    const std::array<std::string, 4> wrong[] = {
        {"palette:", "missing.pal", "", ""},
        {"palette:", "wrong.pal", "", "line 1"},
        {"palette:", "no colours.pal", "", "no line of three numbers"},
        {"add-lightest:", "missing.bmp", "", ""},
        {"add-lightest:", "wrong.pal", "", ""},
        {"add-darkest:", "small.bmp", "", "20 x 11 pixels, the picture to change 21 x 11"},
        {"add:", "small.bmp", ",1,0,0,0,1,0,0,0", "20 x 11"},
    };
    for (const auto& [name, file, numbers, cause] : wrong) {
        EXPECT_EQ(apply("out.bmp", {name + path(file) + numbers}), kExitFailed) << name << file;
        EXPECT_THAT(error_.str(), StartsWith("kelvane-cli: " + path(file) + ": ")) << name << file;
        EXPECT_THAT(error_.str(), HasSubstr(cause)) << name << file;
    }
    EXPECT_EQ(file_text(folder_ / "out.bmp"), "before");
}

TEST_F(Operations, ApplyRunsFromLeftToRightAndSavesEveryPixel) {
    ASSERT_EQ(apply("out.bmp", {"sharpen", "resample:30x7", "darken:200", "median"}), kExitDone)
        << error_.str();
    EXPECT_EQ(out_.str() + error_.str(), "");
    cDIBSection expected = picture_.Copy();
    cImageProcessDIB engine;
    for (const char* operation : {"sharpen", "resample:30x7", "darken:200", "median"})
        parse_operation(operation)(expected, engine);
    EXPECT_TRUE(same_pixels(read_picture(folder_ / "out.bmp"), expected));
    // Rows end at multiples of four bytes.
    EXPECT_EQ(file_text(folder_ / "out.bmp").size(), 54u + 7 * 92);
    ASSERT_EQ(apply("out.bmp", {"resample:4x2"}), kExitDone) << error_.str();
    EXPECT_EQ(file_text(folder_ / "out.bmp").size(), 54u + 2 * 12);
}

TEST_F(Operations, SeedMakesNoiseReproducible) {
    ASSERT_EQ(apply("a.bmp", {"noise:30", "--seed", "7"}), kExitDone) << error_.str();
    ASSERT_EQ(apply("b.bmp", {"--seed", "7", "noise:30"}), kExitDone) << error_.str();
    ASSERT_EQ(apply("c.bmp", {"noise:30", "--seed", "8"}), kExitDone) << error_.str();
    EXPECT_EQ(file_text(folder_ / "a.bmp"), file_text(folder_ / "b.bmp"));
    EXPECT_NE(file_text(folder_ / "a.bmp"), file_text(folder_ / "c.bmp"));
}

TEST_F(Operations, OpsListsEachOnOneLine) {
    ASSERT_EQ(run_command_line({"ops"}, {out_, error_}), kExitDone);
    std::istringstream lines(out_.str());
    for (const OperationInfo& info : operations()) {
        std::string line;
        ASSERT_TRUE(std::getline(lines, line));
        EXPECT_THAT(line, StartsWith(std::string(info.name) + std::string(info.arguments) + "  "));
        EXPECT_THAT(line, testing::EndsWith("  " + std::string(info.help)));
        EXPECT_FALSE(info.help.empty());
    }
    EXPECT_EQ(lines.peek(), EOF);
}

} // namespace
} // namespace kelvane::test
