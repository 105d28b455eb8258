// Stands in for the system's HTML help: notes in KELVANE_HELP what it was asked to show, as
// "command number file".
#include <windows.h>

extern "C" __declspec(dllexport) HWND WINAPI
    HtmlHelpW(HWND owner, const wchar_t* file, UINT command, DWORD_PTR data) {
    wchar_t asked[2 * MAX_PATH];
    wsprintfW(asked, L"%u %u %s", command, static_cast<UINT>(data), file != nullptr ? file : L"");
    SetEnvironmentVariableW(L"KELVANE_HELP", asked);
    return owner != nullptr ? owner : GetDesktopWindow();
}
