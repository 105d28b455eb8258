#include "app/command_table.h"

#include "app/main_window.h"
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
template <int type> void filter(ImageDocument& document) {
    document.ProcessImage(type);
}
constexpr Action operation(Operation what) {
    return what;
}

} // namespace

struct CommandActions {
    static std::span<const MenuEntry> table() {
        using M = mfrmMain;
        using D = ImageDocument;
        static const MenuEntry kTable[] = {
            submenu(0, IDS_MENU_FILE),
            {1, kCmdOpen, IDS_MENU_OPEN, &M::open, control('O', L"O")},
            {1, kCmdOpenByImageMagick, IDS_MENU_OPEN_BY_IMAGEMAGICK, &M::open_by_imagemagick},
            {1, kCmdSave, IDS_MENU_SAVE, &M::save, control('S', L"S")},
            separator(),
            {1, kCmdExport, IDS_MENU_EXPORT, &M::export_script, control('E', L"E")},
            submenu(1, IDS_MENU_IMPORT),
            {2, kCmdSelectSource, IDS_MENU_SELECT_SOURCE, &M::select_source},
            {2, kCmdAcquire, IDS_MENU_ACQUIRE, &M::acquire},
            separator(),
            {1, kCmdClose, IDS_MENU_CLOSE, &M::close_form, {VK_F4, true, L"F4", true}},
            {1, kCmdExit, IDS_MENU_EXIT, &M::exit},

            submenu(0, IDS_MENU_EDIT),
            {1, kCmdUndo, IDS_MENU_UNDO, &M::undo, control('Z', L"Z")},
            separator(),
            {1, kCmdCopy, IDS_MENU_COPY, &M::copy, control('C', L"C")},
            {1, kCmdPaste, IDS_MENU_PASTE, &M::paste, control('V', L"V")},

            submenu(0, IDS_MENU_IMAGE),
            submenu(1, IDS_MENU_SOFTENING_FILTERS),
            {2, kCmdSoften, IDS_MENU_SOFTEN, filter<kSoften>},
            {2, kCmdSoftenMore, IDS_MENU_SOFTEN_MORE, filter<kSoftenMore>},
            {2, kCmdBlur, IDS_MENU_BLUR, filter<kBlur>},
            {2, kCmdBlurMore, IDS_MENU_BLUR_MORE, filter<kBlurMore>},
            submenu(1, IDS_MENU_SHARPENING_FILTERS),
            {2, kCmdSharpen, IDS_MENU_SHARPEN, filter<kSharpen>},
            {2, kCmdSharpenMore, IDS_MENU_SHARPEN_MORE, filter<kSharpenMore>},
            {2, kCmdUnsharp, IDS_MENU_UNSHARP, filter<kUnsharp>},
            submenu(1, IDS_MENU_SPECIAL_FILTERS),
            {2, kCmdEmboss, IDS_MENU_EMBOSS, filter<kEmboss>},
            separator(2),
            {2, kCmdAddNoise, IDS_MENU_ADD_NOISE, &M::add_noise},
            separator(2),
            {2, kCmdMinimum, IDS_MENU_MINIMUM, filter<kMinimumRank>},
            {2, kCmdMedian, IDS_MENU_MEDIAN, filter<kMeanRank>},
            {2, kCmdMaximum, IDS_MENU_MAXIMUM, filter<kMaximumRank>},
            {1, kCmdCustomFilter, IDS_MENU_CUSTOM_FILTERS, &M::custom_filter},
            separator(),
            {1, kCmdResample, IDS_MENU_RESAMPLE, &M::resample},
            separator(),
            {1, kCmdCombine, IDS_MENU_COMBINE, &M::combine},
            {1, kCmdEmphasize, IDS_MENU_EMPHASIZE, operation([](D& document) {
                 document.ProcessImage(kEmphasizeFirst);
                 document.ProcessImage(kEmphasizeSecond);
             })},
            separator(),
            {1, kCmdCropToSelection, IDS_MENU_CROP_TO_SELECTION, &M::crop_to_selection},
            {1, kCmdCropToDrawing, IDS_MENU_CROP_TO_DRAWING, &M::crop_to_drawing},
            {1, kCmdMirror, IDS_MENU_MIRROR, operation([](D& document) { document.Mirror(); })},
            {1, kCmdFlip, IDS_MENU_FLIP, operation([](D& document) { document.Flip(); })},
            {1, kCmdRotateRight, IDS_MENU_ROTATE_RIGHT,
             operation([](D& document) { document.RotateRight(); })},
            {1, kCmdRotateLeft, IDS_MENU_ROTATE_LEFT,
             operation([](D& document) { document.RotateLeft(); })},

            submenu(0, IDS_MENU_COLORS),
            {1, kCmdDarken, IDS_MENU_DARKEN, operation([](D& document) { document.Fade(); })},
            {1, kCmdLighten, IDS_MENU_LIGHTEN, operation([](D& document) { document.Lighten(); })},
            separator(),
            {1, kCmdColourise, IDS_MENU_COLOURISE, &M::colourise},
            separator(),
            {1, kCmdNegative, IDS_MENU_NEGATIVE,
             operation([](D& document) { document.NegativeImage(); })},
            separator(),
            {1, kCmdGrayScale, IDS_MENU_GRAY_SCALE,
             operation([](D& document) { document.GrayScale(); })},
            {1, kCmdFloydSteinberg, IDS_MENU_FLOYD_STEINBERG,
             operation([](D& document) { document.Steinberg(); })},
            {1, kCmdApplyPalette, IDS_MENU_APPLY_PALETTE, &M::apply_palette},
            {1, kCmdReduce, IDS_MENU_REDUCE, &M::reduce},
            {1, kCmdVectorize, IDS_MENU_VECTORIZE},

            submenu(0, IDS_MENU_WINDOW),
            {1, kCmdTileHorizontally, IDS_MENU_TILE_HORIZONTALLY, &M::tile_horizontally},
            {1, kCmdTileVertically, IDS_MENU_TILE_VERTICALLY, &M::tile_vertically},
            {1, kCmdCascade, IDS_MENU_CASCADE, &M::cascade},
            {1, kCmdArrangeIcons, IDS_MENU_ARRANGE_ICONS, &M::arrange_icons},

            submenu(0, IDS_MENU_HELP),
            {1, kCmdHelp, IDS_MENU_HELP_CONTENTS, &M::help, {VK_F1, false, L"F1", true}},
            separator(),
            {1, kCmdAbout, IDS_MENU_ABOUT, &M::about},
            {1, kCmdLanguage, IDS_MENU_LANGUAGE, &M::language},
        };
        return kTable;
    }
};

std::span<const MenuEntry> command_table() {
    return CommandActions::table();
}

const MenuEntry* find_command(unsigned id) {
    const auto table = command_table();
    const auto found = std::ranges::find(
        table, id, [](const MenuEntry& entry) { return static_cast<unsigned>(entry.command); });
    return id == kNoCommand || found == table.end() ? nullptr : &*found;
}

} // namespace kelvane
