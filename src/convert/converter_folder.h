// The folder in which ImageMagick runs.
#pragma once

#include "settings/private_folder.h"

namespace kelvane {

/// A private folder with a `policy.xml`, which keeps a picture from reaching beyond itself while it
/// is converted: from running scripts, from the network, the screen and the clipboard, and from
/// naming programs and lists of files. `environment_for` makes ImageMagick read it.
class ConverterFolder : public PrivateFolder {
  public:
    /// Throws `PlatformError` when the folder or the policy cannot be made.
    ConverterFolder();
};

} // namespace kelvane
