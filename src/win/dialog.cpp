#include "win/dialog.h"

#include "win/dialog_template.h"
#include "win/platform_error.h"

#include <algorithm>
#include <utility>

namespace kelvane::win {
namespace {

constexpr INT_PTR kConfirmed = 1;
constexpr INT_PTR kCancelled = 2;

// Posted, so that it arrives when the system has finished with WM_DPICHANGED.
constexpr UINT kArrangedAnew = WM_APP + 100;

DialogHelp dialog_help;

} // namespace

void set_dialog_help(DialogHelp help) {
    dialog_help = std::move(help);
}

Dialog::~Dialog() {
    if (window_ != nullptr) end(false);
}

bool Dialog::show_modal(HWND owner) {
    modal_ = true;
    Cancelled = true;
    failure_ = nullptr;
    const DialogTemplate resource(template_id_);
    const INT_PTR result = DialogBoxIndirectParamW(GetModuleHandleW(nullptr), resource.get(), owner,
                                                   procedure, reinterpret_cast<LPARAM>(this));
    const DWORD error = GetLastError();
    if (failure_) std::rethrow_exception(std::exchange(failure_, nullptr));
    if (result != kConfirmed && result != kCancelled) throw PlatformError(error);
    Cancelled = result != kConfirmed;
    return !Cancelled;
}

void Dialog::show_modeless(HWND owner) {
    modal_ = false;
    failure_ = nullptr;
    const DialogTemplate resource(template_id_);
    if (CreateDialogIndirectParamW(GetModuleHandleW(nullptr), resource.get(), owner, procedure,
                                   reinterpret_cast<LPARAM>(this)) == nullptr)
        throw PlatformError(GetLastError());
    if (failure_) {
        close();
        std::rethrow_exception(std::exchange(failure_, nullptr));
    }
    ShowWindow(window_, SW_SHOW);
    UpdateWindow(window_);
}

void Dialog::close() {
    if (confirming_)
        cancel_requested_ = true;
    else if (window_ != nullptr)
        end(false);
}

void Dialog::end(bool confirmed) {
    if (modal_)
        EndDialog(window_, confirmed ? kConfirmed : kCancelled);
    else
        DestroyWindow(window_);
}

INT_PTR CALLBACK Dialog::procedure(HWND window, UINT message, WPARAM w, LPARAM l) {
    auto* dialog = reinterpret_cast<Dialog*>(GetWindowLongPtrW(window, DWLP_USER));
    if (message == WM_INITDIALOG) {
        dialog = reinterpret_cast<Dialog*>(l);
        dialog->bind(window);
    }
    if (dialog == nullptr || dialog->window_ != window) return FALSE;
    try {
        return dialog->dispatch(message, w, l);
    } catch (...) {
        dialog->failure_ = std::current_exception();
        if (dialog->modal_) EndDialog(window, kCancelled);
        return TRUE;
    }
}

INT_PTR Dialog::dispatch(UINT message, WPARAM w, LPARAM l) {
    switch (message) {
    case WM_INITDIALOG:
        load();
        loaded_ = true;
        centre_on_owner(window_);
        return TRUE;
    case WM_COMMAND:
        command(LOWORD(w), HIWORD(w));
        return TRUE;
    case WM_DPICHANGED:
        PostMessageW(window_, kArrangedAnew, 0, 0);
        return on_message(message, w, l);
    case kArrangedAnew:
        density_changed();
        InvalidateRect(window_, nullptr, TRUE);
        return TRUE;
    case WM_NCDESTROY:
        unbind();
        return FALSE;
    case WM_HELP:
        if (dialog_help) dialog_help(template_id_);
        return TRUE;
    default:
        return on_message(message, w, l);
    }
}

void Dialog::bind(HWND window) {
    window_ = window;
    loaded_ = false;
    confirming_ = false;
    cancel_requested_ = false;
    SetWindowLongPtrW(window, DWLP_USER, reinterpret_cast<LONG_PTR>(this));
}

void Dialog::unbind() {
    SetWindowLongPtrW(window_, DWLP_USER, 0);
    window_ = nullptr;
    loaded_ = false;
}

void Dialog::command(int control, int notification) {
    if (!loaded_) return;
    if (confirming_) {
        if (control == IDCANCEL) cancel_requested_ = true;
    } else if (control == IDOK) {
        confirming_ = true;
        const bool confirmed = confirm(); // an exception closes the dialog
        confirming_ = false;
        if (confirmed || cancel_requested_) end(confirmed && !cancel_requested_);
    } else if (control == IDCANCEL) {
        end(false);
    } else {
        on_command(control, notification);
    }
}

void Dialog::set_text(int id, const std::wstring& text) const {
    SetDlgItemTextW(window_, id, text.c_str());
}

std::wstring Dialog::text(int id) const {
    return window_text(control(id));
}

void Dialog::check(int id, bool on) const {
    CheckDlgButton(window_, id, on ? BST_CHECKED : BST_UNCHECKED);
}

void Dialog::check_radio(int first, int last, int id) const {
    CheckRadioButton(window_, first, last, id);
}

std::wstring window_text(HWND window) {
    std::wstring text(static_cast<std::size_t>(GetWindowTextLengthW(window)) + 1, L'\0');
    const int length = GetWindowTextW(window, text.data(), static_cast<int>(text.size()));
    text.resize(static_cast<std::size_t>(std::max(length, 0)));
    return text;
}

void centre_on_owner(HWND window) {
    const HWND owner = GetWindow(window, GW_OWNER);
    MONITORINFO monitor{};
    monitor.cbSize = sizeof monitor;
    GetMonitorInfoW(MonitorFromWindow(owner ? owner : window, MONITOR_DEFAULTTOPRIMARY), &monitor);
    const RECT& work = monitor.rcWork;
    RECT around = work;
    if (owner != nullptr && IsWindowVisible(owner) && !IsIconic(owner))
        GetWindowRect(owner, &around);
    RECT own{};
    GetWindowRect(window, &own);
    const LONG width = own.right - own.left;
    const LONG height = own.bottom - own.top;
    const LONG x = (around.left + around.right - width) / 2;
    const LONG y = (around.top + around.bottom - height) / 2;
    SetWindowPos(window, nullptr, std::max(work.left, std::min(x, work.right - width)),
                 std::max(work.top, std::min(y, work.bottom - height)), 0, 0,
                 SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
}

} // namespace kelvane::win
