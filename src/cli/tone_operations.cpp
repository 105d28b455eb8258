#include "cli/operation_families.h"

#include "cli/engine_call.h"
#include "cli/operation_arguments.h"
#include "cli/whole_number.h"
#include "process/tone.h"

namespace kelvane {
namespace {

constexpr WholeNumber kLevel{"LEVEL", 0, 255, kDarkenLevel};
constexpr WholeNumber kPercent{"PERCENT", -100, 1000, kLightenPercent};
constexpr WholeNumber kNoise{"PERCENT", 0, kMostNoise};

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

const OperationInfo kOperations[] = {
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
};

} // namespace

std::span<const OperationInfo> tone_operations() {
    return kOperations;
}

} // namespace kelvane
