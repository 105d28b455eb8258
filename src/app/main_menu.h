// The main window's menu bar, built from the command table.
#pragma once

#include "app/mru_file_list.h"

#include <windows.h>

#include <vector>

namespace kelvane {

/// Captions come from the string table, each followed by a tab and its shortcut. A change of
/// language sets them in place: MDI adds entries to bar and Window menu that a new menu would lack.
class MainMenu {
  public:
    /// Number of recent files shown.
    static constexpr int kRecentFiles = 4;

    /// Builds the menu; the window that it is given to owns it.
    MainMenu();
    HMENU bar() const { return bar_; }
    /// The menu to which MDI appends the open documents.
    HMENU window_menu() const;

    /// Sets every caption in the program's language. The bar has to be drawn again.
    void loadLanguage();
    /// Shows the recent files and a separator behind them; neither while there are none.
    void show_recent(const cMRUFileList& files);
    /// Doubles the "&" in the captions of the documents that MDI has appended to the Window menu.
    /// To be called before the menu is shown: MDI rewrites the captions with every change.
    void escape_documents(HWND mdi_client) const;
    void enable(unsigned command, bool on);
    /// The help page of a menu in which F1 was pressed; for the bar that of its highlighted entry.
    int help_page(HMENU menu) const;

  private:
    struct Submenu {
        HMENU parent;
        HMENU menu;
        int caption;
    };
    void add_entries();

    HMENU bar_;
    std::vector<Submenu> submenus_;
};

/// The keys of the command table, as accelerators.
HACCEL create_shortcuts();

} // namespace kelvane
