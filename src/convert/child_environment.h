// The environment variables that a child process is given.
#pragma once

#include <string>

namespace kelvane {

/// This process's variables as a block for the platform, for a child that runs in `folder`: it and
/// what it starts, ImageMagick among them, put their temporary files there, and ImageMagick reads
/// its configuration there before it looks elsewhere.
std::wstring environment_for(const std::wstring& folder);

} // namespace kelvane
