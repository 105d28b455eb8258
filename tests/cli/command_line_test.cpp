// kelvane-cli as a user meets it: files, texts and exit codes.
#include "base/text.h"
#include "cli/command_line.h"
#include "cli/exit_code.h"
#include "image/bitmap_file.h"
#include "support/pictures.h"
#include "support/temporary_folder.h"

#include <gmock/gmock.h>

#include <cstdlib>
#include <sstream>

namespace kelvane::test {
namespace {

using ::testing::HasSubstr;
using ::testing::StartsWith;

struct Outcome {
    int exit_code;
    std::string out;
    std::string error;
};

Outcome run(const std::vector<std::string>& arguments, bool terminal = false) {
    std::ostringstream out;
    std::ostringstream error;
    const int exit_code = run_command_line(arguments, {out, error, terminal});
    return {exit_code, out.str(), error.str()};
}

class CommandLine : public ::testing::Test {
  protected:
    CommandLine() { save_bitmap(drawn({"##", "#."}).view(), folder_ / "in.bmp"); }

    std::string path(const std::string& name) const { return utf8_text(folder_ / utf8_path(name)); }
    Outcome export_in(std::vector<std::string> more) const {
        more.insert(more.begin(), {"export", path("in.bmp"), "-o", path("out.scr")});
        return run(more);
    }
    void expect_usage_error(const Outcome& outcome, const std::string& complaint) const {
        EXPECT_EQ(outcome.exit_code, kExitUsage);
        EXPECT_THAT(outcome.error, HasSubstr(complaint));
        EXPECT_THAT(outcome.error, HasSubstr("--help"));
        EXPECT_FALSE(std::filesystem::exists(folder_ / "out.scr"));
    }

    TemporaryFolder folder_;
};

TEST_F(CommandLine, ExportWithDefaults) {
    const Outcome outcome = run({"export", path("in.bmp")});
    EXPECT_EQ(outcome.exit_code, kExitDone) << outcome.error;
    EXPECT_EQ(
        outcome.out + outcome.error,
        "kelvane-cli: warning: lines thinner than 5.9 mil in 1 place, the thinnest 1.0 mil at "
        "(0 0); --min-line sets what the board maker can print\n"
        "kelvane-cli: warning: layer 20 (Dimension) is the outline of the board; the silk "
        "screen is --layer tPlace\n");
    EXPECT_EQ(file_text(folder_ / "in.scr"),
              "Grid mil;\r\nChange Layer  20 ;\r\nChange Pour Solid;\r\nChange Thermals off;\r\n"
              "Change Isolate 0;\r\nSet wire_bend 2;\r\n"
              "Polygon 0 (0 0)\\\r\n(1 0)\\\r\n(1 1)\\\r\n(2 1)\\\r\n(2 2)\\\r\n(0 2)(0 0);\r\n"
              "Grid last;\r\nWindow fit;\r\n");
}

TEST_F(CommandLine, ExportWithEveryOption) {
    const Outcome outcome = export_in({"--layer", "016", "--unit", "inch", "--size", ".25",
                                       "--eagle", "3", "--trace", "lines", "--shape", "rectangle",
                                       "--op", "negative", "--op", "bw:128", "--stats"});
    EXPECT_EQ(outcome.exit_code, kExitDone) << outcome.error;
    const std::size_t seconds = outcome.out.find("0.", outcome.out.find("seconds"));
    EXPECT_EQ(
        outcome.out.substr(0, seconds) + outcome.out.substr(outcome.out.find(',', seconds)),
        "{\"width\": 2, \"height\": 2, \"dark_pixels\": 0, \"runs\": 0, \"rectangles\": 0, "
        "\"points\": 0, \"bridges\": 0, \"bytes\": 76, \"out_of_range\": false, \"seconds\": "
        ", \"unit\": \"inch\", \"pixel_size\": 0.25, \"picture_mm\": [12.7, 12.7], \"ink_mm\": "
        "[0, 0], \"ink\": [0, 0, 0, 0], \"thinnest_line_mm\": null, \"thinnest_gap_mm\": null, "
        "\"thin_lines\": 0, \"thin_gaps\": 0, \"warnings\": [\"nothing is dark enough to be "
        "drawn; --op bw:auto finds a limit of its own\", \"layer 16 (Bottom) is seen from below, "
        "where the drawing is read reversed; --mirror puts that right\"]}\n");
    EXPECT_EQ(file_text(folder_ / "out.scr"),
              "Grid Inch;\r\nChange Layer  16 ;\r\nSet wire_style 2;\r\n"
              "Grid last;\r\nWindow fit;\r\n");
}

TEST_F(CommandLine, SmoothTakesATolerance) {
    // A slope of eighteen steps between upright sides.
    std::vector<std::string> slope;
    for (std::size_t row = 0; row <= 18; ++row)
        slope.push_back(std::string(9 + 2 * row, '#') + std::string(36 - 2 * row, '.'));
    save_bitmap(drawn(slope).view(), folder_ / "in.bmp");
    for (const auto& [smooth, points] :
         std::vector<std::pair<std::vector<std::string>, std::string>>{
             {{}, "41"},
             {{"--smooth"}, "5"},
             {{"--smooth", ".5"}, "5"},
             {{"--smooth", ".05"}, "41"}}) {
        std::vector<std::string> arguments = smooth;
        arguments.push_back("--stats");
        EXPECT_THAT(export_in(arguments).out, HasSubstr("\"points\": " + points + ","));
    }
    EXPECT_THAT(run({"export", "--smooth", path("in.bmp"), "--stats"}).out,
                HasSubstr("\"points\": 5,"));
}

TEST_F(CommandLine, LargePicturesAreReducedUnlessToldOtherwise) {
    save_bitmap(black_picture(3201, 3).view(), folder_ / "in.bmp");
    const Outcome reduced = export_in({"--stats"});
    EXPECT_THAT(reduced.out, StartsWith("{\"width\": 1600, \"height\": 1,"));
    EXPECT_THAT(reduced.error, HasSubstr("in.bmp: reduced from 3201 x 3 to 1600 x 1 pixels"));
    EXPECT_THAT(export_in({"--stats", "--full-size"}).out,
                StartsWith("{\"width\": 3201, \"height\": 3,"));
}

TEST_F(CommandLine, OutOfRangeIsWrittenWithAWarning) {
    const Outcome outcome = export_in({"--size", "30000", "--stats"});
    EXPECT_EQ(outcome.exit_code, kExitOutOfRange);
    EXPECT_THAT(outcome.error, HasSubstr("out of range of EAGLE"));
    EXPECT_THAT(outcome.out, HasSubstr("\"out_of_range\": true"));
    EXPECT_THAT(file_text(folder_ / "out.scr"), HasSubstr("60000"));
}

// The same drawing by whatever way its size and layer are told.
TEST_F(CommandLine, SizesAndLayersInEveryForm) {
    save_bitmap(black_picture(40, 20).view(), folder_ / "in.bmp");
    const auto script = [&](const std::vector<std::string>& options) {
        EXPECT_EQ(export_in(options).exit_code, kExitDone) << testing::PrintToString(options);
        return file_text(folder_ / "out.scr");
    };
    const std::string expected = script({"--unit", "mm", "--size", ".5", "--layer", "51"});
    EXPECT_THAT(expected, HasSubstr("Grid mm;\r\nChange Layer  51 ;"));
    EXPECT_THAT(expected, HasSubstr("(20 0)\\\r\n(20 10)"));
    for (const char* layer : {"51", "tDocu", "TDOCU"})
        for (const std::vector<std::string>& size : {std::vector<std::string>{"--width", "20mm"},
                                                     {"--height", "10mm"},
                                                     {"--unit", "mm", "--width", "20"},
                                                     {"--unit", "mm", "--width", "20000mic"},
                                                     {"--unit", "mm", "--dpi", "50.8"}}) {
            std::vector<std::string> options{"--layer", layer};
            options.insert(options.end(), size.begin(), size.end());
            EXPECT_EQ(script(options), expected) << testing::PrintToString(options);
        }
    EXPECT_THAT(script({"--width", "1in"}), HasSubstr("Grid Inch;"));
    EXPECT_THAT(script({"--width", "20mm", "--op", "rotate:90"}), HasSubstr("(20 0)\\\r\n(20 40)"));
}

TEST_F(CommandLine, ResolutionOfTheFile) {
    expect_usage_error(export_in({"--dpi", "files"}),
                       "--dpi is a number from 1 to 1e6 or \"file\"");
    EXPECT_THAT(export_in({"--dpi", "file"}).error, HasSubstr("in.bmp: states no resolution"));
    save_bitmap(black_picture(6400, 3).view(), folder_ / "in.bmp");
    const auto resolution = [&](const std::string& x, const std::string& y) {
        std::string bytes = file_text(folder_ / "in.bmp");
        write_text(folder_ / "in.bmp", bytes.replace(38, 8, x + y));
    };
    const std::string dpi127{"\x88\x13\0\0", 4}, dpi254{"\x10\x27\0\0", 4}; // per metre
    resolution(dpi127, dpi127);
    EXPECT_THAT(export_in({"--dpi", "file", "--unit", "mm", "--stats"}).out, // halved when opened
                HasSubstr("\"pixel_size\": 0.4, \"picture_mm\": [1280, 0.4]"));
    resolution(dpi127, dpi254);
    EXPECT_THAT(export_in({"--dpi", "file"}).error, HasSubstr("not square (127 x 254 dpi)"));
}

TEST_F(CommandLine, StrictLetsNoWarningPass) {
    save_bitmap(drawn({"####.", "#####"}).view(), folder_ / "in.bmp");
    const auto strict = [&](std::vector<std::string> more) {
        more.insert(more.begin(), {"--strict", "--width", "20mm", "--layer"});
        return export_in(more);
    };
    for (const std::vector<std::string>& warned :
         {std::vector<std::string>{"20"}, {"bStop"}, {"tPlace", "--min-line", "20mm"}}) {
        const Outcome outcome = strict(warned);
        EXPECT_EQ(outcome.exit_code, kExitWarned) << testing::PrintToString(warned);
        EXPECT_THAT(outcome.error, HasSubstr("out.scr: not written, because of --strict\n"));
        EXPECT_FALSE(std::filesystem::exists(folder_ / "out.scr"));
    }
    const Outcome fine = strict({"tPlace", "--op", "mirror"});
    EXPECT_EQ(fine.exit_code, kExitDone);
    EXPECT_EQ(fine.error, "");
    EXPECT_THAT(file_text(folder_ / "out.scr"), StartsWith("Grid mm;"));
    // Out of range is no warning, and mirroring twice is none.
    EXPECT_EQ(export_in({"--width", "900mm", "--layer", "bStop", "--mirror", "--strict"}).exit_code,
              kExitOutOfRange);
    const std::string mirrored = file_text(folder_ / "out.scr");
    export_in({"--width", "900mm", "--layer", "bStop", "--op", "mirror"});
    EXPECT_EQ(file_text(folder_ / "out.scr"), mirrored);
    EXPECT_THAT(export_in({"--layer", "bStop", "--mirror", "--op", "mirror"}).error,
                HasSubstr("layer 30 (bStop) is seen from below"));
}

TEST_F(CommandLine, ATerminalGetsOneLine) {
    save_bitmap(drawn({".....", "####.", "####.", "....."}).view(), folder_ / "in.bmp");
    const std::string out = path("out.scr");
    EXPECT_EQ(
        run({"export", path("in.bmp"), "-o", out, "--width", "20mm", "--layer", "21"}, true).error,
        "kelvane-cli: " + out +
            ": picture 20.00 x 16.00 mm; ink 16.00 x 8.00 mm; 1 polygon, 185 bytes; thinnest "
            "line 8.000 mm\n");
}

TEST_F(CommandLine, TransparentPictures) {
    const std::string data = std::string(KELVANE_TEST_DATA) + "/pictures/";
    const auto dark_pixels = [&](const std::string& file, const std::vector<std::string>& more) {
        std::vector<std::string> options{"export", file, "-o", path("out.scr"), "--stats"};
        options.insert(options.end(), more.begin(), more.end());
        const Outcome outcome = run(options);
        const std::size_t at = outcome.out.find("dark_pixels\": ") + 14;
        return outcome.out.substr(at, outcome.out.find(',', at) - at) +
               (outcome.error.find("nothing shows on white paper") == std::string::npos ? ""
                                                                                        : ", ink");
    };
    // Quarters: red, nothing, half-transparent blue, nothing.
    EXPECT_EQ(dark_pixels(data + "alpha.png", {}), "128");
    EXPECT_EQ(dark_pixels(data + "alpha.png", {"--alpha", "ink"}), "256");
    // A white logo: both of its quarters.
    std::string gif = file_text(data + "transparent.gif");
    write_text(folder_ / "white.gif", gif.replace(13, 12, std::string(12, '\xFF')));
    EXPECT_EQ(dark_pixels(path("white.gif"), {}), "256, ink");
    EXPECT_EQ(dark_pixels(path("white.gif"), {"--op", "trim"}), "256, ink");
    EXPECT_EQ(dark_pixels(path("white.gif"), {"--alpha", "paper"}), "0");
    EXPECT_EQ(dark_pixels(path("white.gif"), {"--op", "negative"}),
              "512"); // paper leaves something
    const Outcome applied = run({"apply", path("white.gif"), "-o", path("ink.bmp"), "mirror"});
    EXPECT_THAT(applied.error, HasSubstr("white.gif: nothing shows on white paper"));
    EXPECT_EQ(dark_pixels(path("ink.bmp"), {}), "256");
}

TEST_F(CommandLine, WrongUsageWritesNothing) {
    expect_usage_error(run({}), "subcommand");
    expect_usage_error(run({"expor"}), "there are export, apply, ops");
    expect_usage_error(run({"export"}), "INPUT");
    for (const char* layer : {"0", "256", "0x15", " 21", "21 ", "+21", "21.0", ""})
        expect_usage_error(export_in({"--layer", layer}),
                           "--layer is a whole number from 1 to 255, not \"" + std::string(layer) +
                               "\"");
    expect_usage_error(export_in({"--layer", "bstob"}),
                       "\"bstob\"; the nearest name is bStop (30)");
    for (const char* length : {"0", "20cm", "20 mm", "mm", "-1mm", "1e10mm", "", "0x1mm"})
        expect_usage_error(export_in({"--width", length}), "--width is a length such as 20mm");
    expect_usage_error(export_in({"--min-gap", "-1"}), "--min-gap is a length");
    expect_usage_error(export_in({"--width", "1", "--dpi", "9"}), "--dpi exclude each other");
    expect_usage_error(export_in({"--unit", "kg"}), "mil");
    expect_usage_error(export_in({"--eagle", "5"}), "--eagle");
    for (const char* size : {"0", "-1", "nan", "inf", "0,1", "0x1", "1mm", "1000000001"})
        expect_usage_error(export_in({"--size", size}),
                           "--size is a number greater than 0 and at most 1e9, not");
    expect_usage_error(export_in({"--shape", "rectangle"}), "--trace lines");
    for (const char* tolerance : {"0", ".04", ".51", "0,5"})
        expect_usage_error(export_in({"--smooth", tolerance}), "from 0.05 to 0.5, not");
    expect_usage_error(export_in({"--smooth", "--trace", "lines"}), "--trace full only");
    expect_usage_error(export_in({"--op", "blurr"}), "blurr");
    expect_usage_error(run({"apply", path("in.bmp"), "-o", path("out.png"), "negative"}), ".bmp");
    EXPECT_EQ(run({"export", "--help"}).exit_code, kExitDone);
}

TEST_F(CommandLine, InputsAreNeverWrittenOver) {
    std::filesystem::create_hard_link(folder_ / "in.bmp", folder_ / "in.scr");
    std::filesystem::copy(folder_ / "in.bmp", folder_ / "second.bmp");
    write_text(folder_ / "palette.bmp", "1 2 3\n");
    const std::string in = path("in.bmp"), second = path("second.bmp");
    const std::vector<std::string> commands[] = {
        {"export", in},
        {"apply", in, "negative", "-o", path("./in.bmp")},
        {"apply", in, "add-lightest:" + second, "-o", second},
        {"apply", in, "add:" + second + ",1,0,0,0,1,0,0,0", "-o", second},
        {"export", in, "--op", "palette:" + path("palette.bmp"), "-o", path("./palette.bmp")}};
    for (const std::vector<std::string>& command : commands)
        expect_usage_error(run(command), "would replace the input ");
    EXPECT_EQ(run({"apply", in, "negative", "-o", path("new.BMP")}).error, "");
}

TEST_F(CommandLine, FailuresNameFileAndCauseAndKeepTheOldScript) {
    write_text(folder_ / "out.scr", "before");
    write_text(folder_ / "in.bmp", "no picture");
    for (const char* input : {"in.bmp", "missing.png", "."}) {
        const Outcome outcome = run({"export", path(input), "-o", path("out.scr")});
        EXPECT_EQ(outcome.exit_code, kExitFailed);
        EXPECT_THAT(outcome.error, StartsWith("kelvane-cli: " + path(input) + ": "));
        EXPECT_EQ(std::count(outcome.error.begin(), outcome.error.end(), '\n'), 1) << outcome.error;
    }
    EXPECT_EQ(file_text(folder_ / "out.scr"), "before");
    save_bitmap(black_picture(1, 1).view(), folder_ / "in.bmp");
    EXPECT_THAT(run({"export", path("in.bmp"), "-o", path(".")}).error, HasSubstr(": is a folder"));
}

// The program itself: its streams carry bytes, also where the system has texts of another kind.
TEST_F(CommandLine, StandardStreamsOfTheProgram) {
    save_bitmap(flat_picture(3, 2, 13, 10, 26).view(), folder_ / "in.bmp"); // CR, LF, end of text
    run({"apply", path("in.bmp"), "-o", path("expected.bmp"), "darken:254"});
    run({"export", path("in.bmp"), "-o", path("expected.scr")});
    const auto program = [&](const std::string& arguments) {
        const std::string line = KELVANE_COMMAND_LINE " " + arguments + " <" + path("in.bmp");
        EXPECT_EQ(std::system((line + " >" + path("out") + " 2>" + path("error")).c_str()), 0)
            << line << file_text(folder_ / "error");
        return file_text(folder_ / "out");
    };
    EXPECT_EQ(program("apply - -o - darken:254"), file_text(folder_ / "expected.bmp"));
    EXPECT_EQ(program("export - --stats"), file_text(folder_ / "expected.scr"));
    EXPECT_THAT(file_text(folder_ / "error"), StartsWith("{\"width\": 3,"));
    EXPECT_THAT(program("ops"), StartsWith("soften                      3 x 3 mean that favours "
                                           "the centre\nsoften-more                 5 x 5"));
}

TEST_F(CommandLine, PathsInAnyScript) {
    std::filesystem::create_directory(folder_ / utf8_path("Prüfung"));
    std::filesystem::copy(folder_ / "in.bmp", folder_ / utf8_path("Prüfung/徽标.bmp"));
    EXPECT_EQ(run({"export", path("Prüfung/徽标.bmp")}).exit_code, kExitDone);
    EXPECT_TRUE(std::filesystem::exists(folder_ / utf8_path("Prüfung/徽标.scr")));
    EXPECT_THAT(run({"export", path("Prüfung/標.bmp")}).error, HasSubstr(path("Prüfung/標.bmp")));
}

} // namespace
} // namespace kelvane::test
