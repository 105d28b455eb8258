// COM's lifetime on a thread; Windows only.
#pragma once

namespace kelvane {

/// COM is initialised on this thread while the object lives. A thread that already belongs to
/// another kind of apartment serves as well.
class ComScope {
  public:
    ComScope();
    ~ComScope();
    ComScope(const ComScope&) = delete;
    ComScope& operator=(const ComScope&) = delete;

  private:
    bool started_;
};

} // namespace kelvane
