// The environment variables that a child process is given.
#pragma once

#include <string>

namespace kelvane {

/// This process's variables as a block for the platform, with those changed that tell programs,
/// ImageMagick among them, where their temporary files go: to `folder`. What such a program leaves
/// behind when it is ended then goes with the folder.
std::wstring environment_with_temporary(const std::wstring& folder);

} // namespace kelvane
