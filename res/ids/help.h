// Pages of the help file by their context number: the German ones; the English ones stand higher by
// the same offset as the texts. A dialog's page bears the number of the dialog's template.
#ifndef KELVANE_RES_IDS_HELP_H
#define KELVANE_RES_IDS_HELP_H

#define IDH_START                        1
#define IDH_TASKS                        10
#define IDH_FIRST_LOGO                   11
#define IDH_PIXEL_SIZE                   12
#define IDH_MAKERS                       13
#define IDH_DRAWINGS                     14
#define IDH_SCANNING                     15
#define IDH_IMAGEMAGICK                  16
#define IDH_MAIN_WINDOW                  20
#define IDH_MENU_FILE                    21
#define IDH_MENU_EDIT                    22
#define IDH_MENU_IMAGE                   23
#define IDH_MENU_COLOURS                 24
#define IDH_MENU_WINDOW                  25
#define IDH_MENU_HELP                    26
#define IDH_SHORTCUTS                    27
#define IDH_ZOOM                         28
#define IDH_DIALOGS                      30
#define IDH_MESSAGES                     31
#define IDH_MORE                         40
#define IDH_SETTINGS                     41
#define IDH_COMMAND_LINE                 42
#define IDH_TROUBLESHOOTING              43
#define IDH_INSTALL                      44
#define IDH_LICENCES                     45

#endif
