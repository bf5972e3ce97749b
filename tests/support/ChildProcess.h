#pragma once

#include <functional>
#include <optional>

namespace zelta::test {

/// A function run in a process of its own, which reports numbers through a pipe as it goes. The process ends
/// with the function, or when the object is destroyed.
///
///     ChildProcess child([&](auto& report) { report(store.addHistory(entry)); });
///     EXPECT_EQ(child.next(), 1);
class ChildProcess
{
public:
    using Report = std::function<void(int)>;

    explicit ChildProcess(const std::function<void(const Report&)>& work);
    ~ChildProcess();
    ChildProcess(const ChildProcess&) = delete;
    ChildProcess& operator=(const ChildProcess&) = delete;

    /// Waits for the next report; nothing when the process has ended without one more.
    std::optional<int> next();

    /// Ends it at once, as SIGKILL does, whatever it is doing. What it reported before can still be read.
    void kill();

private:
    int m_process = -1;
    int m_reports = -1;
};

/// Runs the work in a child process with the rights of a user who is not root, so that the permissions of
/// files hold for it. What the work returned, or nothing when it did not end by itself.
std::optional<int> asOrdinaryUser(const std::function<int()>& work);

} // namespace zelta::test
