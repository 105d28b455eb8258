// A child process whose streams end in a pipe.
#pragma once

#include "win/unique_handle.h"

#include <string>

namespace kelvane {

/// A started program. The parent holds only the pipe's read end, so the pipe breaks when the child
/// and everything that inherited the write end from it are gone. The child inherits its three
/// streams and no other handle of this program. The destructor, and the end of this program even by
/// a crash, ends the child and all that it has started; not after `release`.
class RedirectedProcess {
  public:
    RedirectedProcess() = default;
    ~RedirectedProcess();
    RedirectedProcess(const RedirectedProcess&) = delete;
    RedirectedProcess& operator=(const RedirectedProcess&) = delete;

    /// Starts the program; false when it cannot be started. A stream that is not captured, and
    /// standard input, are connected to NUL.
    /// With a `folder` it runs there, with `environment_for(folder)`.
    bool start(const std::wstring& command_line, bool capture_std_out, bool capture_std_err,
               WORD show_window, const std::wstring& folder);

    /// The pipe's read end.
    HANDLE output() const { return read_end_.get(); }

    /// Lets the program and all that it has started run on after the destructor.
    void release();

  private:
    UniqueHandle read_end_;
    UniqueHandle process_;
    UniqueHandle job_; // the process and its descendants
};

} // namespace kelvane
