#include "win/dpi.h"

namespace kelvane::win {
namespace {

// Functions that older systems lack.
template <class Function> Function user32(const char* name) {
    return reinterpret_cast<Function>(
        reinterpret_cast<void*>(GetProcAddress(GetModuleHandleW(L"user32"), name)));
}

Font system_font(HWND window, LOGFONTW NONCLIENTMETRICSW::*kind) {
    static const auto for_dpi =
        user32<BOOL(WINAPI*)(UINT, UINT, void*, UINT, UINT)>("SystemParametersInfoForDpi");
    NONCLIENTMETRICSW metrics{};
    metrics.cbSize = sizeof metrics;
    const auto dpi = static_cast<UINT>(dots_per_inch(window));
    if (for_dpi == nullptr || !for_dpi(SPI_GETNONCLIENTMETRICS, sizeof metrics, &metrics, 0, dpi))
        SystemParametersInfoW(SPI_GETNONCLIENTMETRICS, sizeof metrics, &metrics, 0);
    return Font(CreateFontIndirectW(&(metrics.*kind)));
}

} // namespace

int dots_per_inch(HWND window) {
    static const auto of_window = user32<UINT(WINAPI*)(HWND)>("GetDpiForWindow");
    if (of_window != nullptr)
        if (const UINT dpi = of_window(window); dpi != 0) return static_cast<int>(dpi);
    const WindowContext screen(nullptr);
    return GetDeviceCaps(screen.get(), LOGPIXELSY);
}

int scaled(HWND window, int length) {
    return MulDiv(length, dots_per_inch(window), USER_DEFAULT_SCREEN_DPI);
}

int system_metric(HWND window, int index) {
    static const auto for_dpi = user32<int(WINAPI*)(int, UINT)>("GetSystemMetricsForDpi");
    return for_dpi != nullptr ? for_dpi(index, static_cast<UINT>(dots_per_inch(window)))
                              : GetSystemMetrics(index);
}

Font message_font(HWND window) {
    return system_font(window, &NONCLIENTMETRICSW::lfStatusFont);
}

Font caption_font(HWND window) {
    return system_font(window, &NONCLIENTMETRICSW::lfCaptionFont);
}

} // namespace kelvane::win
