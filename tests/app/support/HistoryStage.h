#pragma once

#include "app/components/Button.h"
#include "app/components/Label.h"
#include "app/pages/HistoryCard.h"
#include "app/pages/HistoryList.h"
#include "app/pages/HistoryView.h"
#include "tests/app/support/ByWords.h"
#include "tests/app/support/TestModel.h"

#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QScrollArea>
#include <QScrollBar>
#include <algorithm>
#include <string>
#include <vector>

namespace zelta::test {

/// The history page in a scroll area, as the window holds it, on a database that a test fills.
struct HistoryStage
{
    TestModel test;
    QScrollArea area;
    HistoryView& view {*new HistoryView(test.model)};

    HistoryStage()
    {
        area.setWidgetResizable(true);
        area.setFocusPolicy(Qt::NoFocus);
        area.setWidget(&view);
        area.resize(800, 700);
    }

    void save(const std::string& title, const std::string& module = "percent", Instant time = HandClock::noon)
    {
        ASSERT_TRUE(test.model.store().addHistory(
            {0, time, module, title, "Summary of " + title, "First of " + title + "\nSecond"}));
    }

    void saveMany(int count)
    {
        for (int i = 0; i < count; ++i)
            save(std::to_string(i), "percent", Instant(std::chrono::seconds(i)));
    }

    /// Shows the page and lets it make the cards around those in view.
    void show()
    {
        area.show();
        view.show();
        settle();
    }

    void settle()
    {
        test.clock.advance(std::chrono::seconds(1));
        // The list asks the page for another height, the page then the area: a few turns.
        for (int turn = 0; turn < 3; ++turn)
            QCoreApplication::sendPostedEvents();
    }

    void scrollTo(int y)
    {
        area.verticalScrollBar()->setValue(y);
        settle();
    }

    int end() const { return area.verticalScrollBar()->maximum(); }

    /// Whether cards cover what the window shows of the list, but for the gaps between them.
    bool isFilled() const
    {
        constexpr int gap = 10;
        const auto* list = view.findChild<HistoryList*>();
        const QRect seen
            = QRect(list->mapFrom(area.viewport(), QPoint()), area.viewport()->size()) & list->rect();
        int covered = seen.top() - 1;
        for (const HistoryCard* card : cards()) {
            if (card->y() <= covered + gap + 1)
                covered = std::max(covered, card->geometry().bottom());
        }
        return covered + gap >= seen.bottom();
    }

    /// From the top of the page down.
    std::vector<HistoryCard*> cards() const
    {
        std::vector<HistoryCard*> shown;
        for (auto* card : view.findChildren<HistoryCard*>()) {
            if (card->isVisible())
                shown.push_back(card);
        }
        std::sort(shown.begin(), shown.end(), [](auto* a, auto* b) { return a->y() < b->y(); });
        return shown;
    }

    std::vector<std::string> titles() const
    {
        std::vector<std::string> all;
        for (const HistoryCard* card : cards())
            all.push_back(card->entry().title);
        return all;
    }

    static QStringList texts(const QWidget& widget)
    {
        QStringList all;
        for (const auto* label : widget.findChildren<Label*>()) {
            if (label->isVisible())
                all << label->text();
        }
        return all;
    }

    static Button* detailsButton(const HistoryCard& card)
    {
        return named<Button>(card, QStringLiteral("Show details"));
    }

    Button* clearButton() const { return named<Button>(view, QStringLiteral("Clear history")); }
};

} // namespace zelta::test
