// Folders: the program's, the system's and the one to remember for a file.
#pragma once

#include <string>

namespace kelvane {

/// The folder of the running program, without a backslash at its end (but "C:\" for a root).
std::wstring program_folder();

/// The system's own folder (System32) for programs of this program's word length, without a
/// backslash at its end.
std::wstring system_folder();

/// The folder to remember for a chosen file: the longest beginning of `path` that ends with a
/// backslash and is an existing folder ("D:\pics\" for "D:\pics\logo.png"), with its backslash;
/// for a bare existing drive "C:" the root "C:\". When nothing of the path exists, the program's
/// folder.
std::wstring ExistingFolderOf(const std::wstring& path);

} // namespace kelvane
