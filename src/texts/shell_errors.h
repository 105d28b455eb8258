// What is said when the shell could not open a file or a page.
#pragma once

namespace kelvane {

/// The number of the text for an answer of `win::shell_execute`; 0 for success.
int shell_error_text(int answer);

} // namespace kelvane
