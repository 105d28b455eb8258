#include "cli/operations.h"

#include "base/file_error.h"
#include "base/strict_number.h"
#include "base/text.h"
#include "cli/file_argument.h"
#include "cli/operation_arguments.h"
#include "cli/usage_error.h"
#include "image/picture_reader.h"
#include "process/tone.h"
#include "reduce/local_black_white.h"

#include <array>
#include <utility>
#include <vector>

namespace kelvane {
namespace {

// With valid arguments the engine refuses only empty pictures, which come from failed allocations.
void require(bool done) {
    if (!done) throw FileError(FileFault::kNoMemory);
}

cDIBSection buffer_for(const cDIBSection& picture) {
    cDIBSection buffer;
    require(buffer.Create(picture.Width(), picture.Height()));
    return buffer;
}

// A whole number that an operation takes: its name and range, and what it is when it is not given.
struct WholeNumber {
    const char* name;
    int least;
    int most;
    int missing = 0;
};
constexpr WholeNumber kLevel{"LEVEL", 0, 255, kDarkenLevel};
constexpr WholeNumber kPercent{"PERCENT", -100, 1000, kLightenPercent};
constexpr WholeNumber kNoise{"PERCENT", 0, kMostNoise};
constexpr WholeNumber kLimit{"LIMIT", 0, kLargestLimit};
constexpr WholeNumber kEdgeLimit{"LIMIT", 0, kLargestEdgeLimit};
constexpr WholeNumber kSize{"SIZE", kLeastNeighbourhood, kLargestNeighbourhood};
constexpr WholeNumber kOffset{"OFFSET", -kLargestOffset, kLargestOffset};
constexpr WholeNumber kMargin{"MARGIN", 0, cImageProcessDIB::kLargestMargin};

int whole_number(const OperationArguments& arguments, std::size_t index,
                 const WholeNumber& number) {
    return arguments.integer(index, number.name, number.least, number.most);
}

// For operations with this one argument, which may be left out.
int optional_number(const OperationArguments& arguments, const WholeNumber& number) {
    arguments.expect_count(0, 1);
    return arguments.given() ? whole_number(arguments, 0, number) : number.missing;
}

// "[:LEVEL=240]"
std::string optional_form(const WholeNumber& number) {
    return std::string("[:") + number.name + '=' + std::to_string(number.missing) + ']';
}

// "0 to 255"
std::string range(int least, int most) {
    return std::to_string(least) + " to " + std::to_string(most);
}

std::string range(const WholeNumber& number) {
    return range(number.least, number.most);
}

// Filters.

template <int Type> Operation filter(OperationArguments& arguments) {
    arguments.expect_none();
    return [](cDIBSection& picture, cImageProcessDIB& engine) {
        cDIBSection buffer = buffer_for(picture);
        engine.set_FilterType(Type);
        require(engine.ProcessImage(picture, buffer));
    };
}

Operation emphasize(OperationArguments& arguments) {
    arguments.expect_none();
    return [](cDIBSection& picture, cImageProcessDIB& engine) {
        cDIBSection buffer = buffer_for(picture);
        for (const int pass : {kEmphasizeFirst, kEmphasizeSecond}) {
            engine.set_FilterType(pass);
            require(engine.ProcessImage(picture, buffer));
        }
    };
}

// 81 products with a byte stay below 2^31.
constexpr int kLargestCoefficient = 100000;
constexpr int kLargestWeight = 2147483647;

struct CustomFilter {
    int size;
    int weight;
    std::vector<int> coefficients;
};

CustomFilter custom_filter(const OperationArguments& arguments) {
    if (arguments.count() < 2) arguments.fail("needs SIZE, WEIGHT and SIZE x SIZE coefficients");
    CustomFilter filter;
    filter.size = arguments.integer(0, "SIZE", 1, FilterKernel::kLargestSize);
    if (filter.size % 2 == 0) arguments.fail("SIZE is odd: 1, 3, 5, 7 or 9");
    filter.weight = arguments.integer(1, "WEIGHT", -kLargestWeight, kLargestWeight);
    if (filter.weight == 0) arguments.fail("WEIGHT divides every sum and cannot be 0");
    const auto cells = static_cast<std::size_t>(filter.size * filter.size);
    arguments.expect_count(2 + cells, 2 + cells);
    for (std::size_t i = 0; i < cells; ++i)
        filter.coefficients.push_back(
            arguments.integer(2 + i, "a coefficient", -kLargestCoefficient, kLargestCoefficient));
    return filter;
}

Operation custom(OperationArguments& arguments) {
    return [filter = custom_filter(arguments)](cDIBSection& picture, cImageProcessDIB& engine) {
        engine.set_FilterType(kCustom);
        engine.set_FilterArraySize(filter.size);
        engine.set_FilterWeight(filter.weight);
        const int half = filter.size / 2;
        auto coefficient = filter.coefficients.begin();
        for (int y = -half; y <= half; ++y)
            for (int x = -half; x <= half; ++x)
                engine.set_FilterValue(x, y, *coefficient++);
        cDIBSection buffer = buffer_for(picture);
        require(engine.ProcessImage(picture, buffer));
    };
}

// Tone and colour.

Operation grayscale(OperationArguments& arguments) {
    arguments.expect_none();
    return
        [](cDIBSection& picture, cImageProcessDIB& engine) { require(engine.GrayScale(picture)); };
}

Operation darken(OperationArguments& arguments) {
    const int level = optional_number(arguments, kLevel);
    return [level](cDIBSection& picture, cImageProcessDIB& engine) {
        require(engine.Fade(picture, level));
    };
}

Operation lighten(OperationArguments& arguments) {
    const int percent = optional_number(arguments, kPercent);
    return [percent](cDIBSection& picture, cImageProcessDIB& engine) {
        require(engine.Lighten(picture, percent));
    };
}

Operation colourise(OperationArguments& arguments) {
    arguments.expect_count(1, 1);
    const float hue = arguments.decimal(0, "HUE", kLowestHue, kHighestHue);
    return [hue](cDIBSection& picture, cImageProcessDIB& engine) {
        require(engine.Colourise(picture, hue));
    };
}

Operation noise(OperationArguments& arguments) {
    arguments.expect_count(1, 2);
    const int percent = whole_number(arguments, 0, kNoise);
    const bool random = arguments.count() == 2;
    if (random && arguments.field(1) != "random")
        arguments.fail("the second argument can only be \"random\"");
    return [=](cDIBSection& picture, cImageProcessDIB& engine) {
        require(engine.AddNoise(picture, percent, random));
    };
}

Operation negative(OperationArguments& arguments) {
    arguments.expect_none();
    return [](cDIBSection& picture, cImageProcessDIB& engine) {
        require(engine.NegativeImage(picture));
    };
}

// Palettes and reductions.

Operation steinberg(OperationArguments& arguments) {
    arguments.expect_none();
    return [](cDIBSection& picture, cImageProcessDIB& engine) {
        cDIBSection buffer = buffer_for(picture);
        require(engine.Steinberg(picture, buffer));
    };
}

cPalette palette_from(const std::string& file) {
    return with_file_name(file, [&] {
        cPalette palette = read_palette(utf8_path(file));
        if (palette.Count() == 0) throw FileError("holds no line of three numbers from 0 to 255");
        return palette;
    });
}

Operation palette(OperationArguments& arguments) {
    return [file = arguments.file()](cDIBSection& picture, cImageProcessDIB& engine) {
        const cPalette colours = palette_from(file);
        cDIBSection buffer = buffer_for(picture);
        require(engine.ApplyPalette(picture, buffer, colours));
    };
}

Operation bw(OperationArguments& arguments) {
    arguments.expect_count(1, 1);
    if (arguments.field(0) == "auto")
        return [](cDIBSection& picture, cImageProcessDIB& engine) {
            const std::optional<int> limit = engine.OtsuLimit(picture);
            require(limit && engine.BlackAndWhite2(picture, picture, *limit));
        };
    const int limit = whole_number(arguments, 0, kLimit);
    return [limit](cDIBSection& picture, cImageProcessDIB& engine) {
        require(engine.Reduce(picture, {ReductionKind::Brightness, limit}));
    };
}

Operation local_bw(OperationArguments& arguments) {
    arguments.expect_count(2, 2);
    const int size = whole_number(arguments, 0, kSize);
    if (size % 2 == 0) arguments.fail("SIZE is odd");
    const int offset = whole_number(arguments, 1, kOffset);
    return [=](cDIBSection& picture, cImageProcessDIB& engine) {
        require(engine.LocalBlackWhite(picture, picture, size, offset));
    };
}

Operation despeckle(OperationArguments& arguments) {
    arguments.expect_count(1, 1);
    constexpr int kMostPixels = 2147483647;
    const int most = arguments.integer(0, "N", 0, kMostPixels);
    return [most](cDIBSection& picture, cImageProcessDIB& engine) {
        require(engine.Despeckle(picture, most));
    };
}

Operation line_art(OperationArguments& arguments) {
    arguments.expect_count(4, 4);
    const int limit = whole_number(arguments, 0, kLimit);
    const Channels channels{arguments.integer(1, "R", 0, 1) == 1,
                            arguments.integer(2, "G", 0, 1) == 1,
                            arguments.integer(3, "B", 0, 1) == 1};
    if (!channels.any()) arguments.fail("at least one of R, G and B is 1");
    return [=](cDIBSection& picture, cImageProcessDIB& engine) {
        require(engine.Reduce(picture, {ReductionKind::Colours, limit, channels}));
    };
}

Operation edges(OperationArguments& arguments) {
    arguments.expect_count(1, 1);
    const int limit = whole_number(arguments, 0, kEdgeLimit);
    return [limit](cDIBSection& picture, cImageProcessDIB& engine) {
        require(engine.Reduce(picture, {ReductionKind::Edges, limit}));
    };
}

// Size and combination.

constexpr int kLongestSide = 1000000;

int side(const OperationArguments& arguments, std::string_view text) {
    const std::optional<int> value = strict_number<int>(text);
    if (!value || *value < 1 || *value > kLongestSide)
        arguments.fail("WIDTH and HEIGHT are from " + range(1, kLongestSide) +
                       ", with an x between them");
    return *value;
}

struct Size {
    int width;
    int height;
};

Size size(const OperationArguments& arguments, std::size_t index) {
    const std::string_view text = arguments.field(index);
    const std::size_t x = std::min(text.find('x'), text.size());
    return {side(arguments, text.substr(0, x)),
            side(arguments, text.substr(std::min(x + 1, text.size())))};
}

Operation resample(OperationArguments& arguments) {
    arguments.expect_count(1, 1);
    const auto [width, height] = size(arguments, 0);
    return [width = width, height = height](cDIBSection& picture, cImageProcessDIB&) {
        cDIBSection resized = picture.Resample(height, width);
        require(!resized.empty());
        picture = std::move(resized);
    };
}

std::string size_text(const cDIBSection& picture) {
    return std::to_string(picture.Width()) + " x " + std::to_string(picture.Height());
}

cDIBSection second_picture(const std::string& file, const cDIBSection& first) {
    return with_file_name(file, [&] {
        cDIBSection second = read_picture(utf8_path(file));
        if (second.Width() != first.Width() || second.Height() != first.Height())
            throw FileError("is " + size_text(second) + " pixels, the picture to change " +
                            size_text(first));
        return second;
    });
}

Operation combination(const std::string& file, const Combination& how) {
    return [file, how](cDIBSection& picture, cImageProcessDIB& engine) {
        require(engine.Combine(second_picture(file, picture), picture, how));
    };
}

template <CombinationType type> Operation select(OperationArguments& arguments) {
    return combination(arguments.file(), {type});
}

Operation add(OperationArguments& arguments) {
    constexpr std::size_t numbers = 8;
    const std::string file = arguments.file_before(numbers);
    // Products stay below 2^31.
    const auto part = [&](std::size_t first) {
        const auto offset = [&](std::size_t i) {
            return arguments.integer(first + i, "an offset", -100000, 100000);
        };
        return SumPart{arguments.integer(first, "a multiplier", -1000, 1000), offset(1), offset(2),
                       offset(3)};
    };
    return combination(file, {CombinationType::AddImages, {part(1), part(5)}});
}

// Geometry.

Operation crop(OperationArguments& arguments) {
    arguments.expect_count(3, 3);
    const int left = arguments.integer(0, "X", 0, kLongestSide);
    const int top = arguments.integer(1, "Y", 0, kLongestSide);
    const auto [width, height] = size(arguments, 2);
    return [part = PixelRect{left, top, width, height}](cDIBSection& picture,
                                                        cImageProcessDIB& engine) {
        if (!lies_inside(part, picture.Width(), picture.Height()))
            throw FileError("the part to crop reaches beyond the picture of " + size_text(picture) +
                            " pixels");
        require(engine.Crop(picture, part));
    };
}

Operation trim(OperationArguments& arguments) {
    const int margin = optional_number(arguments, kMargin);
    return [margin](cDIBSection& picture, cImageProcessDIB& engine) {
        const std::optional<PixelRect> bounds = engine.DarkBounds(picture);
        if (!bounds) throw FileError("the picture to trim holds nothing dark");
        require(engine.Crop(picture, *bounds, margin));
    };
}

using Change = bool (cImageProcessDIB::*)(cDIBSection&);

Operation changed_by(Change change) {
    return [change](cDIBSection& picture, cImageProcessDIB& engine) {
        require((engine.*change)(picture));
    };
}

template <Change change> Operation turn(OperationArguments& arguments) {
    arguments.expect_none();
    return changed_by(change);
}

Operation rotate(OperationArguments& arguments) {
    arguments.expect_count(1, 1);
    constexpr std::pair<std::string_view, Change> kTurns[] = {
        {"90", &cImageProcessDIB::RotateRight},
        {"180", &cImageProcessDIB::RotateHalf},
        {"270", &cImageProcessDIB::RotateLeft}};
    for (const auto& [degrees, change] : kTurns)
        if (arguments.field(0) == degrees) return changed_by(change);
    arguments.fail("DEGREES is 90, 180 or 270");
}

const OperationInfo kOperations[] = {
    {"soften", "", "3 x 3 mean that favours the centre", filter<kSoften>},
    {"soften-more", "", "5 x 5 mean that favours the centre", filter<kSoftenMore>},
    {"blur", "", "3 x 3 mean", filter<kBlur>},
    {"blur-more", "", "5 x 5 mean", filter<kBlurMore>},
    {"sharpen", "", "raise differences to the eight neighbours", filter<kSharpen>},
    {"sharpen-more", "", "raise differences to the four neighbours", filter<kSharpenMore>},
    {"unsharp", "", "twice the picture less its blur", filter<kUnsharp>},
    {"emboss", "", "relief on medium grey", filter<kEmboss>},
    {"median", "", "mean of the 3 x 3 neighbourhood", filter<kMeanRank>},
    {"minimum", "", "darkest of the 3 x 3 neighbourhood, by channel", filter<kMinimumRank>},
    {"maximum", "", "lightest of the 3 x 3 neighbourhood, by channel", filter<kMaximumRank>},
    {"emphasize", "", "sharpen in two passes of different weight", emphasize},
    {"custom", ":SIZE,WEIGHT,C1,...,Cn",
     "own filter: SIZE 1, 3, 5, 7 or 9; SIZE x SIZE coefficients from the lowest row up; each sum "
     "is divided by WEIGHT",
     custom},
    {"grayscale", "", "grey of the luminance", grayscale},
    {"darken", optional_form(kLevel), "every channel times LEVEL / 255 (" + range(kLevel) + ")",
     darken},
    {"lighten", optional_form(kPercent), "lightness up by PERCENT (" + range(kPercent) + ")",
     lighten},
    {"colourise", ":HUE",
     "one hue for all pixels: red 0, green 2, blue 4 (" + range(kLowestHue, kHighestHue) + ")",
     colourise},
    {"noise", ":PERCENT[,random]",
     "add noise (" + range(kNoise) + "); random: to fewer pixels the higher PERCENT is", noise},
    {"negative", "", "every channel turned round", negative},
    {"steinberg", "", "black and white by error diffusion", steinberg},
    {"palette", ":FILE.pal", "the colours of a palette file by error diffusion", palette},
    {"bw", ":LIMIT",
     "black where the grey is at most LIMIT (" + range(kLimit) +
         ", or auto: by Otsu's method), else white",
     bw},
    {"local-bw", ":SIZE,OFFSET",
     "for uneven light: black where the grey is at most the mean of SIZE x SIZE pixels (odd, " +
         range(kSize) + ") less OFFSET (" + range(kOffset) + ")",
     local_bw},
    {"despeckle", ":N",
     "black and white without dark, then light areas of at most N pixels (0 and more)", despeckle},
    {"line-art", ":LIMIT,R,G,B",
     "black where the mean of the channels marked 1 is at most LIMIT (" + range(kLimit) + ")",
     line_art},
    {"edges", ":LIMIT",
     "black where the colour differs from the left neighbour's (" + range(kEdgeLimit) + ")", edges},
    {"resample", ":WIDTHxHEIGHT", "another size, bilinear", resample},
    // The engine's names say which pixel is dropped.
    {"lightest", ":FILE", "the lighter pixel of both, by green and blue; both of one size",
     select<CombinationType::AddDarkest>},
    {"darkest", ":FILE", "the darker pixel of both, by green and blue; both of one size",
     select<CombinationType::AddLightest>},
    {"add-lightest", ":FILE", "the same as darkest", select<CombinationType::AddLightest>},
    {"add-darkest", ":FILE", "the same as lightest", select<CombinationType::AddDarkest>},
    {"add", ":FILE,FROMMULT,FROMOFF_R,FROMOFF_G,FROMOFF_B,TOMULT,TOOFF_R,TOOFF_G,TOOFF_B",
     "(FILE + FROMOFF) x FROMMULT + (picture + TOOFF) x TOMULT; both of one size", add},
    {"crop", ":X,Y,WIDTHxHEIGHT", "a part; X and Y count from the upper left corner", crop},
    {"trim", optional_form(kMargin),
     "the part with all that an export draws, and MARGIN white pixels on each side", trim},
    {"mirror", "", "left and right exchanged", turn<&cImageProcessDIB::Mirror>},
    {"flip", "", "top and bottom exchanged", turn<&cImageProcessDIB::Flip>},
    {"rotate", ":DEGREES", "turn clockwise by 90, 180 or 270", rotate},
};

[[noreturn]] void fail_unknown(std::string_view name) {
    std::string accepted;
    for (const OperationInfo& known : kOperations)
        accepted += (accepted.empty() ? "" : ", ") + known.name;
    throw UsageError("unknown operation \"" + std::string(name) + "\"; there are " + accepted);
}

const OperationInfo& find_operation(std::string_view name) {
    for (const OperationInfo& known : kOperations)
        if (known.name == name) return known;
    fail_unknown(name);
}

} // namespace

std::span<const OperationInfo> operations() {
    return kOperations;
}

OperationList parse_operations(const std::vector<std::string>& texts) {
    OperationList list;
    for (const std::string& text : texts) {
        const std::size_t colon = std::min(text.find(':'), text.size());
        const OperationInfo& info = find_operation(std::string_view(text).substr(0, colon));
        const std::string form = info.name + info.arguments;
        OperationArguments arguments(form, text.substr(std::min(colon + 1, text.size())),
                                     colon < text.size());
        list.operations.push_back(info.parse(arguments));
        if (!arguments.input_file().empty()) list.files.push_back(arguments.input_file());
    }
    return list;
}

void run_operations(const OperationList& list, const std::optional<std::uint32_t>& seed,
                    cDIBSection& picture, cImageProcessDIB& engine) {
    if (seed) engine.seed_noise(*seed);
    for (const Operation& operation : list.operations)
        operation(picture, engine);
}

} // namespace kelvane
