#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace zelta::test {

/// Python as an independent authority: runs `tests/<script>` as a subprocess, writes one question per line
/// to its standard input and reads one answer per line from its standard output.
///
///     Oracle oracle("core/decimal_oracle.py");
///     const auto answers = oracle.ask({"+ 0.1 0.2", "* 3 4"});   // {"0.3", "12"}
///
/// A script that dies or answers too few lines throws std::runtime_error, which fails the test.
class Oracle
{
public:
    explicit Oracle(std::string_view script, std::vector<std::string> arguments = {});
    ~Oracle();
    Oracle(const Oracle&) = delete;
    Oracle& operator=(const Oracle&) = delete;

    /// One answer per question, in order; may be called any number of times. The script runs unbuffered.
    std::vector<std::string> ask(const std::vector<std::string>& questions);

private:
    int m_process = -1;
    int m_input = -1; ///< Written by us.
    int m_output = -1; ///< Read by us.
    std::string m_pending; ///< Read, but not yet a whole line.
};

} // namespace zelta::test
