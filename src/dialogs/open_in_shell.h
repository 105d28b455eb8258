// Buttons of dialogs that open a page or a file with the program that the user has for it.
#pragma once

#include <functional>
#include <string>

namespace kelvane {

/// Opens a web page or a file and shows by itself why it could not.
using OpenInShell = std::function<void(const std::wstring& page_or_file)>;

} // namespace kelvane
