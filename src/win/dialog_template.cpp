#include "win/dialog_template.h"

#include "win/gdi.h"
#include "win/platform_error.h"

#include <cstdlib>
#include <cwchar>
#include <span>
#include <string_view>

namespace kelvane::win {
namespace {

// DLGTEMPLATEEX in 16-bit words: the fixed part, then menu, window class and title, then point
// size, weight, italic with character set, and the typeface. The controls start at an even word.
constexpr std::size_t kFixedWords = 13;
constexpr std::size_t kFontWords = 3;
constexpr WORD kOrdinal = 0xFFFF; // an ordinal follows, in place of a name

std::span<const WORD> resource_words(int id) {
    const HRSRC resource = FindResourceW(nullptr, MAKEINTRESOURCEW(id), RT_DIALOG);
    const HGLOBAL loaded = resource == nullptr ? nullptr : LoadResource(nullptr, resource);
    if (loaded == nullptr) throw PlatformError(GetLastError());
    return {static_cast<const WORD*>(LockResource(loaded)),
            SizeofResource(nullptr, resource) / sizeof(WORD)};
}

std::size_t after_text(std::span<const WORD> words, std::size_t at) {
    while (words[at] != 0)
        ++at;
    return at + 1;
}

std::size_t after_name(std::span<const WORD> words, std::size_t at) {
    return words[at] == kOrdinal ? at + 2 : after_text(words, at);
}

std::size_t even(std::size_t words) {
    return words + words % 2;
}

// Its height is for the system's density, not for that of a monitor.
LOGFONTW message_font_description() {
    NONCLIENTMETRICSW metrics{};
    metrics.cbSize = sizeof metrics;
    SystemParametersInfoW(SPI_GETNONCLIENTMETRICS, sizeof metrics, &metrics, 0);
    return metrics.lfMessageFont;
}

WORD points_of(const LOGFONTW& font) {
    const WindowContext screen(nullptr);
    return static_cast<WORD>(
        MulDiv(std::abs(font.lfHeight), 72, GetDeviceCaps(screen.get(), LOGPIXELSY)));
}

} // namespace

DialogTemplate::DialogTemplate(int id) {
    const std::span<const WORD> source = resource_words(id);
    const std::size_t title = after_name(source, after_name(source, kFixedWords));
    const std::size_t font = after_text(source, title);
    const std::size_t controls = even(after_text(source, font + kFontWords));

    const LOGFONTW message = message_font_description();
    const std::wstring_view typeface = message.lfFaceName;
    words_.assign(source.begin(), source.begin() + static_cast<std::ptrdiff_t>(font));
    words_.push_back(points_of(message));
    words_.push_back(static_cast<WORD>(message.lfWeight));
    words_.push_back(static_cast<WORD>((message.lfItalic != 0 ? 1 : 0) | message.lfCharSet << 8));
    words_.insert(words_.end(), typeface.begin(), typeface.end());
    words_.push_back(0);
    words_.resize(even(words_.size()));
    words_.insert(words_.end(), source.begin() + static_cast<std::ptrdiff_t>(controls),
                  source.end());
}

} // namespace kelvane::win
