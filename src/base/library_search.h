// Where Windows looks for libraries that are loaded by their name alone; Windows only.
#pragma once

namespace kelvane {

/// From now on in this process only in the system's folders: System32, and the folder of Windows,
/// in which TWAIN's manager lies. Not in the folder of the program, which users unpack where they
/// download, nor in the current one or in PATH. Libraries with a full path load as before.
/// On Windows 7 without its updates only the current folder is left out.
void search_libraries_in_system_only();

} // namespace kelvane
