// The environment variables that a child process is given.
#pragma once

#include <string>

namespace kelvane {

/// This process's variables as a block for the platform, changed so that programs, ImageMagick
/// among them, put their temporary files into `folder`, and so that ImageMagick reads its
/// configuration there before it looks elsewhere.
std::wstring environment_for(const std::wstring& folder);

} // namespace kelvane
