// The operations of the command line: what each one asks of the engine, and what it refuses.
#include "base/text.h"
#include "cli/command_line.h"
#include "cli/exit_code.h"
#include "cli/operations.h"
#include "image/bitmap_file.h"
#include "support/pictures.h"
#include "support/temporary_folder.h"

#include <gmock/gmock.h>

#include <set>
#include <sstream>

namespace kelvane::test {
namespace {

using testing::HasSubstr;
using testing::StartsWith;

// Of a file's bytes (FNV-1a).
std::uint32_t checksum(const std::string& bytes) {
    std::uint32_t sum = 2166136261;
    for (const char byte : bytes)
        sum = (sum ^ static_cast<std::uint8_t>(byte)) * 16777619;
    return sum;
}

class Operations : public testing::Test {
  protected:
    Operations() {
        save_bitmap(random_picture(21, 11, 1).view(), folder_ / "in.bmp");
        save_bitmap(random_picture(21, 11, 2).view(), folder_ / "other.bmp");
        save_bitmap(black_picture(20, 11).view(), folder_ / "small.bmp");
        write_text(folder_ / "two,colours.pal", "2\r\n10 20 30\r\n200 100 50\r\n");
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
    TemporaryFolder folder_;
    std::ostringstream out_;
    std::ostringstream error_;
};

// Each operation, @ for the folder, and the checksum of the bitmap that it makes.
TEST_F(Operations, WholeResults) {
    std::istringstream results(
        "soften 4173846551 soften-more 4137428212 blur 3356462778 blur-more 122468566 "
        "sharpen 3896737266 sharpen-more 1067098625 unsharp 3264069803 emboss 4080495497 "
        "median 3356462778 minimum 3767498305 maximum 1492366802 emphasize 3321347283 "
        "custom:3,45,1,2,3,4,5,6,7,8,9 199303997 grayscale 3921588099 darken 1218001296 "
        "darken:0 2516987 lighten 332614399 lighten:-35 3608879419 "
        "colourise:-0.25 3043902824 noise:40 2263963528 noise:40,random 2602822840 "
        "negative 938775341 steinberg 1794431812 palette:@two,colours.pal 3398383955 "
        "bw:99 1670203702 line-art:99,0,1,1 2272413949 edges:150 3695897448 "
        "resample:8x5 2979628735 lightest:@other.bmp 2621198250 add-darkest:@other.bmp 2621198250 "
        "darkest:@other.bmp 764339113 add-lightest:@other.bmp 764339113 "
        "add:@other.bmp,-1,2,3,4,2,-5,6,7 1286798325");
    std::set<std::string_view> untried;
    for (const OperationInfo& info : operations())
        untried.insert(info.name);
    std::uint32_t sum = 0;
    for (std::string text; results >> text >> sum;) {
        untried.erase(std::string_view(text).substr(0, text.find(':')));
        if (const std::size_t at = text.find('@'); at != std::string::npos)
            text.replace(at, 1, path(""));
        EXPECT_EQ(apply("out.bmp", {text, "--seed", "5"}), kExitDone) << error_.str();
        EXPECT_EQ(checksum(file_text(folder_ / "out.bmp")), sum) << text;
    }
    // The others have tests of their own.
    EXPECT_THAT(untried, testing::UnorderedElementsAre("local-bw", "despeckle", "crop", "trim",
                                                       "mirror", "flip", "rotate"));
    // From left to right.
    EXPECT_EQ(apply("out.bmp", {"sharpen", "resample:30x7", "darken:200", "median"}), kExitDone);
    EXPECT_EQ(checksum(file_text(folder_ / "out.bmp")), 1690174799);
    EXPECT_EQ(out_.str() + error_.str(), "");
}

TEST_F(Operations, WrongUseSaysWhatIsAccepted) {
    const std::pair<const char*, std::vector<const char*>> wrong[] = {
        {"there are soften, soften-more, blur", {"", "Blur"}},
        {"takes no arguments", {"blur:3", "negative:"}},
        {"LEVEL is a whole number from 0 to 255", {"darken:256", "darken:-1"}},
        {"takes 0 to 1 argument", {"darken:1,2"}},
        {"PERCENT is a whole number from -100 to 1000",
         {"lighten:-101", "lighten:20%", "lighten:+5"}},
        {"colourise:HUE", {"colourise"}},
        {"HUE is a number from -1 to 5", {"colourise:5.1", "colourise:nan"}},
        {"PERCENT is a whole number from 0 to 100", {"noise:101"}},
        {"random", {"noise:5,often"}},
        {"bw:LIMIT", {"bw"}},
        {"LIMIT is a whole number from 0 to 255", {"bw:99999999999", "bw: 5", "bw:0x10"}},
        {"LIMIT is a whole number from 0 to 256", {"edges:257"}},
        {"takes 4 argument", {"line-art:9,1,1"}},
        {"G is a whole number from 0 to 1", {"line-art:9,1,2,1"}},
        {"at least one of R, G and B is 1", {"line-art:9,0,0,0"}},
        {"SIZE x SIZE coefficients", {"custom:3"}},
        {"WEIGHT divides every sum and cannot be 0", {"custom:1,0,7"}},
        {"SIZE is odd", {"custom:2,1,1,1,1,1"}},
        {"SIZE is a whole number from 1 to 9", {"custom:11,1"}},
        {"takes 11 argument", {"custom:3,1,1,1,1,1,1,1,1,1"}},
        {"from -100000 to 100000", {"custom:1,1,100001"}},
        {"WIDTH and HEIGHT", {"resample:20", "resample:0x5", "resample:5x5x5"}},
        {"needs a file name", {"palette", "add-darkest:", "add:,1,0,0,0,1,0,0,0"}},
        {"a file name and 8 numbers", {"add:a.bmp,1,0,0,0,1,0,0"}},
        {"a multiplier is a whole number from -1000 to 1000", {"add:a.bmp,1001,0,0,0,1,0,0,0"}},
    };
    for (const auto& [accepted, texts] : wrong)
        for (const char* text : texts) {
            EXPECT_EQ(apply("out.bmp", {"negative", text}), kExitUsage) << text;
            EXPECT_THAT(error_.str(), HasSubstr(accepted)) << text;
        }
    EXPECT_EQ(apply("out.bmp", {}), kExitUsage);
    EXPECT_EQ(apply("out.bmp", {"noise:5", "--seed", "0x1"}), kExitUsage);
    EXPECT_THAT(error_.str(), HasSubstr("--seed is a whole number from 0 to 4294967295, not"));
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

} // namespace
} // namespace kelvane::test
