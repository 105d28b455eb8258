// Work of a dialog in the user's pauses.
#pragma once

#include "image/progress.h"

namespace kelvane {

/// Thrown out of work that input stops.
struct Interrupted {};

/// Follows work that a dialog does in its timer; throws `Interrupted` as soon as input waits for
/// the dialog: a key, a click, or a move of the mouse while it drags something.
class UntilInput : public ProgressObserver {
  public:
    void Progress(long lPosition) override;
};

} // namespace kelvane
