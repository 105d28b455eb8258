// Opening by the converter: files of formats that only ImageMagick reads.
//
// The two programs are looked for when a file is first opened this way, not when the program
// starts: that would let everybody wait for what few need. While they run, the windows are painted,
// other commands are refused, and Esc ends them.
#include "app/main_window.h"

#include "app/busy.h"
#include "convert/conversion.h"
#include "dialogs/frmConfigMagick.h"
#include "dialogs/frmMsg.h"
#include "dialogs/frmMsg2.h"
#include "dialogs/frmMultiPic.h"
#include "settings/catalogue.h"
#include "settings/folders.h"
#include "texts/error_text.h"
#include "texts/string_table.h"

#include "ids.h"

#include <algorithm>
#include <filesystem>

namespace kelvane {
namespace {

/// The wait cursor at once; while the program is busy it stays when the mouse moves.
class WaitCursor {
  public:
    WaitCursor() : before_(SetCursor(LoadCursorW(nullptr, IDC_WAIT))) {}
    ~WaitCursor() { SetCursor(before_); }
    WaitCursor(const WaitCursor&) = delete;
    WaitCursor& operator=(const WaitCursor&) = delete;

  private:
    HCURSOR before_;
};

bool is_file(const std::wstring& path) {
    std::error_code ignored;
    return std::filesystem::is_regular_file(path, ignored);
}

} // namespace

void mfrmMain::open_by_imagemagick() {
    report_failures([this] {
        if (!require_converter()) return;
        const auto formats = converter_formats();
        if (!formats) return;
        win::FileQuestion question;
        question.filter = open_filter(*formats, LoadString(IDS_FILTER_ALL_FILES));
        // All files: the formats are too many to look for one.
        question.chosen_filter =
            1 + static_cast<unsigned>(std::ranges::count(*formats, true, &PictureFormat::readable));
        question.folder = open_folder_;
        const auto file = win::ask_open_file(window(), question);
        if (!file) return;
        open_folder_ = ExistingFolderOf(*file);
        write_setting(settings_, settings::kOpenFolder, open_folder_);
        warn_of_several_images(*file, *formats);
        convert_and_open(*file);
    });
}

void mfrmMain::OpenByConverter(const std::wstring& file) {
    if (!is_file(file)) return show_error(IDS_SHELL_FILE_NOT_FOUND, L": " + file);
    report_failures([&] {
        if (!require_converter()) return;
        const auto formats = converter_formats();
        if (!formats) return;
        warn_of_several_images(file, *formats);
        convert_and_open(file);
    });
}

void mfrmMain::report_failures(const std::function<void()>& opening) {
    std::wstring status;
    try {
        opening();
    } catch (const ConverterCancelled&) {
        status = LoadString(IDS_SHELL_CANCELLED);
    } catch (const std::exception& error) {
        show_error(IDS_IMAGE_OPEN_ERROR, error_text(error));
    }
    ShowProgress(false);
    SetStatus(status, L"#", L"#");
}

// Asks for the places of the programs until they are right or the user gives up.
bool mfrmMain::require_converter() {
    while (!converter_.available() && !detect_converter()) {
        frmConfigMagick dialog(settings_, [this](const std::wstring& page) { ShellEx(page); });
        dialog.IsImageMagick = [this](const std::wstring& program, const KeepWaiting& wanted) {
            bool stopped = false;
            const bool answer = is_imagemagick(program, [&] {
                stopped = !let_windows_paint() || !wanted();
                return !stopped;
            });
            return stopped ? std::nullopt : std::optional(answer);
        };
        dialog.show_modal(window());
        if (dialog.Cancelled) return false;
    }
    return true;
}

bool mfrmMain::detect_converter() {
    const Busy busy(busy_);
    const WaitCursor cursor;
    return converter_.DetectConverter(until_escape());
}

// Nothing when the converter gave no answer, which the user then knows.
std::optional<std::vector<PictureFormat>> mfrmMain::converter_formats() {
    std::wstring output;
    {
        const Busy busy(busy_);
        const WaitCursor cursor;
        output = converter_.format_list(until_escape());
    }
    if (output.size() >= kShortestFormatList) return parse_format_list(output);
    frmMsg(LoadString(IDS_MAGICK_NO_FORMATS), output, [this](const std::wstring& page) {
        ShellEx(page);
    }).show_modal(window());
    return std::nullopt;
}

void mfrmMain::warn_of_several_images(const std::wstring& file,
                                      const std::vector<PictureFormat>& formats) {
    const std::wstring extension = std::filesystem::path(file).extension().wstring();
    if (!can_hold_several(formats, extension)) return;
    if (read_setting(settings_, settings::kHideSeveralImagesWarning) != 0) return;
    frmMsg2(settings_).show_modal(window());
}

void mfrmMain::convert_and_open(const std::wstring& file) {
    try {
        open_image(*converted(file), file);
    } catch (const ConversionFailed& failure) {
        frmMsg(LoadString(IDS_IMAGE_OPEN_ERROR) + file + L"\n\n" +
                   LoadString(IDS_MAGICK_NO_PICTURE),
               failure.report(), [this](const std::wstring& page) { ShellEx(page); })
            .show_modal(window());
    }
}

std::unique_ptr<Conversion> mfrmMain::converted(const std::wstring& file) {
    const Busy busy(busy_);
    const WaitCursor cursor;
    const std::wstring title = std::filesystem::path(file).filename().wstring();
    SetStatus(LoadString(IDS_MAGICK_CONVERTING, {title}), L"#", L"#");
    auto conversion = std::make_unique<Conversion>(converter_, file, until_escape());
    if (const auto count = conversion->images().size(); count > 1) {
        ProgressMax(static_cast<long>(count));
        status_bar_.ProgressValue(0);
        ShowProgress(true);
        conversion->make_previews([this](long done) { status_bar_.ProgressValue(done); });
        ShowProgress(false);
    }
    SetStatus(L"", L"#", L"#");
    return conversion;
}

// Opens the only image or the one that the user chooses, under the name of the user's file.
void mfrmMain::open_image(const Conversion& conversion, const std::wstring& name) {
    std::size_t chosen = 0;
    if (conversion.images().size() > 1) {
        std::vector<SubImage> previews;
        for (const ConvertedImage& image : conversion.images())
            previews.push_back({image.preview, image.width, image.height});
        frmMultiPic dialog(std::move(previews));
        dialog.show_modal(window());
        if (dialog.Cancelled) return;
        chosen = static_cast<std::size_t>(dialog.Index);
    }
    const std::wstring picture = conversion.images().at(chosen).picture.wstring();
    if (new_form([&](frmImage& form) { return form.OpenFile2(picture, name); }))
        AddMRUFile(name, true);
}

KeepWaiting mfrmMain::until_escape() {
    return [this] { return let_windows_paint(); };
}

} // namespace kelvane
