#include "tests/support/ChildRun.h"

#include <csignal>
#include <cstdlib>
#include <linux/capability.h>
#include <sys/resource.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

bool writeAll(int end, const QByteArray &bytes)
{
    int written = 0;
    while (written < bytes.size()) {
        const ssize_t more = ::write(end, bytes.constData() + written, bytes.size() - written);
        if (more <= 0)
            return false;
        written += int(more);
    }
    return true;
}

}

QByteArray ChildRun::run(const std::function<QByteArray()> &work)
{
    int ends[2];
    if (pipe(ends) != 0)
        return "no pipe";
    const pid_t child = fork();
    if (child == 0) {
        ::close(ends[0]);
        _exit(writeAll(ends[1], work()) ? 0 : 1);
    }
    ::close(ends[1]);
    QByteArray result;
    char part[4096];
    ssize_t count = 0;
    while ((count = ::read(ends[0], part, sizeof part)) > 0)
        result.append(part, int(count));
    ::close(ends[0]);
    int status = 1;
    const bool ended = child > 0 && waitpid(child, &status, 0) == child && WIFEXITED(status);
    return ended && WEXITSTATUS(status) == 0 ? result : QByteArray("crashed");
}

void ChildRun::limitFileSize(quint64 bytes)
{
    std::signal(SIGXFSZ, SIG_IGN); // a write that meets the limit fails instead
    const rlimit limit{bytes, bytes};
    if (setrlimit(RLIMIT_FSIZE, &limit) != 0)
        std::abort();
}

// The user stays: the folders above the test's own may be open to nobody else.
void ChildRun::dropRights()
{
    __user_cap_header_struct self{_LINUX_CAPABILITY_VERSION_3, 0};
    __user_cap_data_struct none[_LINUX_CAPABILITY_U32S_3] = {};
    if (syscall(SYS_capset, &self, none) != 0)
        std::abort();
}
