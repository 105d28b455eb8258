// The console program that the console runner's tests run. Its first argument says what to do;
// those of a converter make it one that cannot convert.
#include "convert/exec.h"
#include "convert/quoted_argument.h"
#include "settings/private_folder.h"

#include <process.h>
#include <windows.h>

#include <cstdio>
#include <cwchar>
#include <string>
#include <string_view>

using namespace kelvane;

namespace {

void print_arguments(int count, wchar_t** arguments) {
    for (int i = 0; i < count; ++i) {
        std::printf("[");
        for (const wchar_t* c = arguments[i]; *c != 0; ++c)
            std::printf(*c < 128 ? "%c" : "\\u%04x", static_cast<unsigned>(*c));
        std::printf("]");
    }
}

// Starts a second process of this program with the same output, and does not wait for it.
void start_grandchild(const wchar_t* milliseconds) {
    const std::wstring program = quoted_argument(_wpgmptr);
    _wspawnl(_P_NOWAIT, _wpgmptr, program.c_str(), L"late", milliseconds, nullptr);
    std::printf("child ");
}

// Never ends: its converter hangs.
void wait_for_converter() {
    const PrivateFolder folder;
    Exec{quoted_argument(_wpgmptr), L"-verbose testtmp.hang", SW_HIDE, {}, folder.path()}.WinExec();
}

// Leaves a temporary file behind and never ends for a "testtmp...hang"; fails for any other file.
void convert(std::wstring_view file) {
    std::wstring temporary(MAX_PATH, L'\0');
    GetTempPathW(MAX_PATH, temporary.data());
    std::fclose(_wfopen((temporary.c_str() + std::wstring(L"left.tmp")).c_str(), L"w"));
    std::printf("no decode delegate for %ls\n", file.data());
    std::fflush(stdout);
    if (file.starts_with(L"testtmp") && file.ends_with(L".hang")) Sleep(INFINITE);
}

// Prints nothing in the first two runs; counts the runs in the file KELVANE_CHILD_LOG.
void list_formats() {
    std::FILE* log = _wfopen(_wgetenv(L"KELVANE_CHILD_LOG"), L"ab");
    std::fputc('x', log);
    std::fseek(log, 0, SEEK_END);
    if (std::ftell(log) > 2) std::printf("Description\n-----\nHANG rw+ Never ends\n");
    std::fclose(log);
}

} // namespace

int wmain(int argc, wchar_t** argv) {
    const std::wstring_view what = argc > 1 ? argv[1] : L"";
    const wchar_t* value = argc > 2 ? argv[2] : L"0";
    const int number = std::wcstol(value, nullptr, 10);
    std::string text; // printed at once: one by one takes a hundred times as long under Wine
    for (int i = 0; what == L"lines" && i < number; ++i)
        text += "line " + std::to_string(i) + '\n';
    std::fputs(text.c_str(), stdout);
    for (int i = 0; what == L"alternate" && i < number; ++i) {
        std::fprintf(i % 2 == 0 ? stdout : stderr, "%d ", i);
        std::fflush(nullptr);
    }
    for (int i = 0; what == L"bytes" && i < 50 * 224; ++i)
        std::putchar(32 + i % 224); // every byte but the control characters, again and again
    if (what == L"arguments") print_arguments(argc - 2, argv + 2);
    if (what == L"input") std::printf("%d", std::getchar());
    if (what == L"grandchild") start_grandchild(value);
    if (what == L"late") {
        Sleep(static_cast<DWORD>(number));
        std::printf("grandchild");
    }
    if (what == L"event") { // whether one of the parent's came along
        const auto event = reinterpret_cast<HANDLE>(std::wcstoull(value, nullptr, 10));
        std::printf(SetEvent(event) ? "inherited" : "not inherited");
    }
    if (what == L"alone") { // goes on without its output
        CloseHandle(GetStdHandle(STD_OUTPUT_HANDLE));
        Sleep(500);
        SetEvent(OpenEventW(EVENT_MODIFY_STATE, FALSE, value));
    }
    if (what == L"hold") wait_for_converter();
    if (what == L"-version" && *_wgetenv(L"MAGICK_CONFIGURE_PATH") == L'.')
        std::printf("Version: IMAGEMAGICK 7.1 in its place");
    if (what == L"-list") list_formats();
    if (what == L"-verbose") convert(value);
    return 0;
}
