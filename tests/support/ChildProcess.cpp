#include "tests/support/ChildProcess.h"

#include <fcntl.h>
#include <grp.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <csignal>
#include <stdexcept>

namespace zelta::test {

ChildProcess::ChildProcess(const std::function<void(const Report&)>& work)
{
    std::array<int, 2> reports {};
    if (pipe2(reports.data(), O_CLOEXEC) != 0)
        throw std::runtime_error("no pipe for the child");
    m_process = fork();
    if (m_process == 0) {
        close(reports[0]);
        work([&](int value) {
            if (write(reports[1], &value, sizeof value) != sizeof value)
                _exit(1);
        });
        _exit(0); // without the parent's exit handlers and leak check
    }
    close(reports[1]);
    m_reports = reports[0];
    if (m_process < 0)
        throw std::runtime_error("no child process");
}

ChildProcess::~ChildProcess()
{
    kill();
    close(m_reports);
}

std::optional<int> ChildProcess::next()
{
    int value = 0;
    return read(m_reports, &value, sizeof value) == sizeof value ? std::optional(value) : std::nullopt;
}

void ChildProcess::kill()
{
    if (m_process <= 0)
        return;
    ::kill(m_process, SIGKILL);
    waitpid(m_process, nullptr, 0);
    m_process = -1;
}

std::optional<int> asOrdinaryUser(const std::function<int()>& work)
{
    constexpr unsigned nobody = 65534;
    ChildProcess child([&](const ChildProcess::Report& report) {
        if (geteuid() == 0 && (setgroups(0, nullptr) != 0 || setgid(nobody) != 0 || setuid(nobody) != 0))
            return;
        report(work());
    });
    return child.next();
}

} // namespace zelta::test
