#include "app/main_menu.h"

#include "app/command_table.h"
#include "texts/string_table.h"
#include "win/dialog.h"

#include "ids.h"

#include <algorithm>

namespace kelvane {
namespace {

std::wstring caption_of(const MenuEntry& entry) {
    std::wstring caption = LoadString(entry.caption);
    if (entry.shortcut.key == 0) return caption;
    caption += L'\t';
    if (entry.shortcut.control) caption += LoadString(IDS_KEY_CONTROL);
    return caption + entry.shortcut.shown;
}

int position_in(HMENU parent, HMENU menu) {
    int position = GetMenuItemCount(parent) - 1;
    while (position >= 0 && GetSubMenu(parent, position) != menu)
        --position;
    return position;
}

// A submenu has the page of its parent.
int help_page_of(int caption, HMENU parent) {
    switch (caption) {
    case IDS_MENU_FILE:
        return IDH_MENU_FILE;
    case IDS_MENU_EDIT:
        return IDH_MENU_EDIT;
    case IDS_MENU_IMAGE:
        return IDH_MENU_IMAGE;
    case IDS_MENU_COLORS:
        return IDH_MENU_COLOURS;
    case IDS_MENU_WINDOW:
        return IDH_MENU_WINDOW;
    case IDS_MENU_HELP:
        return IDH_MENU_HELP;
    default:
        return static_cast<int>(GetMenuContextHelpId(parent));
    }
}

// Doubles "&", which in a menu marks the access key.
std::wstring escaped(const std::wstring& name) {
    std::wstring text;
    for (const wchar_t c : name)
        text.append(c == L'&' ? 2 : 1, c);
    return text;
}

std::wstring caption_in(HMENU menu, int position) {
    const auto place = static_cast<UINT>(position);
    const int length = GetMenuStringW(menu, place, nullptr, 0, MF_BYPOSITION);
    std::wstring caption(static_cast<std::size_t>(length) + 1, L'\0');
    GetMenuStringW(menu, place, caption.data(), length + 1, MF_BYPOSITION);
    caption.pop_back();
    return caption;
}

void set_caption(HMENU menu, unsigned item, bool by_position, std::wstring caption) {
    MENUITEMINFOW info{};
    info.cbSize = sizeof info;
    info.fMask = MIIM_STRING;
    info.dwTypeData = caption.data();
    SetMenuItemInfoW(menu, item, by_position, &info);
}

} // namespace

MainMenu::MainMenu() : bar_(CreateMenu()) {
    add_entries();
    loadLanguage();
}

void MainMenu::add_entries() {
    const auto table = command_table();
    std::vector<HMENU> open{bar_}; // by depth: the menu that receives the entries
    for (std::size_t i = 0; i < table.size(); ++i) {
        const MenuEntry& entry = table[i];
        open.resize(static_cast<std::size_t>(entry.depth) + 1);
        const HMENU parent = open.back();
        if (entry.caption == 0) {
            AppendMenuW(parent, MF_SEPARATOR, 0, nullptr);
        } else if (entry.command == kNoCommand) {
            const HMENU menu = CreatePopupMenu();
            AppendMenuW(parent, MF_POPUP, reinterpret_cast<UINT_PTR>(menu), L"");
            SetMenuContextHelpId(menu, static_cast<DWORD>(help_page_of(entry.caption, parent)));
            submenus_.push_back({parent, menu, entry.caption});
            open.push_back(menu);
        } else {
            const bool dead = std::holds_alternative<std::monostate>(entry.action);
            AppendMenuW(parent, MF_STRING | (dead ? MF_GRAYED : 0u), entry.command, L"");
        }
    }
}

HMENU MainMenu::window_menu() const {
    const auto found = std::ranges::find(submenus_, IDS_MENU_WINDOW, &Submenu::caption);
    return found->menu;
}

void MainMenu::loadLanguage() {
    for (const Submenu& submenu : submenus_)
        set_caption(submenu.parent,
                    static_cast<unsigned>(position_in(submenu.parent, submenu.menu)), true,
                    LoadString(submenu.caption));
    for (const MenuEntry& entry : command_table())
        if (entry.command != kNoCommand) set_caption(bar_, entry.command, false, caption_of(entry));
}

void MainMenu::show_recent(const cMRUFileList& files) {
    for (unsigned id = kCmdRecent1; id <= kCmdRecent4; ++id)
        DeleteMenu(bar_, id, MF_BYCOMMAND);
    DeleteMenu(bar_, kRecentSeparator, MF_BYCOMMAND);
    bool any = false;
    for (int i = 1; i <= std::min(files.FileCount(), kRecentFiles); ++i) {
        if (!files.FileExists(i)) continue;
        const std::wstring caption = files.MenuCaption(i); // "&" and the number come first
        InsertMenuW(bar_, kCmdClose, MF_BYCOMMAND | MF_STRING,
                    static_cast<UINT_PTR>(kCmdRecent1 + i - 1),
                    (caption.substr(0, 1) + escaped(caption.substr(1))).c_str());
        any = true;
    }
    if (any) InsertMenuW(bar_, kCmdClose, MF_BYCOMMAND | MF_SEPARATOR, kRecentSeparator, nullptr);
}

// An entry has the id of its document's window. With many documents the last entry is MDI's own,
// whose caption does not end with a title.
void MainMenu::escape_documents(HWND mdi_client) const {
    const HMENU menu = window_menu();
    for (int i = 0; i < GetMenuItemCount(menu); ++i) {
        const auto id = static_cast<int>(GetMenuItemID(menu, i));
        if (id < static_cast<int>(kFirstChildId)) continue;
        const std::wstring title = win::window_text(GetDlgItem(mdi_client, id));
        const std::wstring caption = caption_in(menu, i);
        if (!title.empty() && caption.ends_with(title))
            set_caption(menu, static_cast<unsigned>(i), true,
                        caption.substr(0, caption.size() - title.size()) + escaped(title));
    }
}

void MainMenu::enable(unsigned command, bool on) {
    EnableMenuItem(bar_, command, MF_BYCOMMAND | (on ? MF_ENABLED : MF_GRAYED));
}

int MainMenu::help_page(HMENU menu) const {
    const int entries = menu == bar_ ? GetMenuItemCount(bar_) : 0;
    for (int i = 0; i < entries; ++i)
        if ((GetMenuState(bar_, static_cast<UINT>(i), MF_BYPOSITION) & MF_HILITE) != 0)
            menu = GetSubMenu(bar_, i);
    const DWORD page = GetMenuContextHelpId(menu);
    return page != 0 ? static_cast<int>(page) : IDH_MAIN_WINDOW;
}

HACCEL create_shortcuts() {
    std::vector<ACCEL> keys;
    for (const MenuEntry& entry : command_table()) {
        const Shortcut& shortcut = entry.shortcut;
        if (shortcut.key == 0 || shortcut.handled_by_system) continue;
        const int flags = FVIRTKEY | (shortcut.control ? FCONTROL : 0);
        keys.push_back({static_cast<BYTE>(flags), shortcut.key, entry.command});
    }
    return CreateAcceleratorTableW(keys.data(), static_cast<int>(keys.size()));
}

} // namespace kelvane
