#include "cli/operation_families.h"

#include "base/text.h"
#include "cli/engine_call.h"
#include "cli/file_argument.h"
#include "cli/operation_arguments.h"
#include "image/picture_reader.h"

namespace kelvane {
namespace {

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
    constexpr std::size_t kNumbers = 8;
    const std::string file = arguments.file_before(kNumbers);
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

const OperationInfo kOperations[] = {
    // The engine's names say which pixel is dropped.
    {"lightest", ":FILE", "the lighter pixel of both, by green and blue; both of one size",
     select<CombinationType::AddDarkest>},
    {"darkest", ":FILE", "the darker pixel of both, by green and blue; both of one size",
     select<CombinationType::AddLightest>},
    {"add-lightest", ":FILE", "the same as darkest", select<CombinationType::AddLightest>},
    {"add-darkest", ":FILE", "the same as lightest", select<CombinationType::AddDarkest>},
    {"add", ":FILE,FROMMULT,FROMOFF_R,FROMOFF_G,FROMOFF_B,TOMULT,TOOFF_R,TOOFF_G,TOOFF_B",
     "(FILE + FROMOFF) x FROMMULT + (picture + TOOFF) x TOMULT; both of one size", add},
};

} // namespace

std::span<const OperationInfo> combination_operations() {
    return kOperations;
}

} // namespace kelvane
