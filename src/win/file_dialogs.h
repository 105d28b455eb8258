// The common dialogs that ask for a file.
#pragma once

#include <windows.h>

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

namespace kelvane::win {

/// What a file dialog starts with.
struct FileQuestion {
    /// Pairs of a description and its patterns, all separated by "|"
    /// ("Bitmaps (*.BMP)|*.BMP|All Files (*.*)|*.*").
    std::wstring filter;
    /// Which pair is chosen at first, from 1.
    unsigned chosen_filter = 1;
    /// Folder to start in; empty: the system chooses.
    std::wstring folder;
    /// A proposed name or path.
    std::wstring proposal;
    /// Empty: the system's own title.
    std::wstring title;
    /// Added to a name that is typed without one ("BMP"); for saving.
    std::wstring extension;
};

/// Ask for an existing file, or for one to write, whose overwriting has then been confirmed. The
/// full path; nothing when cancelled. Throw `PlatformError` when the dialog cannot be shown.
std::optional<std::wstring> ask_open_file(HWND owner, const FileQuestion& question);
/// The same for any number of existing files of one folder; none when cancelled.
std::vector<std::wstring> ask_open_files(HWND owner, const FileQuestion& question);
std::optional<std::wstring> ask_save_file(HWND owner, const FileQuestion& question);

} // namespace kelvane::win
