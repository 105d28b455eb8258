#include "convert/redirected_process.h"

#include "convert/child_environment.h"

#include <array>
#include <vector>

namespace kelvane {
namespace {

SECURITY_ATTRIBUTES inheritable() {
    return {sizeof(SECURITY_ATTRIBUTES), nullptr, TRUE};
}

UniqueHandle open_nowhere() {
    SECURITY_ATTRIBUTES security = inheritable();
    return UniqueHandle(CreateFileW(L"NUL", GENERIC_READ | GENERIC_WRITE,
                                    FILE_SHARE_READ | FILE_SHARE_WRITE, &security, OPEN_EXISTING, 0,
                                    nullptr));
}

struct Pipe {
    UniqueHandle read_end;
    UniqueHandle write_end; // inheritable
};

Pipe make_pipe() {
    SECURITY_ATTRIBUTES security = inheritable();
    HANDLE read_end = nullptr;
    HANDLE write_end = nullptr;
    if (!CreatePipe(&read_end, &write_end, &security, 65536)) return {};
    Pipe pipe{UniqueHandle(read_end), UniqueHandle(write_end)};
    // A child with its own read end could not notice that this program has closed its one.
    if (!SetHandleInformation(read_end, HANDLE_FLAG_INHERIT, 0)) return {};
    return pipe;
}

bool set_limits(HANDLE job, DWORD flags) {
    JOBOBJECT_EXTENDED_LIMIT_INFORMATION limits{};
    limits.BasicLimitInformation.LimitFlags = flags;
    return SetInformationJobObject(job, JobObjectExtendedLimitInformation, &limits,
                                   sizeof limits) != FALSE;
}

/// The list of handles that a child inherits.
class InheritList {
  public:
    explicit InheritList(std::array<HANDLE, 2> handles) : handles_(handles) {
        SIZE_T size = 0;
        InitializeProcThreadAttributeList(nullptr, 1, 0, &size);
        memory_.resize(size);
        ready_ = InitializeProcThreadAttributeList(get(), 1, 0, &size) != FALSE;
        filled_ = ready_ && UpdateProcThreadAttribute(get(), 0, PROC_THREAD_ATTRIBUTE_HANDLE_LIST,
                                                      handles_.data(), sizeof(handles_), nullptr,
                                                      nullptr) != FALSE;
    }
    ~InheritList() {
        if (ready_) DeleteProcThreadAttributeList(get());
    }
    InheritList(const InheritList&) = delete;
    InheritList& operator=(const InheritList&) = delete;

    explicit operator bool() const { return filled_; }
    LPPROC_THREAD_ATTRIBUTE_LIST get() {
        return reinterpret_cast<LPPROC_THREAD_ATTRIBUTE_LIST>(memory_.data());
    }

  private:
    std::array<HANDLE, 2> handles_; // the list points at them
    std::vector<unsigned char> memory_;
    bool ready_ = false;
    bool filled_ = false;
};

// A job that ends its processes when its last handle is closed, as it also is by a crash.
UniqueHandle make_job() {
    UniqueHandle job(CreateJobObjectW(nullptr, nullptr));
    return set_limits(job.get(), JOB_OBJECT_LIMIT_KILL_ON_JOB_CLOSE) ? std::move(job)
                                                                     : UniqueHandle();
}

} // namespace

// The job, when it is closed, ends the child's descendants.
RedirectedProcess::~RedirectedProcess() {
    if (process_) TerminateProcess(process_.get(), 1);
}

bool RedirectedProcess::start(const std::wstring& command_line, bool capture_std_out,
                              bool capture_std_err, WORD show_window, const std::wstring& folder) {
    Pipe pipe = make_pipe();
    const UniqueHandle nowhere = open_nowhere();
    if (!pipe.write_end || !nowhere) return false;
    InheritList inherited({pipe.write_end.get(), nowhere.get()});
    if (!inherited) return false;

    STARTUPINFOEXW startup{};
    startup.StartupInfo.cb = sizeof(startup);
    startup.StartupInfo.dwFlags = STARTF_USESTDHANDLES | STARTF_USESHOWWINDOW;
    startup.StartupInfo.wShowWindow = show_window;
    startup.StartupInfo.hStdInput = nowhere.get();
    startup.StartupInfo.hStdOutput = (capture_std_out ? pipe.write_end : nowhere).get();
    startup.StartupInfo.hStdError = (capture_std_err ? pipe.write_end : nowhere).get();
    startup.lpAttributeList = inherited.get();

    std::wstring writable = command_line; // the platform may write into it
    std::wstring environment = folder.empty() ? std::wstring() : environment_for(folder);
    PROCESS_INFORMATION information{};
    if (!CreateProcessW(
            nullptr, writable.data(), nullptr, nullptr, TRUE,
            EXTENDED_STARTUPINFO_PRESENT | CREATE_SUSPENDED | CREATE_UNICODE_ENVIRONMENT,
            environment.empty() ? nullptr : environment.data(),
            folder.empty() ? nullptr : folder.c_str(), &startup.StartupInfo, &information))
        return false;
    process_ = UniqueHandle(information.hProcess);
    const UniqueHandle thread(information.hThread);
    read_end_ = std::move(pipe.read_end);
    // In the job before it can start anything. Windows 7 refuses that to the child of a process
    // that is in a job itself; then only the child is ended, not what it has started.
    job_ = make_job();
    if (job_ && !AssignProcessToJobObject(job_.get(), process_.get())) job_.reset();
    ResumeThread(thread.get());
    return true;
}

void RedirectedProcess::release() {
    if (job_) set_limits(job_.get(), 0);
    process_.reset();
}

} // namespace kelvane
