// Texts for files and pages that the shell could not open.
#pragma once

namespace kelvane {

/// The number of the text for an answer of `win::shell_execute`; 0 for success.
int shell_error_text(int answer);

} // namespace kelvane
