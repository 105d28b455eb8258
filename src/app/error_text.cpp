#include "app/error_text.h"

#include "engine/engine_error.h"
#include "settings/string_table.h"
#include "win/platform_error.h"

#include <windows.h>

#include <new>

namespace kelvane {
namespace {

std::wstring widened(const std::string& utf8) {
    const int length = static_cast<int>(utf8.size());
    std::wstring text(utf8.size(), L'\0'); // never longer than in UTF-8
    const int used = MultiByteToWideChar(CP_UTF8, 0, utf8.data(), length, text.data(), length);
    text.resize(static_cast<std::size_t>(used));
    return text;
}

} // namespace

std::wstring error_text(const std::exception& error) {
    if (const auto* own = dynamic_cast<const TextError*>(&error)) return own->text();
    if (const auto* platform = dynamic_cast<const PlatformError*>(&error)) return platform->text();
    if (const auto* engine = dynamic_cast<const EngineError*>(&error))
        return LoadString(engine->string_id() - kEnglishOffset);
    if (dynamic_cast<const std::bad_alloc*>(&error) != nullptr)
        return platform_error_text(ERROR_NOT_ENOUGH_MEMORY);
    return widened(error.what());
}

} // namespace kelvane
