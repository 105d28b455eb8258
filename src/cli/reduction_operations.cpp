#include "cli/operation_families.h"

#include "base/text.h"
#include "cli/engine_call.h"
#include "cli/file_argument.h"
#include "cli/operation_arguments.h"
#include "cli/whole_number.h"
#include "reduce/local_black_white.h"

namespace kelvane {
namespace {

constexpr WholeNumber kLimit{"LIMIT", 0, kLargestLimit};
constexpr WholeNumber kEdgeLimit{"LIMIT", 0, kLargestEdgeLimit};
constexpr WholeNumber kSize{"SIZE", kLeastNeighbourhood, kLargestNeighbourhood};
constexpr WholeNumber kOffset{"OFFSET", -kLargestOffset, kLargestOffset};

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

const OperationInfo kOperations[] = {
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
};

} // namespace

std::span<const OperationInfo> reduction_operations() {
    return kOperations;
}

} // namespace kelvane
