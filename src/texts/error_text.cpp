#include "texts/error_text.h"

#include "base/system_message.h"
#include "base/text.h"
#include "engine/engine_error.h"
#include "texts/file_error_text.h"
#include "texts/string_table.h"
#include "win/platform_error.h"

#include <windows.h>

#include <new>

namespace kelvane {
namespace {

std::wstring platform_error_text(unsigned long code) {
    const std::wstring text = system_message(code);
    return text.empty() ? L"Error " + std::to_wstring(code) : text;
}

} // namespace

std::wstring error_text(const std::exception& error) {
    if (const auto* own = dynamic_cast<const TextError*>(&error)) return own->text();
    if (const auto* platform = dynamic_cast<const PlatformError*>(&error))
        return platform_error_text(platform->code());
    if (const auto* file = dynamic_cast<const FileError*>(&error)) return file_error_text(*file);
    if (const auto* engine = dynamic_cast<const EngineError*>(&error))
        return LoadString(engine->string_id() - kEnglishOffset);
    if (dynamic_cast<const std::bad_alloc*>(&error) != nullptr)
        return platform_error_text(ERROR_NOT_ENOUGH_MEMORY);
    return wide_text(error.what());
}

} // namespace kelvane
