// The engine's three events.
#pragma once

#include <chrono>

namespace kelvane {

/// Receives progress from inside a long operation. Calls arrive on the caller's thread, once per
/// pixel column or row, positions ascending. The defaults do nothing.
class ProgressObserver {
  public:
    virtual ~ProgressObserver() = default;
    /// Before the loop: the last position that will be reported.
    virtual void InitProgress(long /*lMax*/) {}
    virtual void Progress(long /*lPosition*/) {}
    /// At the end: the elapsed time as a fraction of a day.
    virtual void Complete(double /*lTimeMs*/) {}
};

/// Relays to an observer that may be absent, and times the operation from its construction.
class ProgressReporter {
  public:
    explicit ProgressReporter(ProgressObserver* observer) : observer_(observer) {}
    void init(long maximum) const {
        if (observer_) observer_->InitProgress(maximum);
    }
    void at(long position) const {
        if (observer_) observer_->Progress(position);
    }
    void complete() const {
        if (observer_) observer_->Complete(elapsed_days());
    }

  private:
    using Clock = std::chrono::steady_clock;
    double elapsed_days() const {
        return std::chrono::duration<double, std::ratio<86400>>(Clock::now() - start_).count();
    }
    ProgressObserver* observer_;
    Clock::time_point start_ = Clock::now();
};

} // namespace kelvane
