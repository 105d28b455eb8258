#include "cli/operation_families.h"

#include "cli/engine_call.h"
#include "cli/operation_arguments.h"

#include <vector>

namespace kelvane {
namespace {

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
};

} // namespace

std::span<const OperationInfo> filter_operations() {
    return kOperations;
}

} // namespace kelvane
