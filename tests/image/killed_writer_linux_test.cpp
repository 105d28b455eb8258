// Writers that a signal ends on Linux, also where files cannot be without a name.
#include "image/safe_file.h"
#include "support/temporary_folder.h"

#include <gtest/gtest.h>

#include <cerrno>
#include <csignal>
#include <cstddef>
#include <fcntl.h>
#include <linux/filter.h>
#include <linux/seccomp.h>
#include <sys/prctl.h>
#include <sys/syscall.h>

namespace kelvane::test {
namespace {

// From now on the kernel answers this process as it does on FAT or NFS.
void refuse_nameless_files() {
    sock_filter filter[] = {
        BPF_STMT(BPF_LD | BPF_W | BPF_ABS, offsetof(seccomp_data, nr)),
        BPF_JUMP(BPF_JMP | BPF_JEQ | BPF_K, SYS_openat, 0, 3),
        BPF_STMT(BPF_LD | BPF_W | BPF_ABS, offsetof(seccomp_data, args[2])),
        BPF_JUMP(BPF_JMP | BPF_JSET | BPF_K, O_TMPFILE & ~O_DIRECTORY, 0, 1),
        BPF_STMT(BPF_RET | BPF_K, SECCOMP_RET_ERRNO | EOPNOTSUPP),
        BPF_STMT(BPF_RET | BPF_K, SECCOMP_RET_ALLOW),
    };
    const sock_fprog program{std::size(filter), filter};
    if (prctl(PR_SET_NO_NEW_PRIVS, 1, 0, 0, 0) != 0 ||
        prctl(PR_SET_SECCOMP, SECCOMP_MODE_FILTER, &program) != 0)
        std::_Exit(1);
}

std::ptrdiff_t files_in(const TemporaryFolder& folder) {
    return std::distance(std::filesystem::directory_iterator(folder.path()), {});
}

// Ends by `signal` in the middle, or writes all when there is none.
[[noreturn]] void write(const TemporaryFolder& folder, bool nameless, int signal) {
    if (!nameless) refuse_nameless_files();
    SafeFile file(folder / "s.scr");
    file.write("half ");
    if (files_in(folder) != (nameless ? 1 : 2)) std::_Exit(2);
    if (signal != 0) raise(signal);
    file.write("full");
    file.commit();
    std::_Exit(0);
}

TEST(KilledWriter, LeavesTheOldFileAlone) {
    const TemporaryFolder folder;
    write_text(folder / "s.scr", "before");
    for (const bool nameless : {true, false})
        for (const int signal : {SIGHUP, SIGINT, SIGTERM})
            EXPECT_EXIT(write(folder, nameless, signal), testing::KilledBySignal(signal), "");
    EXPECT_EXIT(write(folder, true, SIGKILL), testing::KilledBySignal(SIGKILL), "");
    EXPECT_EQ(file_text(folder / "s.scr"), "before");
    EXPECT_EXIT(write(folder, false, 0), testing::ExitedWithCode(0), "");
    EXPECT_EQ(file_text(folder / "s.scr"), "half full");
    EXPECT_EQ(files_in(folder), 1);
}

} // namespace
} // namespace kelvane::test
