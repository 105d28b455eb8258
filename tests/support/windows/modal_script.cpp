#include "support/windows/modal_script.h"

#include "win/dialog.h"

#include <commctrl.h>
#include <commdlg.h>
#include <dlgs.h>
#include <gtest/gtest.h>

namespace kelvane::test {
namespace {

constexpr UINT kAnswer = WM_APP + 1;
constexpr int kMessageText = 0xFFFF; // control id of a message box's text

ModalScript* current = nullptr;

bool is_top_level_dialog(HWND window) {
    return class_of(window) == L"#32770" && (GetWindowLongW(window, GWL_STYLE) & WS_CHILD) == 0;
}

} // namespace

ModalScript::ModalScript() {
    EXPECT_EQ(current, nullptr) << "one script at a time";
    current = this;
    WNDCLASSW window_class{};
    window_class.lpfnWndProc = procedure;
    window_class.hInstance = GetModuleHandleW(nullptr);
    window_class.lpszClassName = L"KelvaneModalScript";
    RegisterClassW(&window_class);
    window_ = CreateWindowW(window_class.lpszClassName, nullptr, 0, 0, 0, 0, 0, HWND_MESSAGE,
                            nullptr, window_class.hInstance, nullptr);
    hook_ = SetWindowsHookExW(WH_CBT, hook, nullptr, GetCurrentThreadId());
    EXPECT_NE(hook_, nullptr);
}

ModalScript::~ModalScript() {
    UnhookWindowsHookEx(hook_);
    DestroyWindow(window_);
    current = nullptr;
    EXPECT_TRUE(steps_.empty()) << steps_.size() << " dialog(s) did not come";
}

void ModalScript::expect_message(int button) {
    expect([this, button](HWND box) {
        messages_.push_back(text_of(box, kMessageText));
        EndDialog(box, button);
    });
}

void ModalScript::expect_dialog(Step fill, int button) {
    expect([fill = std::move(fill), button](HWND dialog) {
        fill(dialog);
        press(dialog, button);
    });
}

void ModalScript::expect_file_dialog(std::wstring path) {
    expect([path = std::move(path)](HWND dialog) {
        if (path.empty()) return press(dialog, IDCANCEL);
        type_file_name(dialog, path);
        press(dialog, IDOK);
    });
}

LRESULT CALLBACK ModalScript::hook(int code, WPARAM w, LPARAM l) {
    const HWND window = reinterpret_cast<HWND>(w);
    if (code == HCBT_ACTIVATE && is_top_level_dialog(window)) current->opened(window);
    if (code == HCBT_DESTROYWND) current->met_.erase(window);
    return CallNextHookEx(nullptr, code, w, l);
}

// The dialog is about to be shown: the answer follows when its message loop runs.
void ModalScript::opened(HWND dialog) {
    if (met_.insert(dialog).second)
        PostMessageW(window_, kAnswer, reinterpret_cast<WPARAM>(dialog), 0);
}

LRESULT CALLBACK ModalScript::procedure(HWND window, UINT message, WPARAM w, LPARAM l) {
    if (message != kAnswer) return DefWindowProcW(window, message, w, l);
    current->answer(reinterpret_cast<HWND>(w));
    return 0;
}

void ModalScript::answer(HWND dialog) {
    if (!IsWindow(dialog)) return;
    ShowWindow(dialog, SW_SHOW); // the system puts that off until there are no messages left
    if (steps_.empty()) {
        ADD_FAILURE() << "unexpected dialog";
        EndDialog(dialog, IDCANCEL);
        return;
    }
    const Step step = std::move(steps_.front());
    steps_.pop_front();
    step(dialog);
}

void press(HWND dialog, int button) {
    SendMessageW(dialog, WM_COMMAND, MAKEWPARAM(button, BN_CLICKED),
                 reinterpret_cast<LPARAM>(GetDlgItem(dialog, button)));
}

void click(HWND dialog, int button) {
    SendDlgItemMessageW(dialog, button, BM_CLICK, 0, 0);
}

void slide(HWND dialog, int slider, int position) {
    const HWND control = GetDlgItem(dialog, slider);
    SendMessageW(control, TBM_SETPOS, TRUE, position);
    SendMessageW(dialog, WM_HSCROLL, MAKEWPARAM(TB_THUMBTRACK, position),
                 reinterpret_cast<LPARAM>(control));
}

void type_text(HWND dialog, int field, const std::wstring& text) {
    SetDlgItemTextW(dialog, field, text.c_str()); // an edit control sends EN_CHANGE by itself
}

void type_file_name(HWND dialog, const std::wstring& path) {
    type_text(dialog, GetDlgItem(dialog, cmb13) != nullptr ? cmb13 : edt1, path);
}

void choose_in_list(HWND dialog, int list, int entry) {
    SendDlgItemMessageW(dialog, list, CB_SETCURSEL, static_cast<WPARAM>(entry), 0);
    SendMessageW(dialog, WM_COMMAND, MAKEWPARAM(list, CBN_SELCHANGE),
                 reinterpret_cast<LPARAM>(GetDlgItem(dialog, list)));
}

std::wstring text_of(HWND dialog, int control) {
    return win::window_text(GetDlgItem(dialog, control));
}

std::wstring class_of(HWND window) {
    wchar_t name[64];
    GetClassNameW(window, name, std::size(name));
    return name;
}

} // namespace kelvane::test
