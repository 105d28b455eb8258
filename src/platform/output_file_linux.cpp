// Files being written, with the system calls of Linux.
#include "base/output_file.h"

#include "platform/temporary_name.h"

#include <fcntl.h>
#include <sys/sendfile.h>
#include <sys/stat.h>
#include <sys/xattr.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <charconv>
#include <climits>
#include <csignal>
#include <optional>
#include <string>
#include <system_error>
#include <utility>

namespace kelvane {
namespace fs = std::filesystem;
namespace {

[[noreturn]] void fail(int error = errno) {
    throw std::system_error(error, std::generic_category());
}

// Path under /proc of a descriptor's file, which may have no name.
std::string descriptor_path(int descriptor) {
    return "/proc/self/fd/" + std::to_string(descriptor);
}

fs::path own_descriptors() {
    std::error_code ignored;
    return fs::canonical("/proc/self/fd", ignored);
}

bool lies_under(const fs::path& file, const std::string& folder) {
    return file.native().starts_with(folder + '/');
}

// RAII: signals are blocked between two steps that must not be separated.
class SignalsHeld {
  public:
    SignalsHeld() {
        sigset_t all;
        sigfillset(&all);
        pthread_sigmask(SIG_BLOCK, &all, &before_);
    }
    ~SignalsHeld() { pthread_sigmask(SIG_SETMASK, &before_, nullptr); }
    SignalsHeld(const SignalsHeld&) = delete;
    SignalsHeld& operator=(const SignalsHeld&) = delete;

  private:
    sigset_t before_;
};

char doomed_file[PATH_MAX]; // read by the signal handler

// SA_RESETHAND has put the signal's default action back, which ends the process.
extern "C" void remove_and_end(int signal) {
    unlink(doomed_file);
    raise(signal);
}

// While it lives, a signal that would end the process removes `file` first. For one file at a time.
class RemovalOnSignal {
  public:
    explicit RemovalOnSignal(const std::string& file) {
        doomed_file[file.copy(doomed_file, PATH_MAX - 1)] = '\0';
        struct sigaction action {};
        action.sa_handler = remove_and_end;
        action.sa_flags = static_cast<int>(SA_RESETHAND);
        for (std::size_t i = 0; i < kSignals.size(); ++i) {
            sigaction(kSignals[i], nullptr, &before_[i]);
            if (before_[i].sa_handler == SIG_DFL) sigaction(kSignals[i], &action, nullptr);
        }
    }
    ~RemovalOnSignal() {
        for (std::size_t i = 0; i < kSignals.size(); ++i)
            sigaction(kSignals[i], &before_[i], nullptr);
    }
    RemovalOnSignal(const RemovalOnSignal&) = delete;
    RemovalOnSignal& operator=(const RemovalOnSignal&) = delete;

  private:
    static constexpr std::array kSignals{SIGHUP, SIGINT, SIGQUIT, SIGTERM, SIGXCPU, SIGXFSZ};
    std::array<struct sigaction, kSignals.size()> before_{};
};

// -1 where the file system has no nameless files, or none that can get a name later.
int open_nameless(const fs::path& folder) {
    const int descriptor = open(folder.c_str(), O_TMPFILE | O_RDWR | O_CLOEXEC, 0666);
    if (descriptor < 0 || access(descriptor_path(descriptor).c_str(), F_OK) == 0) return descriptor;
    close(descriptor);
    return -1;
}

// The list of users and groups beside the permission bits. It may allow the file's group less than
// the bits say, which without the list would hold.
void take_over_access_list(int to, const fs::path& from) {
    constexpr const char* kName = "system.posix_acl_access";
    std::array<char, 4096> list{};
    const ssize_t size = getxattr(from.c_str(), kName, list.data(), list.size());
    if (size > 0)
        fsetxattr(to, kName, list.data(), static_cast<std::size_t>(size), 0);
    else
        fremovexattr(to, kName); // removes what the folder gave the new file
}

void take_over_permissions(int to, const fs::path& from) {
    struct stat old {};
    if (stat(from.c_str(), &old) != 0) return;
    mode_t mode = old.st_mode & (S_IRWXU | S_IRWXG | S_IRWXO);
    // Only the superuser may change the owner.
    const bool same_group = fchown(to, old.st_uid, old.st_gid) == 0 ||
                            fchown(to, static_cast<uid_t>(-1), old.st_gid) == 0;
    // Another group gets no more than everybody.
    if (!same_group) mode = (mode & ~static_cast<mode_t>(S_IRWXG)) | (mode & S_IRWXO) << 3;
    fchmod(to, mode);
    if (same_group) take_over_access_list(to, from);
}

// Some network and user-space file systems do not support it.
void bring_to_disk(int descriptor) {
    if (fsync(descriptor) != 0 && errno != EINVAL && errno != ENOSYS) fail();
}

void send_all(int from, int to, off_t size) {
    if (lseek(from, 0, SEEK_SET) != 0) fail();
    for (off_t done = 0; done < size;) {
        const ssize_t sent = sendfile(to, from, nullptr, static_cast<std::size_t>(size - done));
        if (sent <= 0) fail(sent < 0 ? errno : EIO);
        done += sent;
    }
    if (ftruncate(to, size) != 0) fail();
    bring_to_disk(to);
}

} // namespace

bool is_stream(const fs::path& file) {
    const fs::path real = behind_links(file);
    if (lies_under(real, "/proc") || (lies_under(real, "/dev") && !lies_under(real, "/dev/shm")))
        return true;
    std::error_code ignored;
    const fs::file_status status = fs::status(real, ignored);
    return fs::is_other(status);
}

// Links under /proc lead to open files, not to names.
fs::path behind_links(const fs::path& file) {
    constexpr int kMostLinks = 40; // as the system follows
    fs::path real = file;
    for (int links = 0; links < kMostLinks; ++links) {
        std::error_code error;
        const fs::path folder =
            fs::canonical(real.has_parent_path() ? real.parent_path() : ".", error);
        if (error) return real;
        real = folder / real.filename();
        if (lies_under(real, "/proc")) return real;
        const fs::path next = fs::read_symlink(real, error);
        if (error) return real;
        real = folder / next;
    }
    return file; // opening it reports the error
}

struct OutputFile::System {
    int descriptor = -1;
    fs::path name; // of a temporary file that has one
    std::optional<RemovalOnSignal> removal;

    ~System() {
        if (descriptor >= 0) ::close(descriptor);
        if (!name.empty()) unlink(name.c_str());
    }
};

OutputFile::OutputFile() = default;
OutputFile::OutputFile(std::unique_ptr<System> system) : system_(std::move(system)) {}
OutputFile::~OutputFile() = default;
OutputFile::OutputFile(OutputFile&&) noexcept = default;
OutputFile& OutputFile::operator=(OutputFile&&) noexcept = default;

OutputFile OutputFile::standard_output() {
    return stream(descriptor_path(STDOUT_FILENO));
}

OutputFile OutputFile::stream(const fs::path& file) {
    const fs::path real = behind_links(file);
    auto system = std::make_unique<System>();
    if (real.parent_path() == own_descriptors()) {
        const std::string number = real.filename();
        int own = -1;
        std::from_chars(number.data(), number.data() + number.size(), own);
        system->descriptor = fcntl(own, F_DUPFD_CLOEXEC, 0);
    } else {
        const int create = fs::exists(real) ? 0 : O_CREAT;
        system->descriptor =
            open(real.c_str(), O_WRONLY | O_TRUNC | O_NOCTTY | O_CLOEXEC | create, 0666);
    }
    if (system->descriptor < 0) fail();
    return OutputFile(std::move(system));
}

OutputFile OutputFile::temporary_in(const fs::path& folder, const fs::path& like) {
    auto system = std::make_unique<System>();
    system->descriptor = open_nameless(folder);
    if (system->descriptor < 0) {
        const fs::path name = temporary_name(folder);
        system->removal.emplace(name.native());
        system->descriptor = open(name.c_str(), O_RDWR | O_CREAT | O_EXCL | O_CLOEXEC, 0666);
        if (system->descriptor < 0) fail();
        system->name = name;
    }
    take_over_permissions(system->descriptor, like);
    return OutputFile(std::move(system));
}

std::size_t OutputFile::write(std::string_view bytes) {
    ssize_t written = -1;
    do
        written = ::write(system_->descriptor, bytes.data(), bytes.size());
    while (written < 0 && errno == EINTR);
    if (written < 0) fail();
    return static_cast<std::size_t>(written);
}

void OutputFile::replace(const fs::path& target) {
    bring_to_disk(system_->descriptor);
    // A nameless file cannot replace another: it gets a name for the moment between.
    const SignalsHeld held;
    if (system_->name.empty()) {
        const fs::path name = temporary_name(target.parent_path());
        if (linkat(AT_FDCWD, descriptor_path(system_->descriptor).c_str(), AT_FDCWD, name.c_str(),
                   AT_SYMLINK_FOLLOW) != 0)
            fail();
        system_->name = name;
    }
    if (rename(system_->name.c_str(), target.c_str()) != 0) fail();
    system_->name.clear();
}

void OutputFile::copy_over(const fs::path& target) {
    System to;
    to.descriptor = open(target.c_str(), O_WRONLY | O_CLOEXEC);
    if (to.descriptor < 0) fail();
    const off_t size = lseek(system_->descriptor, 0, SEEK_END);
    // A full disk is found before anything is lost, where the file system can tell.
    if (fallocate(to.descriptor, FALLOC_FL_KEEP_SIZE, 0, size) != 0 && errno == ENOSPC) fail();
    const SignalsHeld held;
    send_all(system_->descriptor, to.descriptor, size);
}

void OutputFile::close() {
    const int descriptor = system_->descriptor;
    system_->descriptor = -1;
    if (::close(descriptor) != 0) fail();
}

} // namespace kelvane
