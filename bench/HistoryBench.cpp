#include "app/pages/HistoryView.h"
#include "bench/Ratio.h"
#include "tests/app/support/TestModel.h"

#include <benchmark/benchmark.h>

#include <QApplication>
#include <QPixmap>
#include <QScrollArea>
#include <QScrollBar>
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

/// The page as the window holds it.
struct Stage
{
    QScrollArea area;
    HistoryView* view = new HistoryView(model().model);

    Stage()
    {
        area.setWidgetResizable(true);
        area.setWidget(view);
        area.resize(800, 700);
    }

    QPixmap picture() { return area.grab(); }
};

/// From nothing to the first picture.
void open(benchmark::State& state)
{
    for (auto _ : state) {
        Stage stage;
        stage.area.show();
        benchmark::DoNotOptimize(stage.picture());
        state.PauseTiming();
        stage.area.hide();
        QApplication::processEvents();
        state.ResumeTiming();
    }
}

/// A page down to entries that were not seen before, the costliest step; from the end it leaps to the begin.
void pageDown(benchmark::State& state)
{
    Stage stage;
    stage.area.show();
    QApplication::processEvents();
    QScrollBar* bar = stage.area.verticalScrollBar();
    for (auto _ : state) {
        bar->setValue(bar->value() < bar->maximum() ? bar->value() + bar->pageStep() : 0);
        benchmark::DoNotOptimize(stage.picture());
    }
}

/// A page that was seen before and has all its cards.
void openAgain(benchmark::State& state)
{
    using namespace std::chrono_literals;
    Stage stage;
    stage.area.show();
    QApplication::processEvents();
    QScrollBar* bar = stage.area.verticalScrollBar();
    while (bar->value() < bar->maximum())
        bar->setValue(bar->value() + bar->pageStep());
    bar->setValue(0);
    model().clock.advance(10s);
    for (auto _ : state) {
        state.PauseTiming();
        stage.view->hide();
        QApplication::processEvents(); // as the running program does; else the events of all rounds pile up
        state.ResumeTiming();
        stage.view->show();
        benchmark::DoNotOptimize(stage.picture());
    }
}

constexpr double frame = 1000.0 / 60;

BENCHMARK(open)->Name("history-open-500/ours")->Unit(benchmark::kMillisecond);
const bench::TimeBudget openBudget("history-open-500", 6 * frame);
BENCHMARK(pageDown)->Name("history-page-down/ours")->Iterations(60)->Unit(benchmark::kMillisecond);
const bench::TimeBudget pageDownBudget("history-page-down", frame);
BENCHMARK(openAgain)->Name("history-open-again-500/ours")->Unit(benchmark::kMillisecond);
const bench::TimeBudget againBudget("history-open-again-500", frame);

} // namespace
