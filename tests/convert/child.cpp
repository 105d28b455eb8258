// The console program that the console runner's tests run. Its first argument says what to do.
#include "convert/command_line.h"

#include <process.h>
#include <windows.h>

#include <cstdio>
#include <cwchar>
#include <string>
#include <string_view>

namespace {

void alternate(int count) {
    for (int i = 0; i < count; ++i) {
        std::FILE* stream = i % 2 == 0 ? stdout : stderr;
        std::fprintf(stream, "%d ", i);
        std::fflush(stream);
    }
}

void print_arguments(int count, wchar_t** arguments) {
    for (int i = 0; i < count; ++i) {
        std::printf("[");
        for (const wchar_t* c = arguments[i]; *c != 0; ++c)
            std::printf(*c < 128 ? "%c" : "\\u%04x", static_cast<unsigned>(*c));
        std::printf("]");
    }
}

// Starts itself anew with this process's output, and does not wait for it.
int start_grandchild(const wchar_t* milliseconds) {
    wchar_t program[MAX_PATH];
    GetModuleFileNameW(nullptr, program, MAX_PATH);
    const std::wstring quoted = kelvane::quoted_argument(program);
    if (_wspawnl(_P_NOWAIT, program, quoted.c_str(), L"late", milliseconds, nullptr) == -1)
        return 1;
    std::printf("child ");
    return 0;
}

} // namespace

int wmain(int argc, wchar_t** argv) {
    const std::wstring_view what = argc > 1 ? argv[1] : L"";
    const wchar_t* value = argc > 2 ? argv[2] : L"0";
    const int number = std::wcstol(value, nullptr, 10);
    for (int i = 0; what == L"lines" && i < number; ++i)
        std::printf("line %d\n", i);
    if (what == L"alternate") alternate(number);
    for (int i = 0; what == L"bytes" && i < 50 * 224; ++i)
        std::putchar(32 + i % 224); // every byte but the control characters, again and again
    if (what == L"arguments") print_arguments(argc - 2, argv + 2);
    if (what == L"input") std::printf("%d", std::getchar());
    if (what == L"grandchild") return start_grandchild(value);
    if (what == L"late") {
        Sleep(static_cast<DWORD>(number));
        std::printf("grandchild");
    }
    if (what == L"event") { // whether one of the parent's came along
        const auto event = reinterpret_cast<HANDLE>(std::wcstoull(value, nullptr, 10));
        std::printf(SetEvent(event) ? "inherited" : "not inherited");
    }
    return 0;
}
