// Tests on screens of other densities.
#pragma once

#include <windows.h>

#include <gtest/gtest.h>
#include <process.h>

#include <filesystem>
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

/// Runs this test program again for the tests that match `filter`, on screens of 150 % and 200 %,
/// and expects that they pass and leave a screenshot `last` with the density in its name.
inline void expect_on_finer_screens(const std::wstring& filter, const std::string& last) {
    wchar_t program[MAX_PATH];
    GetModuleFileNameW(nullptr, program, MAX_PATH);
    for (const DWORD dots : {144, 192}) {
        const std::filesystem::path picture =
            KELVANE_SCREENSHOTS "/" + last + "@" + std::to_string(dots) + ".bmp";
        std::filesystem::remove(picture);
        const Density density(dots);
        EXPECT_EQ(
            _wspawnl(_P_WAIT, program, L"tests", (L"--gtest_filter=" + filter).c_str(), nullptr),
            0);
        EXPECT_TRUE(std::filesystem::exists(picture)) << "the screen had another density";
    }
}

} // namespace kelvane::test
