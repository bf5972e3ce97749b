#include "app/model/Clock.h"

#include <utility>
#include <vector>

namespace zelta {

struct Clock::Saves
{
    std::vector<std::weak_ptr<Work>> pending;
    std::function<void()> whenSettled;

    void settle(const std::shared_ptr<Work>& work)
    {
        std::erase_if(pending, [&work](const auto& one) { return one.lock() == work; });
        if (pending.empty() && whenSettled)
            whenSettled();
    }
};

struct Clock::Work
{
    std::function<void()> action; ///< Empty once it has run or has been called off.
    std::shared_ptr<void> timer;
    std::shared_ptr<Saves> saves; ///< Set for saves only.
};

Clock::Task& Clock::Task::operator=(Task&& other) noexcept
{
    if (this != &other) {
        cancel();
        m_work = std::move(other.m_work);
    }
    return *this;
}

Clock::Task::~Task()
{
    cancel();
}

bool Clock::Task::isPending() const
{
    return m_work && m_work->action;
}

void Clock::Task::cancel()
{
    if (!isPending())
        return;
    m_work->action = nullptr;
    m_work->timer.reset();
    if (const auto saves = std::exchange(m_work->saves, nullptr))
        saves->settle(m_work);
}

Clock::Clock()
    : m_saves(std::make_shared<Saves>())
{ }

Clock::~Clock() = default;

Clock::Task Clock::after(std::chrono::milliseconds delay, std::function<void()> action, Purpose purpose)
{
    auto work = std::make_shared<Work>();
    work->action = std::move(action);
    if (purpose == Purpose::save) {
        work->saves = m_saves;
        m_saves->pending.push_back(work);
    }
    work->timer = schedule(delay, [weak = std::weak_ptr<Work>(work)] {
        if (const auto strong = weak.lock())
            run(strong);
    });
    return Task(std::move(work));
}

void Clock::run(const std::shared_ptr<Work>& work)
{
    const auto action = std::exchange(work->action, nullptr);
    const auto timer = std::exchange(work->timer, nullptr);
    const auto saves = std::exchange(work->saves, nullptr);
    if (action)
        action();
    // Counted down after the action: one save that starts the next leaves no gap in which the process could
    // end.
    if (saves)
        saves->settle(work);
}

bool Clock::hasPendingSaves() const
{
    return !m_saves->pending.empty();
}

void Clock::runSaves()
{
    // A paragraph hands on its text, then its note is written; a write that fails is due again and again.
    constexpr int rounds = 2;
    for (int round = 0; round < rounds; ++round) {
        const auto due = m_saves->pending;
        for (const auto& work : due) {
            if (const auto strong = work.lock())
                run(strong);
        }
    }
}

void Clock::setSavesSettledHandler(std::function<void()> handler)
{
    m_saves->whenSettled = std::move(handler);
}

} // namespace zelta
