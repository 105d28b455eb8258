#include "dialogs/frmPalette.h"

#include "engine/image_process.h"
#include "settings/catalogue.h"
#include "settings/folders.h"
#include "texts/file_error_text.h"
#include "win/dpi.h"
#include "win/file_dialogs.h"
#include "win/names.h"

#include "ids.h"

#include <algorithm>
#include <set>
#include <span>

namespace kelvane {
namespace {

constexpr Caption kCaptions[] = {
    {IDC_PALETTE_FILE_LABEL, IDS_PALETTE_FILE},
    {IDC_PALETTE_BROWSE, IDS_PALETTE_BROWSE},
    {IDC_PALETTE_PREVIEW_LABEL, IDS_PALETTE_PREVIEW},
    {IDOK, IDS_PALETTE_OK},
    {IDCANCEL, IDS_PALETTE_CANCEL},
};

// Side of a colour's square: the largest, at 96 dots per inch, and the smallest with a gap to the
// next square, in pixels.
constexpr int kLargestSquare = 24;
constexpr int kSmallestWithGap = 5;

// The first palette file of a folder in the order of names; empty when there is none.
std::filesystem::path first_palette(const std::filesystem::path& folder) {
    std::set<std::filesystem::path> found;
    std::error_code error;
    for (std::filesystem::directory_iterator at(folder, error), end; !error && at != end;
         at.increment(error)) {
        if (win::compare_names(at->path().extension().wstring(), L".pal") == 0)
            found.insert(at->path());
    }
    return found.empty() ? std::filesystem::path() : *found.begin();
}

// Side of the largest squares, up to `largest`, of which `count` fit into an area.
int square_side(int width, int height, int count, int largest) {
    int side = largest;
    while (side > 1 && (width / side) * (height / side) < count)
        --side;
    return side;
}

void draw_colours(const DRAWITEMSTRUCT& box, std::span<const cPalette::Colour> colours) {
    const RECT& area = box.rcItem;
    FillRect(box.hDC, &area, GetSysColorBrush(COLOR_BTNFACE));
    const int width = area.right - area.left;
    const int side = square_side(width, area.bottom - area.top, static_cast<int>(colours.size()),
                                 win::scaled(box.hwndItem, kLargestSquare));
    const int drawn = side >= kSmallestWithGap ? side - 1 : side;
    const int columns = std::max(width / side, 1);
    int index = 0;
    for (const cPalette::Colour& colour : colours) {
        const LONG left = area.left + index % columns * side;
        const LONG top = area.top + index / columns * side;
        const RECT square{left, top, left + drawn, top + drawn};
        SetDCBrushColor(box.hDC, RGB(colour[0], colour[1], colour[2]));
        FillRect(box.hDC, &square, static_cast<HBRUSH>(GetStockObject(DC_BRUSH)));
        ++index;
    }
}

} // namespace

frmPalette::frmPalette(const SettingsFile& settings, const cDIBSection& picture)
    : Form(IDD_PALETTE, IDS_PALETTE_TITLE, kCaptions), settings_(settings), preview_(picture) {}

void frmPalette::load() {
    Form::load();
    if (FileName.empty()) FileName = first_palette(program_folder());
    set_text(IDC_PALETTE_FILE, FileName.wstring());
    density_changed();
    read_colours();
}

void frmPalette::density_changed() {
    preview_.fit(control(IDC_PALETTE_PREVIEW));
    fit_height();
}

// Reads the file named in the field and shows its colours. The error text; empty on success.
std::wstring frmPalette::read_colours() {
    const std::wstring file = text(IDC_PALETTE_FILE);
    palette_ = cPalette();
    std::wstring wrong;
    if (file.empty()) {
        wrong = LoadString(IDS_PALETTE_SELECT);
    } else {
        try {
            palette_ = read_palette(file);
            if (palette_.Count() == 0) wrong = LoadString(IDS_PALETTE_EMPTY);
        } catch (const FileError& error) {
            wrong = LoadString(IDS_PALETTE_ERROR) + file_error_text(error);
        }
    }
    set_text(IDC_PALETTE_COUNT,
             palette_.Count() == 0
                 ? std::wstring()
                 : LoadString(IDS_PALETTE_COLOURS, {std::to_wstring(palette_.Count())}));
    InvalidateRect(control(IDC_PALETTE_COLOURS), nullptr, FALSE);
    show_preview();
    return wrong;
}

// Without a palette it shows the picture as it is.
void frmPalette::show_preview() {
    preview_.show(control(IDC_PALETTE_PREVIEW), [this](cDIBSection& picture) {
        cDIBSection buffer = picture.Copy();
        cImageProcessDIB().ApplyPalette(picture, buffer, palette_);
    });
}

void frmPalette::on_command(int control, int notification) {
    if (control == IDC_PALETTE_FILE && notification == EN_KILLFOCUS) read_colours();
    if (control == IDC_PALETTE_BROWSE) browse();
}

// The folder of the file in the field, else that of the last opened picture, else the program's.
std::wstring frmPalette::browse_folder() const {
    const std::filesystem::path file = text(IDC_PALETTE_FILE);
    std::error_code ignored;
    if (std::filesystem::is_directory(file.parent_path(), ignored))
        return file.parent_path().wstring();
    const std::wstring pictures = read_setting(settings_, settings::kOpenFolder);
    return pictures.empty() ? program_folder() : pictures;
}

void frmPalette::browse() {
    win::FileQuestion question;
    question.filter = LoadString(IDS_PALETTE_FILTER);
    question.folder = browse_folder();
    question.title = LoadString(IDS_PALETTE_TITLE);
    const std::optional<std::wstring> chosen = win::ask_open_file(window(), question);
    if (!chosen) return;
    set_text(IDC_PALETTE_FILE, *chosen);
    const std::wstring wrong = read_colours();
    if (!wrong.empty()) refuse(IDC_PALETTE_FILE, wrong);
}

void frmPalette::draw(const DRAWITEMSTRUCT& box) {
    if (box.CtlID == IDC_PALETTE_PREVIEW) return preview_.draw(box);
    draw_colours(box, palette_.colours());
}

bool frmPalette::confirm() {
    const std::wstring wrong = read_colours();
    if (!wrong.empty()) return refuse(IDC_PALETTE_FILE, wrong);
    FileName = text(IDC_PALETTE_FILE);
    return true;
}

} // namespace kelvane
