#include "app/image_window.h"

#include "app/picture_menu.h"
#include "base/file_error.h"
#include "texts/error_text.h"
#include "texts/string_table.h"
#include "win/dpi.h"
#include "win/gdi.h"
#include "win/message_box.h"
#include "win/platform_error.h"

#include "ids.h"

#include <windowsx.h>

#include <algorithm>
#include <cmath>

namespace kelvane {
namespace {

constexpr const wchar_t* kClassName = L"KelvaneImage";

// An elapsed time in the format of the system's clock.
std::wstring clock_text(double days) {
    const auto seconds = static_cast<unsigned>(std::lround(days * 86400));
    SYSTEMTIME time{};
    time.wYear = 2000;
    time.wMonth = 1;
    time.wDay = 1;
    time.wHour = static_cast<WORD>(seconds / 3600 % 24);
    time.wMinute = static_cast<WORD>(seconds / 60 % 60);
    time.wSecond = static_cast<WORD>(seconds % 60);
    wchar_t text[64];
    GetTimeFormatW(LOCALE_USER_DEFAULT, TIME_FORCE24HOURFORMAT | TIME_NOTIMEMARKER, &time, nullptr,
                   text, std::size(text));
    return text;
}

// The error's text; for an unknown format also a hint at the converter.
std::wstring cause_of(const std::exception& error) {
    std::wstring cause = error_text(error);
    const auto* file_error = dynamic_cast<const FileError*>(&error);
    if (file_error != nullptr && file_error->fault() == FileFault::UnknownFormat)
        cause += L".\r\n\r\n" + LoadString(IDS_IMAGE_TRY_IMAGEMAGICK);
    return cause;
}

// What differs from the file's picture; empty when nothing does.
std::wstring opening_notice(const ImageDocument::Opening& opening) {
    std::wstring notice;
    if (opening.reduced)
        notice = LoadString(IDS_IMAGE_REDUCED, {std::to_wstring(opening.width_in_file),
                                                std::to_wstring(opening.height_in_file)});
    if (opening.ink_instead_of_nothing)
        notice += (notice.empty() ? L"" : L"; ") + LoadString(IDS_IMAGE_INK);
    return notice;
}

} // namespace

frmImage::frmImage(DocumentServices& main)
    : main_(main), document_(main.settings(), this), view_(document_, [this] {
          if (is_active()) show_status(); // the wheel also zooms the window under the mouse
      }) {}

void frmImage::create() {
    WNDCLASSEXW window_class{};
    window_class.lpszClassName = kClassName;
    window_class.hIcon = LoadIconW(GetModuleHandleW(nullptr), MAKEINTRESOURCEW(IDI_KELVANE));
    window_class.hCursor = LoadCursorW(nullptr, IDC_CROSS); // dragging selects
    register_class(window_class);
    expect_window();
    if (CreateMDIWindowW(kClassName, caption().c_str(), WS_HSCROLL | WS_VSCROLL, CW_USEDEFAULT,
                         CW_USEDEFAULT, CW_USEDEFAULT, CW_USEDEFAULT, main_.mdi_client(),
                         GetModuleHandleW(nullptr), 0) == nullptr)
        throw PlatformError(GetLastError());
}

bool frmImage::OpenFile(const std::wstring& file, bool bNew, OnFailure on_failure) {
    return open(file,
                {bNew ? L"" : file, L"", ImageDocument::SizeLimit::Reduce, !bNew, on_failure});
}

bool frmImage::OpenFile2(const std::wstring& file, const std::wstring& name) {
    return open(file, {name, name, ImageDocument::SizeLimit::Keep, false});
}

bool frmImage::open(const std::wstring& file, const OpenAs& how) {
    main_.SetStatus(LoadString(IDS_IMAGE_OPENING) + how.status_name + L"...", L"#", L"#");
    bool opened = false;
    try {
        opened = document_.load(file, how.limit);
    } catch (const std::exception& error) {
        const std::wstring file_name = how.name.empty() ? L"" : how.name + L": ";
        if (how.on_failure == OnFailure::Tell)
            main_.show_error(IDS_IMAGE_OPEN_ERROR, file_name + cause_of(error));
    }
    if (opened) {
        if (how.name.empty())
            show_new();
        else
            show_as(how.name);
        main_.SetStatus(LoadString(IDS_IMAGE_OPENED) + document_.Filename() + L".", L"#", L"#");
        if (how.recent) main_.AddMRUFile(file, false);
    }
    main_.SetStatus(opened ? opening_notice(document_.opening()) : std::wstring(), L"#", L"#");
    return opened;
}

void frmImage::show_new() {
    show_as(LoadString(IDS_IMAGE_NAME) + std::to_wstring(main_.NewImageIndex()));
}

void frmImage::show_as(const std::wstring& name) {
    document_.Filename(name);
    create();
}

// Sizes the window to the picture with its scroll bars, at least as wide as the title needs, within
// the MDI client area.
void frmImage::fit_window() {
    if (IsZoomed(window()) || IsIconic(window())) return;
    RECT own{}, room{};
    GetWindowRect(window(), &own);
    MapWindowPoints(nullptr, main_.mdi_client(), reinterpret_cast<POINT*>(&own), 2);
    GetClientRect(main_.mdi_client(), &room);
    const SIZE view = view_.area();
    const LONG frame_width = own.right - own.left - view.cx;
    const LONG frame_height = own.bottom - own.top - view.cy;
    const SIZE whole = view_.size_with_bars(
        {room.right - own.left - frame_width, room.bottom - own.top - frame_height});
    const LONG width = std::max(whole.cx, title_width()) + frame_width;
    const LONG height = whole.cy + frame_height;
    SetWindowPos(window(), nullptr, 0, 0, std::min(width, room.right - own.left),
                 std::min(height, room.bottom - own.top),
                 SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
}

// Width of the window's title with its icon and three buttons, in pixels.
LONG frmImage::title_width() const {
    const win::Font font = win::caption_font(window());
    const win::WindowContext context(window());
    const win::Selected selected(context.get(), font.get());
    const std::wstring text = caption();
    SIZE size{};
    GetTextExtentPoint32W(context.get(), text.c_str(), static_cast<int>(text.size()), &size);
    constexpr int kGaps = 12; // at 96 dots per inch: around the icon and the text
    return size.cx + win::system_metric(window(), SM_CXSMICON) +
           3 * win::system_metric(window(), SM_CXSIZE) + win::scaled(window(), kGaps);
}

std::wstring frmImage::caption() const {
    return LoadString(IDS_IMAGE_CAPTION) + document_.Filename();
}

// MDI does not update the caption in its list of windows by itself.
void frmImage::loadLanguage() {
    SetWindowTextW(window(), caption().c_str());
    SendMessageW(main_.mdi_client(), WM_MDIREFRESHMENU, 0, 0);
}

void frmImage::show_status() const {
    main_.SetStatus(L"#", document_.FileTitle(),
                    std::to_wstring(document_.ImageWidth()) + L" x " +
                        std::to_wstring(document_.ImageHeight()));
    main_.SetZoom(std::to_wstring(view_.zoom()) + L" %");
}

bool frmImage::SaveFile() {
    try {
        win::FileQuestion question;
        question.filter = LoadString(IDS_IMAGE_SAVE_FILTER);
        question.proposal = document_.proposed_name();
        question.extension = L"BMP";
        if (const auto file = main_.ask_save_file(question)) {
            document_.save(*file);
            main_.AddMRUFile(*file, false);
            loadLanguage();
            show_status(); // the title has changed
            main_.SetStatus(L"", L"#", L"#");
        }
    } catch (const std::exception& error) {
        main_.show_error(IDS_IMAGE_SAVE_ERROR, error_text(error));
    }
    return false;
}

bool frmImage::QuerySave() {
    bring_to_front();
    switch (win::message_box(main_.frame(), document_.save_question(), kApplicationTitle,
                             MB_YESNOCANCEL | MB_ICONQUESTION)) {
    case IDYES:
        return SaveFile();
    case IDNO:
        return true;
    default:
        return false;
    }
}

// So that the user sees which picture the question is about.
void frmImage::bring_to_front() {
    if (IsIconic(main_.frame())) ShowWindow(main_.frame(), SW_RESTORE);
    activate();
}

bool frmImage::is_active() const {
    const LRESULT active = SendMessageW(main_.mdi_client(), WM_MDIGETACTIVE, 0, 0);
    return reinterpret_cast<HWND>(active) == window();
}

void frmImage::activate() const {
    SendMessageW(main_.mdi_client(), IsIconic(window()) ? WM_MDIRESTORE : WM_MDIACTIVATE,
                 reinterpret_cast<WPARAM>(window()), 0);
}

void frmImage::CopyImage() {
    const auto selection = view_.selection();
    const cDIBSection part = selection ? document_.part(*selection) : cDIBSection();
    if (!(selection ? part : document_.picture()).CopyToClipboard(false, main_.frame()))
        main_.show_error(IDS_IMAGE_COPY_ERROR, {});
}

void frmImage::Render() {
    view_.picture_changed();
}

void frmImage::InitProgress(long lMax) {
    main_.ProgressMax(lMax);
    main_.ShowProgress(true);
}

void frmImage::Progress(long lPosition) {
    main_.ProgressValue(lPosition);
}

void frmImage::Complete(double lTimeMs) {
    main_.ShowProgress(false);
    main_.operation_complete(*this, clock_text(lTimeMs));
}

LRESULT frmImage::default_procedure(UINT message, WPARAM w, LPARAM l) {
    return DefMDIChildProcW(window(), message, w, l);
}

LRESULT frmImage::on_message(UINT message, WPARAM w, LPARAM l) {
    if (message == WM_NCCREATE) view_.attach(window());
    if (const auto answer = view_.handle(message, w, l)) return *answer;
    switch (message) {
    case WM_CREATE:
        fit_window(); // before the window is shown
        break;
    case WM_CONTEXTMENU:
        if (show_menu(l)) return 0;
        break;
    case WM_MDIACTIVATE:
        if (reinterpret_cast<HWND>(l) == window()) show_status();
        if (reinterpret_cast<HWND>(w) == window()) main_.form_deactivated(*this);
        break;
    case WM_CLOSE:
        if (main_.refuse_while_busy() || (document_.Dirty() && !QuerySave())) return 0;
        break;
    default:
        break;
    }
    return default_procedure(message, w, l);
}

// False when the right button was released on the frame. A menu key names no place. The menu's
// commands concern the active window, which a right click does not change by itself.
bool frmImage::show_menu(LPARAM place) {
    RECT client{};
    GetClientRect(window(), &client);
    POINT point{GET_X_LPARAM(place), GET_Y_LPARAM(place)};
    ScreenToClient(window(), &point);
    if (place == -1)
        point = {client.right / 2, client.bottom / 2};
    else if (!PtInRect(&client, point))
        return false;
    activate();
    show_picture_menu(view_, window(), main_.frame(), point);
    return true;
}

} // namespace kelvane
