#include "app/pages/HistoryView.h"
#include "bench/Ratio.h"
#include "tests/app/support/TestModel.h"

#include <benchmark/benchmark.h>

#include <QApplication>
#include <chrono>
#include <string>

namespace {

using namespace zelta;

test::TestModel& model()
{
    static test::TestModel one;
    static const bool filled = [] {
        for (int i = 0; i < 500; ++i)
            one.model.store().addHistory({0, Instant(std::chrono::seconds(1'700'000'000 + i)), "percent",
                                          std::to_string(i) + " compared with 75", "Change X → Y: +50%",
                                          "Change X → Y: +50%  (increase)\nDifference (Y − X): 25"});
        return true;
    }();
    benchmark::DoNotOptimize(filled);
    return one;
}

/// From nothing to the first picture.
void open(benchmark::State& state)
{
    for (auto _ : state) {
        HistoryView view(model().model);
        view.resize(800, 700);
        view.show();
        benchmark::DoNotOptimize(view.grab(QRect(0, 0, 800, 700)));
        state.PauseTiming();
        view.hide();
        QApplication::processEvents();
        state.ResumeTiming();
    }
}

/// The longest time for which the window cannot answer while the other cards are made.
void nextCards(benchmark::State& state)
{
    using namespace std::chrono_literals;
    HistoryView view(model().model);
    view.resize(800, 700);
    view.show();
    QApplication::processEvents();
    for (auto _ : state) {
        model().clock.advance(1ms);
        QApplication::processEvents();
    }
}

/// A page that was seen before and has all its cards.
void openAgain(benchmark::State& state)
{
    using namespace std::chrono_literals;
    HistoryView view(model().model);
    view.resize(800, 700);
    view.show();
    model().clock.advance(10s);
    QApplication::processEvents();
    for (auto _ : state) {
        state.PauseTiming();
        view.hide();
        QApplication::processEvents(); // as the running program does; else the events of all rounds pile up
        state.ResumeTiming();
        view.show();
        benchmark::DoNotOptimize(view.grab(QRect(0, 0, 800, 700)));
    }
}

constexpr double frame = 1000.0 / 60;

BENCHMARK(open)->Name("history-open-500/ours")->Unit(benchmark::kMillisecond);
const bench::TimeBudget openBudget("history-open-500", 6 * frame);
BENCHMARK(nextCards)->Name("history-next-cards/ours")->Iterations(1)->Unit(benchmark::kMillisecond);
const bench::TimeBudget nextBudget("history-next-cards", frame);
BENCHMARK(openAgain)->Name("history-open-again-500/ours")->Unit(benchmark::kMillisecond);
const bench::TimeBudget againBudget("history-open-again-500", frame);

} // namespace
