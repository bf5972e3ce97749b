#pragma once

#include "app/pages/SelectableTextEditor.h"
#include "app/pages/TextBlockEditor.h"
#include "tests/app/support/HandClock.h"

#include <gtest/gtest.h>

#include <QKeyEvent>
#include <QTest>
#include <string>
#include <string_view>
#include <vector>

namespace zelta::test {

/// One paragraph's row in a window of its own.
struct ParagraphStage
{
    HandClock clock;
    TextBlockEditor row {clock};
    SelectableTextEditor& editor = *row.editor();
    std::vector<std::string> published;

    explicit ParagraphStage(std::string_view text = {})
    {
        QObject::connect(&row, &TextBlockEditor::published, &row,
                         [this](const std::string& value) { published.push_back(value); });
        row.setValue(text);
        row.resize(500, 400);
        row.show();
        EXPECT_TRUE(QTest::qWaitForWindowExposed(&row));
        row.activateWindow();
        editor.setFocus();
    }

    void type(const QString& text)
    {
        for (const QChar c : text) {
            QKeyEvent press(QEvent::KeyPress, 0, Qt::NoModifier, QString(c));
            QCoreApplication::sendEvent(&editor, &press);
        }
    }
    void key(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier)
    {
        QTest::keyClick(&editor, key, modifiers);
    }
    void undo() { key(Qt::Key_Z, Qt::ControlModifier); }
    int caret() const { return editor.textCursor().position(); }
    void setCaret(int position)
    {
        QTextCursor cursor = editor.textCursor();
        cursor.setPosition(position);
        editor.setTextCursor(cursor);
    }
};

inline QString longLine(qsizetype length)
{
    QString text;
    while (text.size() < length)
        text += QStringLiteral("words of a long line ");
    return text;
}

} // namespace zelta::test
