// The commands of kelvane-cli as a function of arguments and streams.
#pragma once

#include <iostream>
#include <string>
#include <vector>

namespace kelvane {

/// What a command may read, and where its results and complaints go.
struct Console {
    std::ostream& out;
    std::ostream& error;
    /// Whether `error` is a terminal that can show a progress bar.
    bool shows_progress = false;
    std::istream& in = std::cin; ///< binary
};

/// Runs the command that `arguments` (UTF-8, without the program's name) name and returns an
/// `ExitCode`. Throws nothing: failures become one line on `console.error`.
int run_command_line(const std::vector<std::string>& arguments, const Console& console);

} // namespace kelvane
