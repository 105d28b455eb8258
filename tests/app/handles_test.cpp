// Handles do not grow however long the program works.
#include "app_test.h"

#include <algorithm>
#include <array>

namespace kelvane::test {
namespace {

// GDI objects of this process. Wine does not count them; there they are found in the table of GDI
// handles that every process has, in which a free entry has no type.
unsigned long gdi_objects() {
    if (const DWORD count = GetGuiResources(GetCurrentProcess(), GR_GDIOBJECTS); count != 0)
        return count;
    constexpr std::size_t kTable = sizeof(void*) == 8 ? 0xF8 : 0x94; // in the environment block
    constexpr std::size_t kEntry = 24;
    constexpr std::size_t kType = 14;
    using Environment = const unsigned char*(WINAPI*)();
    const auto environment = reinterpret_cast<Environment>(
        reinterpret_cast<void*>(GetProcAddress(GetModuleHandleW(L"ntdll"), "RtlGetCurrentPeb")));
    const unsigned char* block = environment();
    const unsigned char* table = *reinterpret_cast<unsigned char* const*>(block + kTable);
    unsigned long count = 0;
    for (std::size_t i = 0; i < 0x10000; ++i)
        count += table[i * kEntry + kType] != 0;
    return count;
}

// Windows, menus and the like: the number of a handle is its place in a table in which free places
// are used first, so that the highest of many new ones tells how many are in use.
unsigned user_objects() {
    std::array<HMENU, 64> probes{};
    unsigned highest = 0;
    for (HMENU& probe : probes) {
        probe = CreateMenu();
        highest = std::max(highest,
                           static_cast<unsigned>(reinterpret_cast<std::uintptr_t>(probe) & 0xFFFF));
    }
    for (const HMENU probe : probes)
        DestroyMenu(probe);
    return highest;
}

class Handles : public AppTest {
  protected:
    void rounds(int count, const std::wstring& file) {
        for (int i = 0; i < count; ++i) {
            script.expect_dialog([](HWND) {}, IDCANCEL); // the size dialog
            script.expect_message(IDNO);
            main.open_file(file);
            // Without the clipboard: it belongs to the whole desktop, and so do its handles.
            for (const unsigned command : {kCmdSoften, kCmdResample, kCmdUndo, kCmdClose})
                choose(command);
        }
    }
};

TEST_F(Handles, DoNotGrowOver200Rounds) {
    const std::wstring file = saved(random_picture(40, 30, 1));
    rounds(10, file); // what is made once is made now
    const unsigned long gdi = gdi_objects();
    const unsigned user = user_objects();
    ASSERT_GT(gdi, 0u);
    const HBRUSH probe = CreateSolidBrush(RGB(1, 2, 3));
    EXPECT_EQ(gdi_objects(), gdi + 1) << "the count works";
    DeleteObject(probe);
    rounds(200, file);
    EXPECT_TRUE(main.forms().empty());
    EXPECT_LE(gdi_objects(), gdi + 4);
    EXPECT_LE(user_objects(), user + 16);
}

} // namespace
} // namespace kelvane::test
