// Stands in for the scanner library: it "scans" the picture that KELVANE_SCAN names, or does as
// if the user cancelled ("cancel") or as if the file could not be written ("fail").
#include <windows.h>

#include <cstring>

extern "C" {

__declspec(dllexport) int WINAPI TWAIN_SelectImageSource(HWND window) {
    SetEnvironmentVariableA("KELVANE_SCAN_OWNER", IsWindow(window) ? "yes" : "no");
    return 1;
}

__declspec(dllexport) int WINAPI TWAIN_AcquireToFilename(HWND, const char* file) {
    char what[MAX_PATH] = "";
    GetEnvironmentVariableA("KELVANE_SCAN", what, sizeof what);
    if (std::strcmp(what, "cancel") == 0) return -1;
    if (std::strcmp(what, "fail") == 0) return -4;
    return CopyFileA(what, file, FALSE) ? 0 : -2;
}
}
