#include "tests/support/Oracle.h"

#include <fcntl.h>
#include <poll.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <csignal>
#include <stdexcept>

extern char** environ; // NOLINT(readability-redundant-declaration): not every libc declares it

namespace zelta::test {

Oracle::Oracle(std::string_view script, std::vector<std::string> arguments)
{
    std::signal(SIGPIPE, SIG_IGN);
    std::array<int, 2> toChild {};
    std::array<int, 2> fromChild {};
    if (pipe2(toChild.data(), O_CLOEXEC) != 0 || pipe2(fromChild.data(), O_CLOEXEC) != 0)
        throw std::runtime_error("no pipe for the oracle");

    std::vector<std::string> command {ZELTA_PYTHON, "-u",
                                      std::string(ZELTA_TESTS_DIR) + "/" + std::string(script)};
    command.insert(command.end(), arguments.begin(), arguments.end());
    std::vector<char*> argv;
    for (std::string& word : command)
        argv.push_back(word.data());
    argv.push_back(nullptr);

    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_adddup2(&actions, toChild[0], STDIN_FILENO);
    posix_spawn_file_actions_adddup2(&actions, fromChild[1], STDOUT_FILENO);
    const int failure = posix_spawn(&m_process, ZELTA_PYTHON, &actions, nullptr, argv.data(), environ);
    posix_spawn_file_actions_destroy(&actions);
    close(toChild[0]);
    close(fromChild[1]);
    m_input = toChild[1];
    m_output = fromChild[0];
    if (failure != 0)
        throw std::runtime_error("the oracle did not start");
    fcntl(m_input, F_SETFL, O_NONBLOCK);
}

Oracle::~Oracle()
{
    close(m_input);
    close(m_output);
    if (m_process > 0)
        waitpid(m_process, nullptr, 0);
}

std::vector<std::string> Oracle::ask(const std::vector<std::string>& questions)
{
    std::string output;
    for (const std::string& question : questions)
        output += question + '\n';

    std::vector<std::string> answers;
    answers.reserve(questions.size());
    std::size_t written = 0;
    std::vector<char> buffer(1 << 16);
    // Writing and reading take turns, so that neither pipe's limit can hold up both processes.
    while (answers.size() < questions.size()) {
        std::array<pollfd, 2> channels {{{m_output, POLLIN, 0}, {m_input, POLLOUT, 0}}};
        const nfds_t count = written < output.size() ? 2 : 1;
        if (poll(channels.data(), count, -1) < 0 && errno != EINTR)
            throw std::runtime_error("the oracle cannot be polled");
        if (count == 2 && channels[1].revents != 0) {
            const ssize_t n = write(m_input, output.data() + written, output.size() - written);
            if (n < 0 && errno != EAGAIN)
                throw std::runtime_error("the oracle stopped reading");
            written += n > 0 ? static_cast<std::size_t>(n) : 0;
        }
        if (channels[0].revents == 0)
            continue;
        const ssize_t n = read(m_output, buffer.data(), buffer.size());
        if (n <= 0)
            throw std::runtime_error("the oracle stopped answering");
        m_pending.append(buffer.data(), static_cast<std::size_t>(n));
        std::size_t begin = 0;
        for (std::size_t end = m_pending.find('\n'); end != std::string::npos;
             end = m_pending.find('\n', begin)) {
            answers.push_back(m_pending.substr(begin, end - begin));
            begin = end + 1;
        }
        m_pending.erase(0, begin);
    }
    return answers;
}

} // namespace zelta::test
