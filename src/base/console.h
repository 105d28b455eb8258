// The process's arguments and standard streams, alike on every system.
#pragma once

#include <string>
#include <vector>

namespace kelvane {

/// The arguments in UTF-8, without the program's name.
std::vector<std::string> utf8_arguments(int argc, char** argv);

/// Makes the standard streams carry UTF-8 with plain line feeds, and on Windows libraries come from
/// the system's folders only.
void prepare_console();

/// Whether standard error is a terminal, on which a progress bar makes sense.
bool standard_error_is_terminal();

} // namespace kelvane
