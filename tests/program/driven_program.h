// A finished program, driven from outside through its windows.
#pragma once

#include "win/unique_handle.h"

#include <windows.h>

#include <filesystem>
#include <functional>
#include <string>
#include <vector>

namespace kelvane::test {

/// A started program, which the destructor ends. A wait that times out, or during which the program
/// ends, throws an error that says what was awaited and which windows there are.
class DrivenProgram {
  public:
    DrivenProgram(const std::filesystem::path& program, const std::vector<std::wstring>& arguments);
    ~DrivenProgram();
    DrivenProgram(const DrivenProgram&) = delete;
    DrivenProgram& operator=(const DrivenProgram&) = delete;

    void wait_for(const std::string& what, const std::function<bool()>& condition) const;
    /// The window of this class whose caption begins so, once it can be used.
    HWND window(const std::wstring& class_name, const std::wstring& caption) const;
    /// Presses a button of a dialog and waits until the dialog is closed.
    void answer(HWND dialog, int button) const;
    /// The exit code, once the program has ended.
    DWORD exit_code() const;

  private:
    std::vector<HWND> windows() const;

    UniqueHandle job_;
    UniqueHandle process_;
    DWORD id_ = 0;
};

/// The text of a control of any program.
std::wstring text_in(HWND window);

} // namespace kelvane::test
