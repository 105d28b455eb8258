#include "app/converter_opening.h"

#include "app/image_window.h"
#include "dialogs/frmConfigMagick.h"
#include "dialogs/frmMsg.h"
#include "dialogs/frmMsg2.h"
#include "dialogs/frmMultiPic.h"
#include "settings/catalogue.h"
#include "texts/error_text.h"
#include "texts/string_table.h"
#include "win/wait_cursor.h"

#include "ids.h"

#include <algorithm>
#include <filesystem>

namespace kelvane {
namespace {

bool is_file(const std::wstring& path) {
    std::error_code ignored;
    return std::filesystem::is_regular_file(path, ignored);
}

} // namespace

ConverterOpening::ConverterOpening(MainServices& main, StatusBar& status_bar)
    : main_(main), status_bar_(status_bar), converter_(main.settings()) {}

void ConverterOpening::ask_and_open() {
    report_failures([this] {
        const auto formats = require_formats();
        if (!formats) return;
        if (const auto file = ask_file(*formats)) convert_and_open(*file, *formats);
    });
}

void ConverterOpening::OpenByConverter(const std::wstring& file) {
    if (!is_file(file)) return main_.show_error(IDS_SHELL_FILE_NOT_FOUND, L": " + file);
    report_failures([&] {
        if (const auto formats = require_formats()) convert_and_open(file, *formats);
    });
}

void ConverterOpening::report_failures(const std::function<void()>& opening) {
    std::wstring status;
    try {
        opening();
    } catch (const ConverterCancelled&) {
        status = LoadString(IDS_SHELL_CANCELLED);
    } catch (const std::exception& error) {
        main_.show_error(IDS_IMAGE_OPEN_ERROR, error_text(error));
    }
    main_.ShowProgress(false);
    main_.SetStatus(status, L"#", L"#");
}

std::optional<ConverterOpening::Formats> ConverterOpening::require_formats() {
    return require_converter() ? read_formats() : std::nullopt;
}

// Asks for the places of the programs until they are right or the user gives up.
bool ConverterOpening::require_converter() {
    while (!converter_.available() && !detect_converter()) {
        frmConfigMagick dialog(main_.settings(), open_in_shell());
        dialog.IsImageMagick = [this](const std::wstring& program, const KeepWaiting& wanted) {
            bool stopped = false;
            const bool answer = is_imagemagick(program, [&] {
                stopped = !main_.let_windows_paint() || !wanted();
                return !stopped;
            });
            return stopped ? std::nullopt : std::optional(answer);
        };
        dialog.show_modal(main_.frame());
        if (dialog.Cancelled) return false;
    }
    return true;
}

bool ConverterOpening::detect_converter() {
    const Busy busy = main_.busy();
    const win::WaitCursor cursor;
    return converter_.DetectConverter(until_escape());
}

// Nothing, with a message, when the converter's answer is no list of formats.
std::optional<ConverterOpening::Formats> ConverterOpening::read_formats() {
    std::wstring output;
    {
        const Busy busy = main_.busy();
        const win::WaitCursor cursor;
        output = converter_.format_list(until_escape());
    }
    if (output.size() >= kShortestFormatList) return parse_format_list(output);
    frmMsg(LoadString(IDS_MAGICK_NO_FORMATS), output, open_in_shell()).show_modal(main_.frame());
    return std::nullopt;
}

std::optional<std::wstring> ConverterOpening::ask_file(const Formats& formats) {
    win::FileQuestion question;
    question.filter = open_filter(formats, LoadString(IDS_FILTER_ALL_FILES));
    // "All files", the last pair: there are too many formats to search the list for one.
    question.chosen_filter =
        1 + static_cast<unsigned>(std::ranges::count(formats, true, &PictureFormat::readable));
    return main_.ask_open_file(question);
}

void ConverterOpening::warn_of_several_images(const std::wstring& file, const Formats& formats) {
    const std::wstring extension = std::filesystem::path(file).extension().wstring();
    if (!can_hold_several(formats, extension)) return;
    if (read_setting(main_.settings(), settings::kHideSeveralImagesWarning) != 0) return;
    frmMsg2(main_.settings()).show_modal(main_.frame());
}

void ConverterOpening::convert_and_open(const std::wstring& file, const Formats& formats) {
    warn_of_several_images(file, formats);
    try {
        open_image(*converted(file), file);
    } catch (const ConversionFailed& failure) {
        frmMsg(LoadString(IDS_IMAGE_OPEN_ERROR) + file + L"\n\n" +
                   LoadString(IDS_MAGICK_NO_PICTURE),
               failure.report(), open_in_shell())
            .show_modal(main_.frame());
    }
}

std::unique_ptr<Conversion> ConverterOpening::converted(const std::wstring& file) {
    const Busy busy = main_.busy();
    const win::WaitCursor cursor;
    const std::wstring title = std::filesystem::path(file).filename().wstring();
    main_.SetStatus(LoadString(IDS_MAGICK_CONVERTING, {title}), L"#", L"#");
    auto conversion = std::make_unique<Conversion>(converter_, file, until_escape());
    if (const auto count = conversion->images().size(); count > 1) {
        main_.ProgressMax(static_cast<long>(count));
        main_.ShowProgress(true);
        // Not by `MainServices::ProgressValue`, which would drop an Esc that waits.
        conversion->make_previews([this](long done) { status_bar_.ProgressValue(done); });
        main_.ShowProgress(false);
    }
    main_.SetStatus(L"", L"#", L"#");
    return conversion;
}

// The position of the only image, or of the one that the user chooses; nothing when cancelled.
std::optional<std::size_t> ConverterOpening::choose_image(const Conversion& conversion) {
    if (conversion.images().size() == 1) return 0;
    std::vector<SubImage> previews;
    for (const ConvertedImage& image : conversion.images())
        previews.push_back({image.preview, image.width, image.height});
    frmMultiPic dialog(std::move(previews));
    dialog.show_modal(main_.frame());
    if (dialog.Cancelled) return std::nullopt;
    return static_cast<std::size_t>(dialog.Index);
}

void ConverterOpening::open_image(const Conversion& conversion, const std::wstring& name) {
    const auto chosen = choose_image(conversion);
    if (!chosen) return;
    const std::wstring picture = conversion.images().at(*chosen).picture.wstring();
    if (main_.new_form([&](frmImage& form) { return form.OpenFile2(picture, name); }))
        main_.AddMRUFile(name, true);
}

KeepWaiting ConverterOpening::until_escape() {
    return [this] { return main_.let_windows_paint(); };
}

OpenInShell ConverterOpening::open_in_shell() {
    return [this](const std::wstring& page) { main_.open_in_shell(page); };
}

} // namespace kelvane
