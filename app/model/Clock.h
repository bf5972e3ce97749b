#pragma once

#include "core/Instant.h"

#include <chrono>
#include <functional>
#include <memory>
#include <utility>

namespace zelta {

/// The only source of "now" and of delayed work, so that a test can move time by hand.
///
///     m_reset = clock.after(500ms, [this] { setMarked(false); });   // replaces and cancels an earlier reset
///
/// Delays are monotonic: they do not care when somebody sets the wall clock.
class Clock
{
    struct Work;

public:
    /// What a delayed action is for. The process outlives its closed window until no `save` is pending.
    enum class Purpose { display, save };

    /// Handle of a delayed action. Replacing, destroying or cancelling it calls the action off.
    class Task
    {
    public:
        Task() = default;
        Task(Task&& other) noexcept = default;
        Task& operator=(Task&& other) noexcept;
        ~Task();
        Task(const Task&) = delete;
        Task& operator=(const Task&) = delete;

        [[nodiscard]] bool isPending() const;
        void cancel();

    private:
        friend class Clock;
        explicit Task(std::shared_ptr<Work> work)
            : m_work(std::move(work))
        { }

        std::shared_ptr<Work> m_work;
    };

    Clock();
    virtual ~Clock();
    Clock(const Clock&) = delete;
    Clock& operator=(const Clock&) = delete;

    /// The wall clock's time.
    [[nodiscard]] virtual Instant now() const = 0;

    /// Runs `action` once, `delay` from now, on this thread.
    [[nodiscard]] Task after(std::chrono::milliseconds delay, std::function<void()> action,
                             Purpose purpose = Purpose::display);

    [[nodiscard]] bool hasPendingSaves() const;

    /// Runs the pending saves at once, and those that they start: for an end that does not wait.
    void runSaves();

    /// Called each time the last pending save has run or has been called off.
    void setSavesSettledHandler(std::function<void()> handler);

protected:
    /// Runs the action it stands for, unless that was called off.
    using Fire = std::function<void()>;

    /// Arranges for `fire` to be called after `delay`; destroying the result calls it off.
    virtual std::shared_ptr<void> schedule(std::chrono::milliseconds delay, Fire fire) = 0;

private:
    struct Saves;
    static void run(const std::shared_ptr<Work>& work);

    std::shared_ptr<Saves> m_saves;
};

} // namespace zelta
