#include "app/command_table.h"

#include "app/colour_commands.h"
#include "app/edit_commands.h"
#include "app/file_commands.h"
#include "app/help_commands.h"
#include "app/image_commands.h"
#include "app/window_commands.h"
#include "process/filter_kernel.h"

#include "ids.h"

#include <algorithm>

namespace kelvane {
namespace {

constexpr MenuEntry separator(int depth = 1) {
    return {depth};
}
constexpr MenuEntry submenu(int depth, int caption) {
    return {depth, kNoCommand, caption};
}
constexpr Shortcut control(char key, const wchar_t* shown) {
    return {static_cast<unsigned short>(key), true, shown};
}

constexpr MenuEntry kTable[] = {
    submenu(0, IDS_MENU_FILE),
    {1, kCmdOpen, IDS_MENU_OPEN, commands::open, control('O', L"O")},
    {1, kCmdOpenByImageMagick, IDS_MENU_OPEN_BY_IMAGEMAGICK, commands::open_by_imagemagick},
    {1, kCmdSave, IDS_MENU_SAVE, commands::save, control('S', L"S")},
    separator(),
    {1, kCmdExport, IDS_MENU_EXPORT, commands::export_script, control('E', L"E")},
    submenu(1, IDS_MENU_IMPORT),
    {2, kCmdSelectSource, IDS_MENU_SELECT_SOURCE, commands::select_source},
    {2, kCmdAcquire, IDS_MENU_ACQUIRE, commands::acquire},
    separator(),
    {1, kCmdClose, IDS_MENU_CLOSE, commands::close, {VK_F4, true, L"F4", true}},
    {1, kCmdExit, IDS_MENU_EXIT, commands::exit},

    submenu(0, IDS_MENU_EDIT),
    {1, kCmdUndo, IDS_MENU_UNDO, commands::undo, control('Z', L"Z")},
    separator(),
    {1, kCmdCopy, IDS_MENU_COPY, commands::copy, control('C', L"C")},
    {1, kCmdPaste, IDS_MENU_PASTE, commands::paste, control('V', L"V")},

    submenu(0, IDS_MENU_IMAGE),
    submenu(1, IDS_MENU_SOFTENING_FILTERS),
    {2, kCmdSoften, IDS_MENU_SOFTEN, commands::filter<kSoften>},
    {2, kCmdSoftenMore, IDS_MENU_SOFTEN_MORE, commands::filter<kSoftenMore>},
    {2, kCmdBlur, IDS_MENU_BLUR, commands::filter<kBlur>},
    {2, kCmdBlurMore, IDS_MENU_BLUR_MORE, commands::filter<kBlurMore>},
    submenu(1, IDS_MENU_SHARPENING_FILTERS),
    {2, kCmdSharpen, IDS_MENU_SHARPEN, commands::filter<kSharpen>},
    {2, kCmdSharpenMore, IDS_MENU_SHARPEN_MORE, commands::filter<kSharpenMore>},
    {2, kCmdUnsharp, IDS_MENU_UNSHARP, commands::filter<kUnsharp>},
    submenu(1, IDS_MENU_SPECIAL_FILTERS),
    {2, kCmdEmboss, IDS_MENU_EMBOSS, commands::filter<kEmboss>},
    separator(2),
    {2, kCmdAddNoise, IDS_MENU_ADD_NOISE, commands::add_noise},
    separator(2),
    {2, kCmdMinimum, IDS_MENU_MINIMUM, commands::filter<kMinimumRank>},
    {2, kCmdMedian, IDS_MENU_MEDIAN, commands::filter<kMeanRank>},
    {2, kCmdMaximum, IDS_MENU_MAXIMUM, commands::filter<kMaximumRank>},
    {1, kCmdCustomFilter, IDS_MENU_CUSTOM_FILTERS, commands::custom_filter},
    separator(),
    {1, kCmdResample, IDS_MENU_RESAMPLE, commands::resample},
    separator(),
    {1, kCmdCombine, IDS_MENU_COMBINE, commands::combine},
    {1, kCmdEmphasize, IDS_MENU_EMPHASIZE, commands::emphasize},
    separator(),
    {1, kCmdCropToSelection, IDS_MENU_CROP_TO_SELECTION, commands::crop_to_selection},
    {1, kCmdCropToDrawing, IDS_MENU_CROP_TO_DRAWING, commands::crop_to_drawing},
    {1, kCmdMirror, IDS_MENU_MIRROR, commands::mirror},
    {1, kCmdFlip, IDS_MENU_FLIP, commands::flip},
    {1, kCmdRotateRight, IDS_MENU_ROTATE_RIGHT, commands::rotate_right},
    {1, kCmdRotateLeft, IDS_MENU_ROTATE_LEFT, commands::rotate_left},

    submenu(0, IDS_MENU_COLORS),
    {1, kCmdDarken, IDS_MENU_DARKEN, commands::darken},
    {1, kCmdLighten, IDS_MENU_LIGHTEN, commands::lighten},
    separator(),
    {1, kCmdColourise, IDS_MENU_COLOURISE, commands::colourise},
    separator(),
    {1, kCmdNegative, IDS_MENU_NEGATIVE, commands::negative},
    separator(),
    {1, kCmdGrayScale, IDS_MENU_GRAY_SCALE, commands::gray_scale},
    {1, kCmdFloydSteinberg, IDS_MENU_FLOYD_STEINBERG, commands::floyd_steinberg},
    {1, kCmdApplyPalette, IDS_MENU_APPLY_PALETTE, commands::apply_palette},
    {1, kCmdReduce, IDS_MENU_REDUCE, commands::reduce},
    {1, kCmdVectorize, IDS_MENU_VECTORIZE},

    submenu(0, IDS_MENU_WINDOW),
    {1, kCmdTileHorizontally, IDS_MENU_TILE_HORIZONTALLY, commands::tile_horizontally},
    {1, kCmdTileVertically, IDS_MENU_TILE_VERTICALLY, commands::tile_vertically},
    {1, kCmdCascade, IDS_MENU_CASCADE, commands::cascade},
    {1, kCmdArrangeIcons, IDS_MENU_ARRANGE_ICONS, commands::arrange_icons},

    submenu(0, IDS_MENU_HELP),
    {1, kCmdHelp, IDS_MENU_HELP_CONTENTS, commands::help, {VK_F1, false, L"F1", true}},
    separator(),
    {1, kCmdAbout, IDS_MENU_ABOUT, commands::about},
    {1, kCmdLanguage, IDS_MENU_LANGUAGE, commands::language},
};

} // namespace

std::span<const MenuEntry> command_table() {
    return kTable;
}

const MenuEntry* find_command(unsigned id) {
    const auto table = command_table();
    const auto found = std::ranges::find(
        table, id, [](const MenuEntry& entry) { return static_cast<unsigned>(entry.command); });
    return id == kNoCommand || found == table.end() ? nullptr : &*found;
}

} // namespace kelvane
