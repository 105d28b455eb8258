// Measures of the dialogs, in dialog units, and what their templates have in common.
//
// Each template lists the access keys of its captions in alphabetical order, so that a translator
// sees which letters are taken. The captions themselves are in the string table; widths are those of
// the German ones, which are longer.
#include <winresrc.h>

#define DIALOG_STYLE STYLE DS_MODALFRAME | DS_SHELLFONT | WS_POPUP | WS_CAPTION | WS_SYSMENU | WS_VISIBLE
#define DIALOG_FONT FONT 8, "MS Shell Dlg"

// Distance of the controls from the dialog's border
#define MARGIN 7

// Heights: one line of text, edit field, check box or option button
#define TEXT_HEIGHT 9
#define FIELD_HEIGHT 13
#define OPTION_HEIGHT 10

// Buttons; small dialogs have the narrow ones
#define BUTTON_WIDTH 52
#define NARROW_BUTTON_WIDTH 50
#define BUTTON_HEIGHT 14
#define BUTTON_GAP 4

// Ok and Cancel stand in the lower right corner: their places in a dialog of this width and height
#define CANCEL_LEFT(width) ((width) - MARGIN - BUTTON_WIDTH)
#define OK_LEFT(width) (CANCEL_LEFT(width) - BUTTON_GAP - BUTTON_WIDTH)
#define NARROW_CANCEL_LEFT(width) ((width) - MARGIN - NARROW_BUTTON_WIDTH)
#define NARROW_OK_LEFT(width) (NARROW_CANCEL_LEFT(width) - BUTTON_GAP - NARROW_BUTTON_WIDTH)
#define BUTTON_TOP(height) ((height) - MARGIN - BUTTON_HEIGHT)

// Room for a preview of 220 x 220 pixels at 96 dots per inch; the program sets its exact size
#define PREVIEW_TOP 18
#define PREVIEW_WIDTH 149
#define PREVIEW_HEIGHT 144
#define PREVIEW_STYLE SS_OWNERDRAW | SS_SUNKEN

#define LIST_STYLE CBS_DROPDOWNLIST | WS_VSCROLL | WS_TABSTOP
