#pragma once

#include "app/components/Flash.h"
#include "app/model/Text.h"
#include "app/pages/CalculatorDisplay.h"
#include "app/pages/CalculatorView.h"
#include "app/pages/TapePanel.h"
#include "tests/app/support/ByWords.h"
#include "tests/app/support/TestModel.h"

#include <gtest/gtest.h>

#include <QAction>
#include <QClipboard>
#include <QGuiApplication>
#include <QTest>
#include <algorithm>
#include <string>
#include <vector>

namespace zelta::test {

/// The page in a window of its own.
struct CalculatorStage
{
    TestModel test;
    CalculatorView page;

    CalculatorStage()
        : page(test.model)
    {
        QGuiApplication::clipboard()->clear();
        page.resize(800, 760);
        page.show();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&page));
    }

    /// Types characters; "\r" is Return.
    void type(const char* text)
    {
        for (const char* c = text; *c != '\0'; ++c) {
            if (*c == '\r')
                QTest::keyClick(&page, Qt::Key_Return);
            else
                QTest::sendKeyEvent(QTest::Click, &page, Qt::Key_unknown, QString(QLatin1Char(*c)),
                                    Qt::NoModifier);
        }
    }
    void key(Qt::Key key, Qt::KeyboardModifiers modifiers = {}) { QTest::keyClick(&page, key, modifiers); }

    std::string display() const { return toUtf8(page.findChild<CalculatorDisplay*>()->number()); }
    std::string clipboard() const { return toUtf8(QGuiApplication::clipboard()->text()); }
    std::string flash() const { return toUtf8(page.findChild<Flash*>()->text()); }
    TapePanel* tape() const { return page.findChild<TapePanel*>(); }
    CalculatorDisplay* screen() const { return page.findChild<CalculatorDisplay*>(); }

    std::vector<TapeLine*> lines() const
    {
        std::vector<TapeLine*> shown;
        for (TapeLine* line : page.findChildren<TapeLine*>()) {
            if (line->isVisible())
                shown.push_back(line);
        }
        std::ranges::sort(shown, {}, [](const TapeLine* line) { return line->y(); });
        return shown;
    }
    QAbstractButton* button(const char* name) const { return named<QAbstractButton>(page, toQt(name)); }
    bool shows(const char* text) const { return showsText(page, toQt(text)); }
    static QAction* action(const QWidget* owner, const char* text)
    {
        for (QAction* candidate : owner->actions()) {
            if (candidate->text() == toQt(text))
                return candidate;
        }
        return nullptr;
    }
    std::vector<HistoryEntry> history() { return test.model.store().history(500); }
};

} // namespace zelta::test
