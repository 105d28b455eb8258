// kelvane-cli: the engine with no window.
#include "base/console.h"
#include "cli/command_line.h"

#include <iostream>

int main(int argc, char** argv) {
    kelvane::prepare_console();
    return kelvane::run_command_line(kelvane::utf8_arguments(argc, argv),
                                     {std::cout, std::cerr, kelvane::standard_error_is_terminal()});
}
