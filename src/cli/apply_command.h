// `kelvane-cli apply`: operations on a picture file.
#pragma once

#include "cli/command_line.h"

namespace CLI {
class App;
}

namespace kelvane {

/// Adds the subcommand; running it throws `UsageError` or, the file's name first, `FileError`.
void add_apply_command(CLI::App& app, const Console& console);

} // namespace kelvane
