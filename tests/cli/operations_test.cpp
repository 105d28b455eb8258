// The operations of the command line: what each one asks of the engine, and what it refuses.
#include "cli/command_line.h"
#include "cli/exit_code.h"
#include "cli/operations.h"
#include "cli/usage_error.h"
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

// The engine as `text` should use it; the last picture is the one in other.bmp.
using Call = std::function<void(cImageProcessDIB&, cDIBSection&, cDIBSection&, cDIBSection&)>;

Call filtered(std::initializer_list<int> types) {
    return [passes = std::vector<int>(types)](auto& e, auto& p, auto& buffer, auto&) {
        for (const int type : passes) {
            e.set_FilterType(type);
            ASSERT_TRUE(e.ProcessImage(p, buffer));
        }
    };
}

void custom_filtered(cImageProcessDIB& e, cDIBSection& p, cDIBSection& buffer, cDIBSection&) {
    e.set_FilterType(kCustom);
    e.set_FilterArraySize(3);
    e.set_FilterWeight(-5);
    for (int i = 0; i < 9; ++i)
        e.set_FilterValue(i % 3 - 1, i / 3 - 1, i + 1);
    ASSERT_TRUE(e.ProcessImage(p, buffer));
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
    return {
        {"soften", filtered({kSoften})},
        {"soften-more", filtered({kSoftenMore})},
        {"blur", filtered({kBlur})},
        {"blur-more", filtered({kBlurMore})},
        {"sharpen", filtered({kSharpen})},
        {"sharpen-more", filtered({kSharpenMore})},
        {"unsharp", filtered({kUnsharp})},
        {"emboss", filtered({kEmboss})},
        {"median", filtered({kMeanRank})},
        {"minimum", filtered({kMinimumRank})},
        {"maximum", filtered({kMaximumRank})},
        {"emphasize", filtered({kEmphasizeFirst, kEmphasizeSecond})},
        {"custom:3,-5,1,2,3,4,5,6,7,8,9", custom_filtered},
        {"grayscale", [](auto& e, auto& p, auto&, auto&) { e.GrayScale(p); }},
        {"darken", [](auto& e, auto& p, auto&, auto&) { e.Fade(p, 240); }},
        {"darken:0", [](auto& e, auto& p, auto&, auto&) { e.Fade(p, 0); }},
        {"lighten", [](auto& e, auto& p, auto&, auto&) { e.Lighten(p, 20); }},
        {"lighten:-35", [](auto& e, auto& p, auto&, auto&) { e.Lighten(p, -35); }},
        {"colourise:-0.25", [](auto& e, auto& p, auto&, auto&) { e.Colourise(p, -0.25f); }},
        {"noise:40", [](auto& e, auto& p, auto&, auto&) { e.AddNoise(p, 40); }},
        {"noise:40,random", [](auto& e, auto& p, auto&, auto&) { e.AddNoise(p, 40, true); }},
        {"negative", [](auto& e, auto& p, auto&, auto&) { e.NegativeImage(p); }},
        {"steinberg", [](auto& e, auto& p, auto& buffer, auto&) { e.Steinberg(p, buffer); }},
        {"palette:" + path("two, colours.pal"),
         [](auto& e, auto& p, auto& buffer, auto&) {
             e.ApplyPalette(p, buffer, cPalette({{10, 20, 30}, {200, 100, 50}}));
         }},
        {"bw:99", [](auto& e, auto& p, auto& to, auto&) { e.BlackAndWhite2(p, to, 99); }},
        {"line-art:99,0,1,1",
         [](auto& e, auto& p, auto& to, auto&) {
             e.LineArt2(p, to, 99, {false, true, true});
         }},
        {"edges:150", // spares the first row and column
         [](auto& e, auto& p, auto& to, auto&) { to = p.Copy(), e.EdgeDetect2(p, to, 150); }},
        {"resample:8x5", [](auto&, auto& p, auto&, auto&) { p = p.Resample(5, 8); }},
        {"add-lightest:" + path("other.bmp"),
         [](auto& e, auto& p, auto&, auto& other) { e.AddLightest(other, p); }},
        {"add-darkest:" + path("other.bmp"),
         [](auto& e, auto& p, auto&, auto& other) { e.AddDarkest(other, p); }},
        {"add:" + path("other.bmp") + ",-1,2,3,4,2,-5,6,7",
         [](auto& e, auto& p, auto&, auto& other) {
             e.AddImages(other, p, -1, 2, 3, 4, 2, -5, 6, 7);
         }},
    };
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
        call(engine, expected, buffer, other_);
        engine.seed_noise(5);
        cDIBSection actual = picture_.Copy();
        parse_operation(text)(actual, engine);
        EXPECT_TRUE(same_pixels(actual, expected)) << text;
        EXPECT_FALSE(same_pixels(actual, picture_)) << text;
    }
    EXPECT_THAT(untried, testing::IsEmpty());
}

TEST_F(Operations, WrongUseSaysWhatIsAccepted) {
    const std::pair<const char*, const char*> wrong[] = {
        {"", "there are soften, soften-more, blur"},
        {"Blur", "there are soften"},
        {"blur:3", "takes no arguments"},
        {"negative:", "takes no arguments"},
        {"darken:256", "LEVEL is from 0 to 255"},
        {"darken:-1", "LEVEL is from 0 to 255"},
        {"darken:1,2", "takes 0 to 1 argument"},
        {"lighten:-101", "PERCENT is from -100 to 1000"},
        {"lighten:20%", "PERCENT is from -100 to 1000"},
        {"colourise", "colourise:HUE"},
        {"colourise:5.1", "HUE is from -1 to 5"},
        {"colourise:nan", "HUE is from -1 to 5"},
        {"noise:101", "PERCENT is from 0 to 100"},
        {"noise:5,often", "random"},
        {"bw", "bw:LIMIT"},
        {"bw:99999999999", "LIMIT is from 0 to 255"},
        {"bw: 5", "LIMIT is from 0 to 255"},
        {"edges:257", "LIMIT is from 0 to 256"},
        {"line-art:9,1,1", "takes 4 argument"},
        {"line-art:9,1,2,1", "G is from 0 to 1"},
        {"line-art:9,0,0,0", "at least one of R, G and B is 1"},
        {"custom:3", "SIZE x SIZE coefficients"},
        {"custom:1,0,7", "WEIGHT divides every sum and cannot be 0"},
        {"custom:2,1,1,1,1,1", "SIZE is odd"},
        {"custom:11,1", "SIZE is from 1 to 9"},
        {"custom:3,1,1,1,1,1,1,1,1,1", "takes 11 argument"},
        {"custom:1,1,100001", "from -100000 to 100000"},
        {"resample:20", "WIDTH and HEIGHT"},
        {"resample:0x5", "WIDTH and HEIGHT"},
        {"resample:5x5x5", "WIDTH and HEIGHT"},
        {"palette", "needs a file name"},
        {"add-darkest:", "needs a file name"},
        {"add:a.bmp,1,0,0,0,1,0,0", "a file name and 8 numbers"},
        {"add:,1,0,0,0,1,0,0,0", "needs a file name"},
        {"add:a.bmp,1001,0,0,0,1,0,0,0", "a multiplier is from -1000 to 1000"},
    };
    for (const auto& [text, accepted] : wrong) {
        try {
            parse_operation(text);
            ADD_FAILURE() << text;
        } catch (const UsageError& error) {
            EXPECT_THAT(error.what(), HasSubstr(accepted)) << text;
        }
        EXPECT_EQ(apply("out.bmp", {"negative", text}), kExitUsage) << text;
    }
    EXPECT_EQ(apply("out.bmp", {}), kExitUsage);
    EXPECT_EQ(apply("out.bmp", {"noise:5", "--seed", "x"}), kExitUsage);
    EXPECT_FALSE(std::filesystem::exists(folder_ / "out.bmp"));
}

TEST_F(Operations, FilesOfNoUseAreNamedWithTheCause) {
    write_text(folder_ / "out.bmp", "before");
    const std::pair<std::string, const char*> wrong[] = {
        {"palette:missing.pal", ""},
        {"palette:wrong.pal", "line 1"},
        {"palette:no colours.pal", "no line of three numbers"},
        {"add-lightest:missing.bmp", ""},
        {"add-lightest:wrong.pal", ""},
        {"add-darkest:small.bmp", "20 x 11 pixels, the picture to change 21 x 11"},
        {"add:small.bmp,1,0,0,0,1,0,0,0", "20 x 11"},
    };
    for (const auto& [text, cause] : wrong) {
        const std::size_t colon = text.find(':');
        const std::string file = path(text.substr(colon + 1, text.find(',') - colon - 1));
        const std::string numbers = text.substr(std::min(text.find(','), text.size()));
        const std::string operation = text.substr(0, colon + 1) + file + numbers;
        EXPECT_EQ(apply("out.bmp", {operation}), kExitFailed) << text;
        EXPECT_THAT(error_.str(), StartsWith("kelvane-cli: " + file + ": ")) << text;
        EXPECT_THAT(error_.str(), HasSubstr(cause)) << text;
    }
    EXPECT_EQ(file_text(folder_ / "out.bmp"), "before");
}

TEST_F(Operations, ApplyRunsFromLeftToRightAndSavesEveryPixel) {
    ASSERT_EQ(apply("out.bmp", {"sharpen", "resample:30x7", "darken:200", "median"}), kExitDone)
        << error_.str();
    EXPECT_EQ(out_.str() + error_.str(), "");
    cImageProcessDIB engine;
    cDIBSection buffer = black_picture(21, 11);
    engine.set_FilterType(kSharpen);
    engine.ProcessImage(picture_, buffer);
    cDIBSection expected = picture_.Resample(7, 30);
    engine.Fade(expected, 200);
    engine.set_FilterType(kMeanRank);
    buffer = black_picture(30, 7);
    engine.ProcessImage(expected, buffer);
    EXPECT_TRUE(same_pixels(read_picture(folder_ / "out.bmp"), expected));
    EXPECT_EQ(file_text(folder_ / "out.bmp").size(), 54u + 7 * 92);
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
    std::string line;
    for (const OperationInfo& info : operations()) {
        ASSERT_TRUE(std::getline(lines, line));
        EXPECT_THAT(line, StartsWith(std::string(info.name) + std::string(info.arguments) + "  "));
        EXPECT_THAT(line, testing::EndsWith("  " + std::string(info.help)));
        EXPECT_FALSE(info.help.empty());
    }
    EXPECT_FALSE(std::getline(lines, line));
}

} // namespace
} // namespace kelvane::test
