#include "cli/operations.h"

#include "cli/operation_arguments.h"
#include "cli/usage_error.h"

#include <algorithm>
#include <iterator>
#include <string_view>

namespace kelvane {
namespace {

[[noreturn]] void fail_unknown(std::string_view name) {
    std::string accepted;
    for (const OperationInfo& known : operations())
        accepted += (accepted.empty() ? "" : ", ") + known.name;
    throw UsageError("unknown operation \"" + std::string(name) + "\"; there are " + accepted);
}

const OperationInfo& find_operation(std::string_view name) {
    for (const OperationInfo& known : operations())
        if (known.name == name) return known;
    fail_unknown(name);
}

} // namespace

const std::vector<OperationInfo>& operations() {
    static const std::vector<OperationInfo> all = [] {
        std::vector<OperationInfo> list;
        for (const auto family : {filter_operations, tone_operations, reduction_operations,
                                  combination_operations, geometry_operations})
            std::ranges::copy(family(), std::back_inserter(list));
        return list;
    }();
    return all;
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
