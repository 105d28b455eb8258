// The engine's progress as a bar on the terminal.
#pragma once

#include "cli/command_line.h"
#include "image/progress.h"

#include <chrono>
#include <iosfwd>

namespace kelvane {

/// Draws a bar on a terminal once the work has lasted a moment, and wipes it away at the end; does
/// nothing elsewhere.
class ConsoleProgress final : public ProgressObserver {
  public:
    explicit ConsoleProgress(const Console& console)
        : out_(console.error), enabled_(console.shows_progress) {}
    ~ConsoleProgress() override;
    ConsoleProgress(const ConsoleProgress&) = delete;
    ConsoleProgress& operator=(const ConsoleProgress&) = delete;

    void wipe();

    void InitProgress(long lMax) override;
    void Progress(long lPosition) override;

  private:
    using Clock = std::chrono::steady_clock;

    std::ostream& out_;
    bool enabled_;
    long maximum_ = 0;
    Clock::time_point next_draw_ = Clock::now() + std::chrono::milliseconds(400);
    bool drawn_ = false;
};

} // namespace kelvane
