#include "app/model/SystemClock.h"
#include "tests/app/support/HandClock.h"

#include <gtest/gtest.h>
#include <sys/timerfd.h>

#include <QCoreApplication>
#include <QTest>
#include <chrono>
#include <ctime>
#include <filesystem>
#include <fstream>
#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace zelta {
namespace {

using namespace std::chrono_literals;

TEST(Clock, RunsAnActionOnceWhenItIsDueAndNotBefore)
{
    test::HandClock clock;
    int runs = 0;
    const Clock::Task task = clock.after(500ms, [&] { ++runs; });
    clock.advance(499ms);
    EXPECT_EQ(runs, 0);
    EXPECT_TRUE(task.isPending());
    clock.advance(1ms);
    EXPECT_EQ(runs, 1);
    EXPECT_FALSE(task.isPending());
    clock.advance(10s);
    EXPECT_EQ(runs, 1);
}

TEST(Clock, ReplacingOrDestroyingTheHandleCallsTheActionOff)
{
    test::HandClock clock;
    int first = 0;
    int second = 0;
    {
        Clock::Task task = clock.after(10ms, [&] { ++first; });
        task = clock.after(10ms, [&] { ++second; });
        clock.advance(5ms);
    }
    clock.advance(5ms);
    EXPECT_EQ(first, 0);
    EXPECT_EQ(second, 0);
}

TEST(Clock, RunsInOrderOfDueTimeWithThatTimeAsNow)
{
    test::HandClock clock;
    std::vector<Instant> seen;
    const auto late = clock.after(20ms, [&] { seen.push_back(clock.now()); });
    const auto early = clock.after(10ms, [&] { seen.push_back(clock.now()); });
    clock.advance(30ms);
    EXPECT_EQ(seen, (std::vector<Instant> {test::HandClock::noon + 10ms, test::HandClock::noon + 20ms}));
    EXPECT_EQ(clock.now(), test::HandClock::noon + 30ms);
}

TEST(Clock, SavesSettleOnlyWhenAChainOfSavesHasEnded)
{
    test::HandClock clock;
    int settled = 0;
    clock.setSavesSettledHandler([&] { ++settled; });
    Clock::Task second;
    const auto first = clock.after(
        10ms,
        [&] {
            second = clock.after(
                10ms, [] {}, Clock::Purpose::save);
        },
        Clock::Purpose::save);
    const auto display = clock.after(1s, [] {});
    EXPECT_TRUE(clock.hasPendingSaves());
    clock.advance(10ms);
    EXPECT_TRUE(clock.hasPendingSaves());
    EXPECT_EQ(settled, 0);
    clock.advance(10ms);
    EXPECT_FALSE(clock.hasPendingSaves());
    EXPECT_EQ(settled, 1);
}

TEST(Clock, RunsSavesAtOnceWhenAskedWithThoseThatTheyStart)
{
    test::HandClock clock;
    int written = 0;
    int shown = 0;
    Clock::Task second;
    const auto display = clock.after(1ms, [&] { ++shown; });
    const auto first = clock.after(
        10ms,
        [&] {
            second = clock.after(
                10ms, [&] { ++written; }, Clock::Purpose::save);
        },
        Clock::Purpose::save);
    clock.runSaves();
    EXPECT_EQ(written, 1);
    EXPECT_EQ(shown, 0);
    EXPECT_FALSE(clock.hasPendingSaves());
    clock.advance(1s);
    EXPECT_EQ(written, 1);

    std::function<void()> fail = [&] { second = clock.after(10ms, fail, Clock::Purpose::save); };
    fail();
    clock.runSaves(); // comes back though each save fails
    EXPECT_TRUE(clock.hasPendingSaves());
}

TEST(Clock, ACancelledSaveIsNoLongerPending)
{
    test::HandClock clock;
    int settled = 0;
    clock.setSavesSettledHandler([&] { ++settled; });
    auto save = clock.after(
        10ms, [] {}, Clock::Purpose::save);
    save = clock.after(
        20ms, [] {}, Clock::Purpose::save);
    EXPECT_TRUE(clock.hasPendingSaves());
    EXPECT_EQ(settled, 0) << "the next one was there before the first was called off";
    save.cancel();
    EXPECT_FALSE(clock.hasPendingSaves());
    EXPECT_EQ(settled, 1);
}

/// The kernel's timers that this process has, with what the kernel says of each.
std::map<int, std::string> kernelTimers()
{
    std::map<int, std::string> all;
    for (const auto& entry : std::filesystem::directory_iterator("/proc/self/fd")) {
        std::error_code gone; // the folder's own descriptor
        if (std::filesystem::read_symlink(entry.path(), gone) != "anon_inode:[timerfd]")
            continue;
        std::ifstream file("/proc/self/fdinfo" / entry.path().filename());
        all[std::stoi(entry.path().filename())] = {std::istreambuf_iterator<char>(file), {}};
    }
    return all;
}

/// What the kernel says is left of a timer, in whole seconds.
std::chrono::seconds secondsLeft(const std::string& kernelSays)
{
    constexpr std::string_view label = "it_value: (";
    const std::size_t number = kernelSays.find(label);
    return number == std::string::npos
        ? -1s
        : std::chrono::seconds(std::stol(kernelSays.substr(number + label.size())));
}

/// The clock that counts sleep too.
std::chrono::nanoseconds sinceBoot()
{
    timespec time {};
    clock_gettime(CLOCK_BOOTTIME, &time);
    return std::chrono::seconds(time.tv_sec) + std::chrono::nanoseconds(time.tv_nsec);
}

TEST(SystemClock, LongDelaysGoOnWhileTheComputerSleeps)
{
    const auto before = kernelTimers();
    SystemClock clock;
    int runs = 0;
    const auto start = sinceBoot();
    Clock::Task task = clock.after(2h, [&] { ++runs; });
    auto timers = kernelTimers();
    std::erase_if(timers, [&before](const auto& timer) { return before.contains(timer.first); });
    ASSERT_EQ(timers.size(), 1U);
    const auto& [timer, kernelSays] = *timers.begin();
    constexpr auto boottime = "clockid: 7\n";
    EXPECT_NE(kernelSays.find(boottime), std::string::npos) << kernelSays;
    const auto left = secondsLeft(kernelSays);
    EXPECT_LE(left, 2h);
    EXPECT_GE(left, 2h - (sinceBoot() - start) - 1s) << "whole seconds";

    itimerspec soon {};
    soon.it_value.tv_nsec = 1;
    timerfd_settime(timer, 0, &soon, nullptr); // as if two hours had been slept through
    EXPECT_TRUE(QTest::qWaitFor([&runs] { return runs > 0; }));
    QCoreApplication::processEvents();
    EXPECT_EQ(runs, 1);
    EXPECT_FALSE(task.isPending());
    EXPECT_EQ(kernelTimers(), before);

    task = clock.after(2h, [&] { ++runs; });
    task.cancel();
    EXPECT_EQ(kernelTimers(), before) << "called off";
}

TEST(SystemClock, ShortDelaysRunOnce)
{
    SystemClock clock;
    int runs = 0;
    const Clock::Task task = clock.after(1ms, [&] { ++runs; });
    EXPECT_TRUE(QTest::qWaitFor([&runs] { return runs > 0; }));
    EXPECT_FALSE(task.isPending());
}

} // namespace
} // namespace zelta
