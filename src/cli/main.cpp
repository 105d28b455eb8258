// kelvane-cli: the engine without a window. Exit codes: 0 done, 1 failed, 2 wrong usage.
#include "cli/apply_command.h"
#include "cli/ops_command.h"
#include "cli/usage_error.h"

#include <CLI/CLI.hpp>

#include <exception>
#include <iostream>

namespace {

int report(const char* message, int exit_code) {
    std::cerr << "kelvane-cli: " << message << '\n';
    return exit_code;
}

} // namespace

int main(int argc, char** argv) {
    CLI::App app("Filters pictures and turns them into EAGLE scripts.", "kelvane-cli");
    app.require_subcommand(1);
    kelvane::add_apply_command(app);
    kelvane::add_ops_command(app);
    try {
        app.parse(argc, argv);
    } catch (const CLI::ParseError& error) {
        return app.exit(error) == 0 ? 0 : 2;
    } catch (const kelvane::UsageError& error) {
        return report(error.what(), 2);
    } catch (const std::exception& error) {
        return report(error.what(), 1);
    }
    return 0;
}
