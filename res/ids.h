// Numbers of texts, dialogs, controls and help pages, for C++ and for the resource compiler alike
// (hence macros).
#ifndef KELVANE_RES_IDS_H
#define KELVANE_RES_IDS_H

#include "ids/dialogs.h"
#include "ids/help.h"
#include "ids/texts.h"

#define KELVANE_ENGLISH_OFFSET 10000

// The program's icon.
#define IDI_KELVANE                      100

#endif
