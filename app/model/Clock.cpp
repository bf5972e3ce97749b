#include "app/model/Clock.h"

#include <utility>

namespace zelta {

struct Clock::Saves
{
    int pending = 0;
    std::function<void()> whenSettled;

    void settleOne()
    {
        if (--pending == 0 && whenSettled)
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
        saves->settleOne();
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
        ++m_saves->pending;
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
        saves->settleOne();
}

bool Clock::hasPendingSaves() const
{
    return m_saves->pending > 0;
}

void Clock::setSavesSettledHandler(std::function<void()> handler)
{
    m_saves->whenSettled = std::move(handler);
}

} // namespace zelta
