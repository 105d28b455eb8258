#include "cli/console_progress.h"

#include <algorithm>
#include <ostream>
#include <string>

namespace kelvane {
namespace {

constexpr std::size_t kBarWidth = 40;
constexpr auto kRedrawEvery = std::chrono::milliseconds(100);

} // namespace

ConsoleProgress::~ConsoleProgress() {
    wipe();
}

void ConsoleProgress::wipe() {
    if (drawn_) out_ << '\r' << std::string(kBarWidth + 2, ' ') << '\r' << std::flush;
    drawn_ = false;
}

void ConsoleProgress::InitProgress(long lMax) {
    maximum_ = std::max(lMax, 1L);
}

void ConsoleProgress::Progress(long lPosition) {
    const auto now = Clock::now();
    if (!enabled_ || now < next_draw_) return;
    next_draw_ = now + kRedrawEvery;
    drawn_ = true;
    const double share = std::clamp(static_cast<double>(lPosition) / maximum_, 0.0, 1.0);
    const auto done = static_cast<std::size_t>(share * kBarWidth);
    out_ << "\r[" << std::string(done, '#') << std::string(kBarWidth - done, '.') << ']'
         << std::flush;
}

} // namespace kelvane
