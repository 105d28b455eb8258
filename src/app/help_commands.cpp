#include "app/help_commands.h"

#include "dialogs/frmAbout.h"
#include "dialogs/frmLanguage.h"

#include "ids.h"

namespace kelvane::commands {

void help(MainServices& main) {
    main.show_help(IDH_START);
}

void about(MainServices& main) {
    frmAbout(KELVANE_VERSION).show_modal(main.frame());
}

void language(MainServices& main) {
    frmLanguage dialog(main.settings());
    dialog.show_modal(main.frame());
    if (dialog.changed) main.loadLanguage();
}

} // namespace kelvane::commands
