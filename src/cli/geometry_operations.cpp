#include "cli/operation_families.h"

#include "base/file_error.h"
#include "base/strict_number.h"
#include "cli/engine_call.h"
#include "cli/operation_arguments.h"
#include "cli/whole_number.h"

#include <algorithm>
#include <utility>

namespace kelvane {
namespace {

constexpr WholeNumber kMargin{"MARGIN", 0, cImageProcessDIB::kLargestMargin};

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
    {"resample", ":WIDTHxHEIGHT", "another size, bilinear", resample},
    {"crop", ":X,Y,WIDTHxHEIGHT", "a part; X and Y count from the upper left corner", crop},
    {"trim", optional_form(kMargin),
     "the part with all that an export draws, and MARGIN white pixels on each side", trim},
    {"mirror", "", "left and right exchanged", turn<&cImageProcessDIB::Mirror>},
    {"flip", "", "top and bottom exchanged", turn<&cImageProcessDIB::Flip>},
    {"rotate", ":DEGREES", "turn clockwise by 90, 180 or 270", rotate},
};

} // namespace

std::span<const OperationInfo> geometry_operations() {
    return kOperations;
}

} // namespace kelvane
