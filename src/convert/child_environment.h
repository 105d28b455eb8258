// The environment variables that a child process is given.
#pragma once

#include <string>

namespace kelvane {

/// The environment block for a child process that runs in `folder`: this process's variables, with
/// the folder for temporary files set to `folder` and ImageMagick's configuration path beginning
/// with it.
std::wstring environment_for(const std::wstring& folder);

} // namespace kelvane
