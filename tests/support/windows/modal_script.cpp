#include "support/windows/modal_script.h"

#include "win/dialog.h"

#include <commctrl.h>
#include <commdlg.h>
#include <dlgs.h>
#include <gtest/gtest.h>

#include <cwctype>
#include <iterator>
#include <utility>

namespace kelvane::test {
namespace {

constexpr UINT kAnswer = WM_APP + 1;
constexpr UINT kStays = 30000;       // milliseconds after which a dialog counts as left open
constexpr int kMessageText = 0xFFFF; // controls of a message box
constexpr int kMessageIcon = stc1;

ModalScript* current = nullptr;

bool is_top_level_dialog(HWND window) {
    return class_of(window) == L"#32770" && (GetWindowLongW(window, GWL_STYLE) & WS_CHILD) == 0;
}

bool is_message(HWND dialog) {
    return GetDlgItem(dialog, kMessageText) != nullptr;
}

wchar_t icon_of(HWND box) {
    const std::pair<const wchar_t*, wchar_t> kIcons[] = {
        {IDI_WARNING, L'!'}, {IDI_QUESTION, L'?'}, {IDI_INFORMATION, L'i'}, {IDI_ERROR, L'x'}};
    const auto shown =
        reinterpret_cast<HICON>(SendDlgItemMessageW(box, kMessageIcon, STM_GETICON, 0, 0));
    for (const auto& [icon, sign] : kIcons)
        if (shown == LoadIconW(nullptr, icon)) return sign;
    return L'-';
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

void ModalScript::expect_message(testing::Matcher<const std::wstring&> shown, int button) {
    expect([this, shown = std::move(shown), button](HWND box) {
        EXPECT_TRUE(is_message(box)) << testing::PrintToString(win::window_text(box));
        EXPECT_THAT(message_shown(box), shown);
        messages_.push_back(text_of(box, kMessageText));
        press(box, button);
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
    if (code == HCBT_DESTROYWND && current->met_.erase(window) != 0)
        KillTimer(current->window_, reinterpret_cast<UINT_PTR>(window));
    return CallNextHookEx(nullptr, code, w, l);
}

// Called before the dialog is shown. The step runs later, from the dialog's message loop.
void ModalScript::opened(HWND dialog) {
    if (met_.insert(dialog).second)
        PostMessageW(window_, kAnswer, reinterpret_cast<WPARAM>(dialog), 0);
}

LRESULT CALLBACK ModalScript::procedure(HWND window, UINT message, WPARAM w, LPARAM l) {
    const auto dialog = reinterpret_cast<HWND>(w);
    if (message == kAnswer)
        current->answer(dialog);
    else if (message == WM_TIMER)
        fail_and_end(dialog, "a dialog stays open");
    else
        return DefWindowProcW(window, message, w, l);
    return 0;
}

void ModalScript::fail_and_end(HWND dialog, const char* what) {
    ADD_FAILURE() << what << ": " << testing::PrintToString(message_shown(dialog));
    EndDialog(dialog, IDCANCEL);
}

void ModalScript::answer(HWND dialog) {
    if (!IsWindow(dialog)) return;
    ShowWindow(dialog, SW_SHOW); // the system shows a dialog only when its queue is empty
    if (steps_.empty()) return fail_and_end(dialog, "unexpected dialog");
    const Step step = std::move(steps_.front());
    steps_.pop_front();
    step(dialog);
    // WM_TIMER comes when the queue is empty. The timer is removed when the dialog is destroyed.
    if (IsWindow(dialog)) SetTimer(window_, reinterpret_cast<UINT_PTR>(dialog), kStays, nullptr);
}

void handle_messages() {
    MSG message;
    while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE))
        DispatchMessageW(&message);
}

std::wstring message_shown(HWND box) {
    static constexpr std::pair<int, const wchar_t*> kButtons[] = {
        {IDOK, L"OK"}, {IDYES, L"Yes"}, {IDNO, L"No"}, {IDCANCEL, L"Cancel"}};
    std::wstring shown = win::window_text(box) + L' ' + icon_of(box);
    for (const auto& [id, name] : kButtons) {
        const HWND button = GetDlgItem(box, id);
        if (button == nullptr) continue;
        const LONG kind = GetWindowLongW(button, GWL_STYLE) & BS_TYPEMASK;
        shown += (kind == BS_DEFPUSHBUTTON ? L" [" : L" ") + std::wstring(name) +
                 (kind == BS_DEFPUSHBUTTON ? L"]" : L"");
    }
    return shown + L": " + text_of(box, kMessageText);
}

void press(HWND dialog, int button) {
    const bool needs_button = is_message(dialog) || button != IDCANCEL;
    if (needs_button && GetDlgItem(dialog, button) == nullptr) {
        ADD_FAILURE() << "no button " << button << ": "
                      << testing::PrintToString(message_shown(dialog));
        return;
    }
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

std::wstring repeated_keys(const std::vector<std::wstring>& captions) {
    std::set<wchar_t> taken;
    std::wstring repeated;
    for (const std::wstring& caption : captions)
        for (std::size_t i = 0; i + 1 < caption.size(); ++i) {
            if (caption[i] != L'&') continue;
            const auto key = static_cast<wchar_t>(std::towupper(caption[++i]));
            if (key != L'&' && !taken.insert(key).second) repeated += key;
        }
    return repeated;
}

std::wstring class_of(HWND window) {
    wchar_t name[64];
    GetClassNameW(window, name, std::size(name));
    return name;
}

} // namespace kelvane::test
