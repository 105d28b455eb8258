// How kelvane-cli ends.
#pragma once

namespace kelvane {

enum ExitCode : int {
    kExitDone = 0,
    kExitFailed = 1,     // an unreadable picture, an unwritable file
    kExitUsage = 2,      // the command line was wrong
    kExitOutOfRange = 3, // written, but a coordinate left EAGLE's range
    kExitWarned = 4,     // not written, because a warning stands in the way of --strict
};

} // namespace kelvane
