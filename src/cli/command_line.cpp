#include "cli/command_line.h"

#include "base/file_error.h"
#include "cli/apply_command.h"
#include "cli/exit_code.h"
#include "cli/export_arguments.h"
#include "cli/export_command.h"
#include "cli/ops_command.h"
#include "cli/usage_error.h"

#include <CLI/CLI.hpp>

#include <algorithm>
#include <new>
#include <ostream>

namespace kelvane {
namespace {

constexpr const char* kAbout =
    "Turns pictures into EAGLE scripts that draw their dark pixels on a circuit board.\n"
    "\n"
    "  kelvane-cli export logo.png -o logo.scr --layer tPlace --width 20mm\n"
    "\n"
    "Run the script inside EAGLE's board, schematic or library editor: File > Execute Script.";
constexpr const char* kExitCodes =
    "Exit codes: 0 done; 1 the work failed and nothing was written; 2 wrong usage;\n"
    "3 written, but a coordinate lies outside EAGLE's range; 4 not written, because of a\n"
    "warning and --strict.";

// CLI11 takes its arguments in reverse order.
void parse(CLI::App& app, std::vector<std::string> arguments) {
    std::reverse(arguments.begin(), arguments.end());
    app.parse(std::move(arguments));
}

// CLI11 only says that a command is missing.
void refuse_unknown_command(const CLI::App& app, const std::vector<std::string>& arguments) {
    if (arguments.empty() || arguments[0].starts_with('-')) return;
    std::string names;
    for (const CLI::App* command : app.get_subcommands({})) {
        if (command->get_name() == arguments[0]) return;
        names += (names.empty() ? "" : ", ") + command->get_name();
    }
    throw UsageError("unknown command \"" + arguments[0] + "\"; there are " + names);
}

int usage_failure(const std::string& complaint, const CLI::App& app, const Console& console) {
    const auto commands = app.get_subcommands();
    const std::string command = commands.empty() ? "" : commands.front()->get_name() + " ";
    console.error << "kelvane-cli: " << complaint << "\nTry: kelvane-cli " << command << "--help\n";
    return kExitUsage;
}

int failure(const std::string& complaint, const Console& console) {
    console.error << "kelvane-cli: " << complaint << '\n';
    return kExitFailed;
}

} // namespace

int run_command_line(const std::vector<std::string>& arguments, const Console& console) {
    CLI::App app(kAbout, "kelvane-cli");
    app.footer(kExitCodes);
    app.set_version_flag("--version", std::string("kelvane-cli ") + KELVANE_VERSION);
    app.require_subcommand(1);
    app.allow_windows_style_options(false); // "/pictures/logo.png" is a path on every system
    int exit_code = kExitDone;
    add_export_command(app, console, exit_code);
    add_apply_command(app, console);
    add_ops_command(app, console);
    try {
        refuse_unknown_command(app, arguments);
        parse(app, with_tolerance(arguments));
        return exit_code;
    } catch (const CLI::Success& request) { // --help, --version
        return app.exit(request, console.out, console.error);
    } catch (const CLI::ParseError& error) {
        return usage_failure(error.what(), app, console);
    } catch (const UsageError& error) {
        return usage_failure(error.what(), app, console);
    } catch (const FileError& error) {
        return failure(error.what(), console);
    } catch (const std::bad_alloc&) {
        return failure("there is not enough memory", console);
    } catch (const std::exception& error) {
        return failure(error.what(), console);
    }
}

} // namespace kelvane
