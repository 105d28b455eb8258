#include "cli/ops_command.h"

#include "cli/operations.h"

#include <CLI/CLI.hpp>

#include <algorithm>
#include <ostream>
#include <string>

namespace kelvane {
namespace {

void list_operations(std::ostream& out) {
    constexpr std::size_t kColumn = 28;
    for (const OperationInfo& info : operations()) {
        std::string line = info.name + info.arguments;
        line.resize(std::max(line.size() + 2, kColumn), ' ');
        out << line << info.help << '\n';
    }
}

} // namespace

void add_ops_command(CLI::App& app, const Console& console) {
    app.add_subcommand("ops", "List the operations, one line each")->callback([console] {
        list_operations(console.out);
    });
}

} // namespace kelvane
