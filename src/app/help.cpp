#include "app/help.h"

#include "settings/folders.h"
#include "texts/error_text.h"
#include "texts/string_table.h"
#include "win/platform_error.h"

#include "ids.h"

#include <filesystem>

namespace kelvane {
namespace {

// From the platform's htmlhelp.h: including it would mean linking its library.
constexpr UINT kHelpContext = 0x000F;
constexpr UINT kCloseAll = 0x0012;
using HtmlHelp = HWND(WINAPI*)(HWND, const wchar_t*, UINT, DWORD_PTR);

HtmlHelp html_help(const win::Module& library) {
    return reinterpret_cast<HtmlHelp>(
        reinterpret_cast<void*>(GetProcAddress(library.get(), "HtmlHelpW")));
}

} // namespace

Help::~Help() {
    if (library_) html_help(library_)(nullptr, nullptr, kCloseAll, 0);
}

void Help::show(HWND owner, int page) {
    std::error_code ignored;
    if (!std::filesystem::is_regular_file(file_, ignored))
        throw TextError(LoadString(IDS_HELP_MISSING) + file_);
    if (!library_) {
        win::Module library(LoadLibraryW((system_folder() + L"\\hhctrl.ocx").c_str()));
        if (!library || html_help(library) == nullptr) throw PlatformError(ERROR_MOD_NOT_FOUND);
        library_ = std::move(library);
    }
    const auto number = static_cast<DWORD_PTR>(page + language_offset());
    if (html_help(library_)(owner, file_.c_str(), kHelpContext, number) == nullptr)
        throw PlatformError(ERROR_FILE_INVALID);
}

} // namespace kelvane
