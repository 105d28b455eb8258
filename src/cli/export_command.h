// kelvane-cli export: a picture becomes an EAGLE script.
#pragma once

#include "cli/command_line.h"

namespace CLI {
class App;
}

namespace kelvane {

/// Adds the subcommand to `app`. When chosen it runs inside `app.parse`, stores an `ExitCode` and
/// throws `UsageError` or `FileError`.
void add_export_command(CLI::App& app, const Console& console, int& exit_code);

} // namespace kelvane
