// The menu as one table: what each entry is called, which key it has and what it does.
#pragma once

#include "app/commands.h"
#include "app/image_document.h"

#include <span>
#include <variant>

namespace kelvane {

class frmImage;
class MainServices;

/// What a command does. An operation is run on the active document, which is then drawn; a form
/// command gets the active document's form; a main command needs no document. A command without
/// an action is shown greyed.
using Operation = void (*)(ImageDocument&);
using FormCommand = void (*)(MainServices&, frmImage&);
using MainCommand = void (*)(MainServices&);
using Action = std::variant<std::monostate, Operation, FormCommand, MainCommand>;

/// A key that works without the menu.
struct Shortcut {
    unsigned short key = 0;         // virtual key code; 0: none
    bool control = false;           // together with Ctrl
    const wchar_t* shown = nullptr; // its name in the menu
    bool handled_by_system = false; // no accelerator: the system sends the command
};

struct MenuEntry {
    int depth; // 0: a menu of the bar, 1: an entry, 2: an entry of a submenu
    CommandId command = kNoCommand;
    int caption = 0; // string table; 0: a separator
    Action action = {};
    Shortcut shortcut = {};
};

/// Every entry in menu order; an entry followed by a deeper one is a submenu. The recent files are
/// inserted before `kCmdClose`.
std::span<const MenuEntry> command_table();

/// The entry with this command; null when there is none.
const MenuEntry* find_command(unsigned id);

} // namespace kelvane
