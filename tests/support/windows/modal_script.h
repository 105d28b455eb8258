// Answers modal dialogs and message boxes from within their own message loops, without waiting.
#pragma once

#include <windows.h>

#include <gmock/gmock.h>

#include <deque>
#include <functional>
#include <set>
#include <string>
#include <vector>

namespace kelvane::test {

/// A queue of steps. Each dialog and message box that opens in this thread is passed, once it is
/// filled and shown, to the next step, which has to close it. A dialog without a step, or one that
/// its step leaves open, fails the test and is closed; a step without a dialog fails the test in
/// the destructor. A step may itself open dialogs, which take the next steps.
class ModalScript {
  public:
    using Step = std::function<void(HWND dialog)>;

    ModalScript();
    ~ModalScript();
    ModalScript(const ModalScript&) = delete;
    ModalScript& operator=(const ModalScript&) = delete;

    void expect(Step step) { steps_.push_back(std::move(step)); }
    /// The next one is a message box that shows this (see `message_shown`); `button` (IDOK, IDYES,
    /// ...), which has to exist, is pressed.
    void expect_message(testing::Matcher<const std::wstring&> shown, int button = IDOK);
    void expect_message(const std::wstring& shown, int button = IDOK) {
        expect_message(testing::Eq(shown), button);
    }
    /// The same for a message box of any kind, whose text is recorded.
    void expect_message(int button) { expect_message(testing::_, button); }
    /// The next one is answered by `button` after `fill`.
    void expect_dialog(Step fill, int button = IDOK);
    /// The next one is an open or save dialog, which gets this path; an empty one cancels it.
    void expect_file_dialog(std::wstring path);

    const std::vector<std::wstring>& messages() const { return messages_; }

  private:
    static LRESULT CALLBACK hook(int code, WPARAM w, LPARAM l);
    static LRESULT CALLBACK procedure(HWND window, UINT message, WPARAM w, LPARAM l);
    void opened(HWND dialog);
    void answer(HWND dialog);
    static void fail_and_end(HWND dialog, const char* what);

    HHOOK hook_ = nullptr;
    HWND window_ = nullptr;
    std::set<HWND> met_;
    std::deque<Step> steps_;
    std::vector<std::wstring> messages_;
};

/// Dispatches the messages in the queue.
void handle_messages();
/// All that a message box shows: title, icon (! ? i x or - for none), buttons with the default one
/// in brackets, text. "Kelvane ? [Yes] No: Save it?"
std::wstring message_shown(HWND box);
/// Presses a button of a dialog as a click does. IDCANCEL stands for Esc and the close box as well,
/// where there is no message box; any other button has to exist.
void press(HWND dialog, int button);
void click(HWND dialog, int button);
/// Moves a slider as the mouse does.
void slide(HWND dialog, int slider, int position);
/// Types into a field: its text changes and its dialog is told.
void type_text(HWND dialog, int field, const std::wstring& text);
/// The same for the name in an open or save dialog.
void type_file_name(HWND dialog, const std::wstring& path);
/// Picks an entry of a list, from 0, as a click does.
void choose_in_list(HWND dialog, int list, int entry);
std::wstring text_of(HWND dialog, int control);
std::wstring class_of(HWND window);
/// The access keys that more than one of these captions has.
std::wstring repeated_keys(const std::vector<std::wstring>& captions);

} // namespace kelvane::test
