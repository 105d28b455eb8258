// Base of every window that the program makes itself.
#pragma once

#include <windows.h>

#include <string>

namespace kelvane::win {

/// A window bound to an object: from WM_NCCREATE on its messages go to `on_message`, until
/// WM_NCDESTROY has been handled; then the object is unbound and `destroyed` called, in which it
/// may delete itself. The destructor destroys a window that is still there.
///
/// No exception may leave `on_message`: it would have to pass through the system's calls.
class Window {
  public:
    Window() = default;
    virtual ~Window();
    Window(const Window&) = delete;
    Window& operator=(const Window&) = delete;

    HWND window() const { return window_; }

  protected:
    /// Registers the class once per process; `name`, icons, cursor and background come filled in,
    /// procedure and instance are set here.
    static void register_class(WNDCLASSEXW window_class);
    /// Binds the next window that this thread creates to this object; to be called right before the
    /// creation. An MDI child's creation has no parameter that could carry the object.
    void expect_window() { expecting_ = this; }

    virtual LRESULT on_message(UINT message, WPARAM w, LPARAM l) {
        return default_procedure(message, w, l);
    }
    /// For messages that are not handled; frames and MDI children override it.
    virtual LRESULT default_procedure(UINT message, WPARAM w, LPARAM l) {
        return DefWindowProcW(window_, message, w, l);
    }
    /// The window is destroyed. The base does not access the object after this call.
    virtual void destroyed() {}

  private:
    static LRESULT CALLBACK procedure(HWND window, UINT message, WPARAM w, LPARAM l) noexcept;
    static thread_local Window* expecting_;
    HWND window_ = nullptr;
};

} // namespace kelvane::win
