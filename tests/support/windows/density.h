// Tests on screens of other densities.
#pragma once

#include <windows.h>

#include <process.h>

#include <string>

namespace kelvane::test {

/// Sets the screen density for programs that start during its lifetime.
class Density {
  public:
    explicit Density(DWORD dots) {
        RegSetKeyValueW(HKEY_CURRENT_USER, kKey, kValue, REG_DWORD, &dots, sizeof dots);
    }
    ~Density() { RegDeleteKeyValueW(HKEY_CURRENT_USER, kKey, kValue); }
    Density(const Density&) = delete;
    Density& operator=(const Density&) = delete;

  private:
    static constexpr const wchar_t* kKey = L"Control Panel\\Desktop";
    static constexpr const wchar_t* kValue = L"LogPixels";
};

/// Runs this test program again, for the tests that match `filter`, on a screen of `dots` dots per
/// inch. Returns its exit code.
inline intptr_t run_at_density(DWORD dots, const std::wstring& filter) {
    wchar_t program[MAX_PATH];
    GetModuleFileNameW(nullptr, program, MAX_PATH);
    const Density density(dots);
    return _wspawnl(_P_WAIT, program, L"tests", (L"--gtest_filter=" + filter).c_str(), nullptr);
}

} // namespace kelvane::test
