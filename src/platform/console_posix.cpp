#include "base/console.h"

#include <unistd.h>

namespace kelvane {

std::vector<std::string> utf8_arguments(int argc, char** argv) {
    return {argv + (argc > 0 ? 1 : 0), argv + argc};
}

void prepare_console() {}

bool standard_error_is_terminal() {
    return isatty(STDERR_FILENO) != 0;
}

} // namespace kelvane
