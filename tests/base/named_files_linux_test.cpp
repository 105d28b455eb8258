// Writers on file systems that have no nameless files, which are killed.
#include "base/safe_file.h"
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
    prctl(PR_SET_NO_NEW_PRIVS, 1, 0, 0, 0);
    prctl(PR_SET_SECCOMP, SECCOMP_MODE_FILTER, &program);
}

TEST(SafeFile, SignalsRemoveANamedFile) {
    const TemporaryFolder folder;
    const auto names = [&] {
        return std::distance(std::filesystem::directory_iterator(folder.path()), {});
    };
    const auto write = [&](int signal) {
        refuse_nameless_files();
        SafeFile file(folder / "s.scr");
        raise(names() == 1 ? signal : SIGABRT);
        file.commit();
        std::_Exit(names() == 1 ? 0 : 1);
    };
    for (const int signal : {SIGHUP, SIGINT, SIGTERM})
        EXPECT_EXIT(write(signal), testing::KilledBySignal(signal), "");
    EXPECT_EQ(names(), 0);
    EXPECT_EXIT(write(0), testing::ExitedWithCode(0), "");
}

} // namespace
} // namespace kelvane::test
