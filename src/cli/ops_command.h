// `kelvane-cli ops`: the list of operations.
#pragma once

#include "cli/command_line.h"

namespace CLI {
class App;
}

namespace kelvane {

/// Adds the subcommand; running it prints one line for each operation.
void add_ops_command(CLI::App& app, const Console& console);

} // namespace kelvane
