// Opening pages and files from dialogs, by the program that the user has for them.
#pragma once

#include <functional>
#include <string>

namespace kelvane {

/// Opens a web page or a file; failures are shown.
using OpenInShell = std::function<void(const std::wstring& page_or_file)>;

} // namespace kelvane
