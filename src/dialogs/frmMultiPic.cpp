#include "dialogs/frmMultiPic.h"

#include "base/file_error.h"
#include "image/picture_reader.h"
#include "win/dpi.h"
#include "win/picture_box.h"

#include "ids.h"

#include <algorithm>
#include <cmath>

namespace kelvane {
namespace {

constexpr Caption kCaptions[] = {
    {IDC_SUBIMAGE_LABEL, IDS_SUBIMAGE_SELECT},
    {IDOK, IDS_SUBIMAGE_OK},
    {IDCANCEL, IDS_SUBIMAGE_CANCEL},
};

constexpr int kPreviewEdge = 200; // at 96 dots per inch
constexpr int kColumns = 3;
constexpr int kLabelHeight = 32; // at 96 dots per inch: the label and what is around it
constexpr int kFrame = 3;        // pixels around a preview; those of the selected one are coloured
constexpr int kNotInView = -1;

// "3: 640 x 480". The number comes first, so that typing it selects the image.
std::wstring label(int number, const SubImage& image) {
    std::wstring text = std::to_wstring(number);
    if (image.width > 0 && image.height > 0)
        text += L": " + std::to_wstring(image.width) + L" x " + std::to_wstring(image.height);
    return text;
}

// Centred rectangle in the picture's aspect ratio, as large as fits and at most `zoom` times the
// picture's size.
RECT place_in_middle(const RECT& area, const cDIBSection& picture, double zoom) {
    const double fitting = std::min({zoom, static_cast<double>(area.right) / picture.Width(),
                                     static_cast<double>(area.bottom) / picture.Height()});
    const auto width = std::max(std::lround(picture.Width() * fitting), 1L);
    const auto height = std::max(std::lround(picture.Height() * fitting), 1L);
    const LONG left = (area.right - width) / 2;
    const LONG top = (area.bottom - height) / 2;
    return {left, top, left + width, top + height};
}

RECT part_of_item(HWND list, int item, int part) {
    RECT area{};
    ListView_GetItemRect(list, item, &area, part);
    return area;
}

// A crossed box.
void draw_missing(HDC context, const RECT& area) {
    FillRect(context, &area, GetSysColorBrush(COLOR_BTNFACE));
    FrameRect(context, &area, GetSysColorBrush(COLOR_BTNSHADOW));
    const win::Selected pen(context, GetStockObject(DC_PEN));
    SetDCPenColor(context, GetSysColor(COLOR_BTNSHADOW));
    MoveToEx(context, area.left, area.top, nullptr);
    LineTo(context, area.right, area.bottom);
    MoveToEx(context, area.right - 1, area.top, nullptr);
    LineTo(context, area.left - 1, area.bottom);
}

// Empty when the file is missing or holds no picture.
cDIBSection read_or_nothing(const std::filesystem::path& file) {
    try {
        return read_picture(file);
    } catch (const FileError&) {
        return {};
    }
}

} // namespace

frmMultiPic::frmMultiPic(std::vector<SubImage> images)
    : Form(IDD_SUBIMAGE, IDS_SUBIMAGE_TITLE, kCaptions), images_(std::move(images)) {
    const INITCOMMONCONTROLSEX classes{sizeof classes, ICC_LISTVIEW_CLASSES};
    InitCommonControlsEx(&classes);
}

void frmMultiPic::load() {
    Form::load();
    const HWND list = control(IDC_SUBIMAGE_LIST);
    ListView_SetExtendedListViewStyle(list, LVS_EX_DOUBLEBUFFER);
    make_previews();
    fill_list();
    const int last = static_cast<int>(images_.size()) - 1;
    const int start = std::clamp(Index, 0, std::max(last, 0));
    ListView_SetItemState(list, start, LVIS_SELECTED | LVIS_FOCUSED, LVIS_SELECTED | LVIS_FOCUSED);
    ListView_EnsureVisible(list, start, FALSE);
    show_selection();
}

// Sets the size of previews for the screen's density and empties the image list, from which the
// list view takes the size of its items.
void frmMultiPic::make_previews() {
    const HWND list = control(IDC_SUBIMAGE_LIST);
    edge_ = win::scaled(window(), kPreviewEdge);
    preview_index_.assign(images_.size(), kNotInView);
    ImageList previews(ImageList_Create(edge_, edge_, ILC_COLOR24, 8, 8));
    ListView_SetImageList(list, previews.get(), LVSIL_NORMAL);
    previews_ = std::move(previews);
    RECT area{};
    GetClientRect(list, &area);
    const int column = (area.right - win::system_metric(list, SM_CXVSCROLL)) / kColumns;
    const int row = edge_ + win::scaled(window(), kLabelHeight);
    ListView_SetIconSpacing(list, std::max(column, edge_), row);
}

void frmMultiPic::fill_list() const {
    const HWND list = control(IDC_SUBIMAGE_LIST);
    ListView_SetItemCount(list, static_cast<int>(images_.size()));
    int position = 0;
    for (const SubImage& image : images_) {
        std::wstring text = label(position + 1, image);
        LVITEMW item{};
        item.mask = LVIF_TEXT;
        item.iItem = position++;
        item.pszText = text.data();
        SendMessageW(list, LVM_INSERTITEMW, 0, reinterpret_cast<LPARAM>(&item));
    }
}

int frmMultiPic::preview_of(int image) {
    int& index = preview_index_.at(static_cast<std::size_t>(image));
    if (index == kNotInView) index = add_preview(images_[static_cast<std::size_t>(image)].preview);
    return index;
}

int frmMultiPic::add_preview(const std::filesystem::path& file) {
    const cDIBSection picture = read_or_nothing(file);
    const win::WindowContext screen(window());
    win::Bitmap bitmap(CreateCompatibleBitmap(screen.get(), edge_, edge_));
    {
        const win::MemoryContext context(CreateCompatibleDC(screen.get()));
        const win::Selected selected(context.get(), bitmap.get());
        const RECT area{0, 0, edge_, edge_};
        FillRect(context.get(), &area, GetSysColorBrush(COLOR_WINDOW));
        if (picture.empty())
            draw_missing(context.get(), area);
        else
            win::draw_picture(context.get(),
                              place_in_middle(area, picture, win::picture_zoom(window())), picture);
    }
    return ImageList_Add(previews_.get(), bitmap.get(), nullptr);
}

int frmMultiPic::selected() const {
    return ListView_GetNextItem(control(IDC_SUBIMAGE_LIST), -1, LVNI_SELECTED);
}

void frmMultiPic::show_selection() const {
    const int image = selected();
    enable(IDOK, image >= 0);
    set_text(IDC_SUBIMAGE_NUMBER,
             image < 0 ? std::wstring()
                       : LoadString(IDS_SUBIMAGE_NUMBER,
                                    {std::to_wstring(image + 1), std::to_wstring(images_.size())}));
}

// Replaces the list view's drawing, which would tint the selected preview.
void frmMultiPic::draw_item(HDC context, int image) {
    const HWND list = control(IDC_SUBIMAGE_LIST);
    const bool is_selected = image == selected();
    const RECT item = part_of_item(list, image, LVIR_BOUNDS);
    const LONG left = (item.left + item.right - edge_) / 2;
    const LONG top = item.top + kFrame;
    const RECT frame{left - kFrame, top - kFrame, left + edge_ + kFrame, top + edge_ + kFrame};
    FillRect(context, &frame, GetSysColorBrush(is_selected ? COLOR_HIGHLIGHT : COLOR_WINDOW));
    ImageList_Draw(previews_.get(), preview_of(image), context, left, top, ILD_NORMAL);

    RECT below = part_of_item(list, image, LVIR_LABEL);
    if (is_selected) FillRect(context, &below, GetSysColorBrush(COLOR_HIGHLIGHT));
    SetBkMode(context, TRANSPARENT);
    SetTextColor(context, GetSysColor(is_selected ? COLOR_HIGHLIGHTTEXT : COLOR_WINDOWTEXT));
    DrawTextW(context, label(image + 1, images_.at(static_cast<std::size_t>(image))).c_str(), -1,
              &below, DT_CENTER | DT_VCENTER | DT_SINGLELINE | DT_NOPREFIX | DT_END_ELLIPSIS);
    if (is_selected && GetFocus() == list) DrawFocusRect(context, &below);
}

// Answer to NM_CUSTOMDRAW.
LRESULT frmMultiPic::custom_draw(const NMCUSTOMDRAW& stage) {
    if (stage.dwDrawStage == CDDS_PREPAINT) return CDRF_NOTIFYITEMDRAW;
    if (stage.dwDrawStage != CDDS_ITEMPREPAINT) return CDRF_DODEFAULT;
    draw_item(stage.hdc, static_cast<int>(stage.dwItemSpec));
    return CDRF_SKIPDEFAULT;
}

INT_PTR frmMultiPic::on_message(UINT message, WPARAM w, LPARAM l) {
    if (message != WM_NOTIFY || w != IDC_SUBIMAGE_LIST) return FALSE;
    switch (reinterpret_cast<const NMHDR*>(l)->code) {
    case NM_CUSTOMDRAW:
        SetWindowLongPtrW(window(), DWLP_MSGRESULT,
                          custom_draw(*reinterpret_cast<const NMCUSTOMDRAW*>(l)));
        return TRUE;
    case LVN_ITEMCHANGED:
        show_selection();
        return TRUE;
    case NM_DBLCLK:
        if (selected() >= 0) SendMessageW(window(), WM_COMMAND, IDOK, 0);
        return TRUE;
    default:
        return FALSE;
    }
}

bool frmMultiPic::confirm() {
    const int image = selected();
    if (image < 0) return false;
    Index = image;
    return true;
}

} // namespace kelvane
