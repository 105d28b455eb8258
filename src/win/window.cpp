#include "win/window.h"

#include <utility>

namespace kelvane::win {

thread_local Window* Window::expecting_ = nullptr;

Window::~Window() {
    if (window_ == nullptr) return;
    SetWindowLongPtrW(window_, GWLP_USERDATA, 0); // the derived part is destroyed already
    DestroyWindow(window_);
}

void Window::register_class(WNDCLASSEXW window_class) {
    WNDCLASSEXW registered{};
    registered.cbSize = sizeof registered;
    window_class.hInstance = GetModuleHandleW(nullptr);
    if (GetClassInfoExW(window_class.hInstance, window_class.lpszClassName, &registered)) return;
    window_class.cbSize = sizeof window_class;
    window_class.lpfnWndProc = procedure;
    RegisterClassExW(&window_class);
}

LRESULT CALLBACK Window::procedure(HWND window, UINT message, WPARAM w, LPARAM l) noexcept {
    auto* self = reinterpret_cast<Window*>(GetWindowLongPtrW(window, GWLP_USERDATA));
    if (message == WM_NCCREATE) {
        self = std::exchange(expecting_, nullptr);
        self->window_ = window;
        SetWindowLongPtrW(window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(self));
    }
    if (self == nullptr) return DefWindowProcW(window, message, w, l);
    const LRESULT result = self->on_message(message, w, l);
    if (message == WM_NCDESTROY) {
        SetWindowLongPtrW(window, GWLP_USERDATA, 0);
        self->window_ = nullptr;
        self->destroyed();
    }
    return result;
}

} // namespace kelvane::win
