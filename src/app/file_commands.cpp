#include "app/file_commands.h"

#include "app/converter_opening.h"
#include "app/form_operations.h"
#include "app/image_window.h"
#include "app/scanner.h"
#include "dialogs/frmExport.h"
#include "dialogs/frmMsg3.h"
#include "settings/temporary_file.h"
#include "texts/error_text.h"
#include "texts/export_text.h"
#include "texts/string_table.h"
#include "win/platform_error.h"

#include "ids.h"

#include <filesystem>

namespace kelvane::commands {
namespace {

// "logo.scr" for the picture "logo.png".
std::wstring script_name(const ImageDocument& document) {
    const std::wstring title = document.FileTitle();
    return title.substr(0, title.rfind(L'.')) + L".scr";
}

// "logo.scr: 22 polygons on 21 tPlace"
std::wstring written_text(const std::wstring& file, const ExportReport& report,
                          const ExportOptions& options) {
    return LoadString(IDS_EXPORT_WRITTEN, {std::filesystem::path(file).filename().wstring(),
                                           objects_text(report.shapes + report.bridges, options),
                                           layer_text(options.lay)});
}

void write_script(MainServices& main, frmImage& form, const std::wstring& file,
                  const frmExport& dialog) {
    const ExportOptions options = dialog.options();
    ExportReport report;
    bool written = false;
    main.SetStatus(L"", L"#", L"#");
    try {
        const Busy busy = main.busy();
        report = form.document().Vectorize(file, options, dialog.mirrored());
        written = true;
    } catch (const std::exception& error) {
        main.show_error(IDS_EXPORT_ERROR, error_text(error));
    }
    main.ShowProgress(false);
    if (report.RangeOVL) {
        frmMsg3 warning;
        warning.show_modal(main.frame());
        if (warning.DeleteScript) written = !DeleteFileW(file.c_str());
    }
    if (written) main.add_to_completion([=] { return written_text(file, report, options); });
    form.Render();
}

} // namespace

void open(MainServices& main) {
    win::FileQuestion question;
    question.filter = LoadString(IDS_FILTER_PICTURES);
    for (const std::wstring& file : main.ask_open_files(question))
        main.open_file(file);
}

void open_by_imagemagick(MainServices& main) {
    main.converter().ask_and_open();
}

void save(MainServices& /*main*/, frmImage& form) {
    form.SaveFile();
}

void export_script(MainServices& main, frmImage& form) {
    frmExport dialog(main.settings(), form.document().picture());
    dialog.show_modal(main.frame());
    if (dialog.Cancelled) return;
    win::FileQuestion question;
    question.filter = LoadString(IDS_FILTER_SCRIPTS);
    question.title = LoadString(IDS_EXPORT_FILE_TITLE);
    question.proposal = script_name(form.document());
    question.folder = std::filesystem::path(form.document().Filename()).parent_path().wstring();
    question.extension = L"SCR";
    if (const auto file = main.ask_save_file(question)) write_script(main, form, *file, dialog);
}

void select_source(MainServices& main) {
    const Busy busy = main.busy();
    Scanner().TWAIN_SelectImageSource(main.frame());
}

void acquire(MainServices& main) {
    const TemporaryFile file;
    try {
        const Busy busy = main.busy();
        if (!Scanner().TWAIN_AcquireToFilename(main.frame(), file.path())) return;
    } catch (const PlatformError& error) {
        main.show_error(IDS_SCAN_ERROR, error_text(error));
        return;
    }
    open_temporary(main, file.path());
}

void close(MainServices& /*main*/, frmImage& form) {
    SendMessageW(form.window(), WM_CLOSE, 0, 0); // asks whether to save
}

void exit(MainServices& main) {
    SendMessageW(main.frame(), WM_CLOSE, 0, 0);
}

} // namespace kelvane::commands
