// `kelvane-cli ops`: the list of operations.
#pragma once

namespace CLI {
class App;
}

namespace kelvane {

/// Adds the subcommand; running it prints one line for each operation.
void add_ops_command(CLI::App& app);

} // namespace kelvane
