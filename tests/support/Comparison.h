#pragma once

#include "tests/support/Oracle.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace zelta::test {

/// Our answers beside an oracle's. Asks in large batches, the last when it is destroyed, and fails the test
/// at the first twenty differences, or where nothing was asked.
class Comparison
{
public:
    explicit Comparison(std::string_view script)
        : m_oracle(script)
    { }
    ~Comparison() noexcept(false) // a script that died fails the test, as everywhere
    {
        flush();
        EXPECT_GT(m_count, 0U) << "nothing was compared";
    }
    Comparison(const Comparison&) = delete;
    Comparison& operator=(const Comparison&) = delete;

    void add(std::string question, std::string ours)
    {
        m_questions.push_back(std::move(question));
        m_ours.push_back(std::move(ours));
        if (m_questions.size() == 50'000)
            flush();
    }

private:
    void flush()
    {
        const std::vector<std::string> answers = m_oracle.ask(m_questions);
        for (std::size_t i = 0; i < answers.size() && m_failures < 20; ++i) {
            if (answers[i] == m_ours[i])
                continue;
            ++m_failures;
            ADD_FAILURE() << m_questions[i] << "\n  is   " << answers[i] << "\n  ours " << m_ours[i];
        }
        m_count += m_questions.size();
        m_questions.clear();
        m_ours.clear();
    }

    Oracle m_oracle;
    std::vector<std::string> m_questions;
    std::vector<std::string> m_ours;
    std::size_t m_count = 0;
    int m_failures = 0;
};

} // namespace zelta::test
