// The numbers of the menu's commands, in menu order.
#pragma once

namespace kelvane {

enum CommandId : unsigned short {
    kNoCommand = 0, // a submenu or a separator

    kCmdOpen = 40001,
    kCmdOpenByImageMagick,
    kCmdSave,
    kCmdExport,
    kCmdSelectSource,
    kCmdAcquire,
    kCmdRecent1, // four in a row
    kCmdRecent4 = kCmdRecent1 + 3,
    kCmdClose,
    kCmdExit,

    kCmdUndo,
    kCmdCopy,
    kCmdPaste,

    kCmdSoften,
    kCmdSoftenMore,
    kCmdBlur,
    kCmdBlurMore,
    kCmdSharpen,
    kCmdSharpenMore,
    kCmdUnsharp,
    kCmdEmboss,
    kCmdAddNoise,
    kCmdMinimum,
    kCmdMedian,
    kCmdMaximum,
    kCmdCustomFilter,
    kCmdResample,
    kCmdCombine,
    kCmdEmphasize,
    kCmdCropToSelection,
    kCmdCropToDrawing,
    kCmdMirror,
    kCmdFlip,
    kCmdRotateRight,
    kCmdRotateLeft,

    kCmdDarken,
    kCmdLighten,
    kCmdColourise,
    kCmdNegative,
    kCmdGrayScale,
    kCmdFloydSteinberg,
    kCmdApplyPalette,
    kCmdReduce,
    kCmdVectorize, // without action: the export does the tracing

    kCmdTileHorizontally,
    kCmdTileVertically,
    kCmdCascade,
    kCmdArrangeIcons,

    kCmdHelp,
    kCmdAbout,
    kCmdLanguage,

    kCmdFirstLogo, // of the surface without pictures, not of the menu

    kRecentSeparator, // behind the recent files; chosen by nobody
};

/// First id of MDI children and of their entries in the Window menu.
inline constexpr unsigned kFirstChildId = 50000;

} // namespace kelvane
