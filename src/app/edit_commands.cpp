#include "app/edit_commands.h"

#include "app/form_operations.h"
#include "app/image_window.h"
#include "app/picture_clipboard.h"
#include "base/safe_file.h"
#include "settings/temporary_file.h"
#include "texts/error_text.h"

#include "ids.h"

#include <filesystem>

namespace kelvane::commands {
namespace {

void write_bytes(const std::wstring& file, const std::vector<std::uint8_t>& bytes) {
    SafeFile out{std::filesystem::path(file)};
    out.write({reinterpret_cast<const char*>(bytes.data()), bytes.size()});
    out.commit();
}

} // namespace

void undo(ImageDocument& document) {
    document.Undo();
}

void copy(MainServices& /*main*/, frmImage& form) {
    form.CopyImage();
}

void paste(MainServices& main) {
    try {
        open_from_clipboard(main.frame(), [&](const std::vector<std::uint8_t>& bytes, bool last) {
            const TemporaryFile file;
            write_bytes(file.path(), bytes);
            return open_temporary(main, file.path(), last ? OnFailure::Tell : OnFailure::Ignore);
        });
    } catch (const std::exception& error) {
        main.show_error(IDS_PASTE_ERROR, error_text(error));
    }
}

} // namespace kelvane::commands
