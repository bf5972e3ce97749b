#include "app/shell/EditMenu.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QClipboard>
#include <QLabel>
#include <QLineEdit>
#include <QMenuBar>
#include <QMimeData>
#include <QTest>
#include <QTextEdit>
#include <QVBoxLayout>

namespace zelta {
namespace {

/// A text in the clipboard that counts how often it is asked for.
class CountingData final : public QMimeData
{
public:
    explicit CountingData(int& questions)
        : m_questions(questions)
    {
        setText(QStringLiteral("offered"));
    }

    [[nodiscard]] bool hasFormat(const QString& type) const override
    {
        ++m_questions;
        return QMimeData::hasFormat(type);
    }

private:
    int& m_questions;
};

/// A window with the menu, a field, a paragraph and a text that can be selected.
struct EditMenuTest : testing::Test
{
    QWidget window;
    EditMenu menu {&window};
    QLineEdit field;
    QTextEdit paragraph;
    QLabel label {QStringLiteral("March 2026")};

    void SetUp() override
    {
        auto* column = new QVBoxLayout(&window);
        for (QWidget* text : {static_cast<QWidget*>(&field), static_cast<QWidget*>(&paragraph),
                              static_cast<QWidget*>(&label)})
            column->addWidget(text);
        label.setTextInteractionFlags(Qt::TextSelectableByMouse);
        QGuiApplication::clipboard()->clear();
        window.show();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    }

    [[nodiscard]] QAction* entry(const char* name) const
    {
        for (QAction* action : menu.actions()) {
            if (action->text().remove(QLatin1Char('&')) == QLatin1String(name))
                return action;
        }
        return nullptr;
    }
    /// The entries that can be chosen, from top to bottom.
    [[nodiscard]] std::string able() const
    {
        QStringList names;
        for (const QAction* action : menu.actions()) {
            if (action->isEnabled() && !action->isSeparator())
                names += action->text().remove(QLatin1Char('&'));
        }
        return names.join(QLatin1String(", ")).toStdString();
    }

    static std::string clipboard() { return QGuiApplication::clipboard()->text().toStdString(); }

    /// Goes through all entries with a text that a person writes.
    template <class Edit, class Text> void walkThrough(Edit& edit, Text text)
    {
        edit.setFocus();
        Q_EMIT menu.aboutToShow();
        EXPECT_EQ(able(), "");
        QTest::keyClicks(&edit, QStringLiteral("12"));
        EXPECT_EQ(able(), "Undo, Select All");
        entry("Select All")->trigger();
        EXPECT_EQ(able(), "Undo, Cut, Copy, Delete, Select All");
        entry("Copy")->trigger();
        EXPECT_EQ(clipboard(), "12");
        EXPECT_EQ(text(), "12");
        QGuiApplication::clipboard()->clear();
        Q_EMIT menu.aboutToShow();
        entry("Delete")->trigger();
        EXPECT_EQ(text(), "");
        EXPECT_EQ(clipboard(), "") << "deleted, not cut";
        EXPECT_EQ(able(), "Undo");
        entry("Undo")->trigger();
        EXPECT_EQ(text(), "12");
        EXPECT_TRUE(entry("Redo")->isEnabled());
        entry("Redo")->trigger();
        EXPECT_EQ(text(), "");
        entry("Undo")->trigger();
        entry("Select All")->trigger();
        entry("Cut")->trigger();
        EXPECT_EQ(text(), "");
        EXPECT_EQ(clipboard(), "12");
        EXPECT_EQ(able(), "Undo, Paste");
        entry("Paste")->trigger();
        EXPECT_EQ(text(), "12");
    }
};

TEST_F(EditMenuTest, ActsOnTheFieldWithTheFocus)
{
    walkThrough(field, [this] { return field.text().toStdString(); });
    EXPECT_EQ(paragraph.toPlainText(), QString());
}

TEST_F(EditMenuTest, ActsOnTheParagraphWithTheFocus)
{
    walkThrough(paragraph, [this] { return paragraph.toPlainText().toStdString(); });
    EXPECT_EQ(field.text(), QString());
}

TEST_F(EditMenuTest, ChangesNothingInAFieldThatIsOnlyRead)
{
    field.setText(QStringLiteral("12"));
    field.setReadOnly(true);
    field.setFocus();
    field.selectAll();
    EXPECT_EQ(able(), "Copy, Select All");
    field.clearFocus();
    EXPECT_EQ(able(), "");
}

TEST_F(EditMenuTest, FollowsAParagraphThatIsEmptied)
{
    paragraph.setPlainText(QStringLiteral("a"));
    paragraph.setFocus();
    Q_EMIT menu.aboutToShow();
    EXPECT_EQ(able(), "Select All");
    QTest::keyClick(&paragraph, Qt::Key_Delete);
    EXPECT_EQ(able(), "Undo");
    QTest::keyClicks(&paragraph, QStringLiteral("b"));
    EXPECT_EQ(able(), "Undo, Select All");
}

TEST_F(EditMenuTest, DeletesOnlyWhatIsSelected)
{
    paragraph.setPlainText(QStringLiteral("two words"));
    paragraph.setFocus();
    QTextCursor cursor = paragraph.textCursor();
    cursor.movePosition(QTextCursor::EndOfWord, QTextCursor::KeepAnchor);
    paragraph.setTextCursor(cursor);
    entry("Delete")->trigger();
    EXPECT_EQ(paragraph.toPlainText(), QStringLiteral(" words"));
}

TEST_F(EditMenuTest, CopiesWhatIsSelectedOfAShownText)
{
    label.setFocus();
    EXPECT_EQ(able(), "Select All");
    label.setSelection(0, 5);
    Q_EMIT menu.aboutToShow();
    EXPECT_EQ(able(), "Copy, Select All");
    entry("Copy")->trigger();
    EXPECT_EQ(clipboard(), "March");
    entry("Select All")->trigger();
    EXPECT_EQ(label.selectedText(), QStringLiteral("March 2026"));
}

TEST_F(EditMenuTest, CopiesFromAShownTextByKey)
{
    QMenuBar bar(&window);
    bar.addMenu(&menu);
    bar.show();
    label.setFocus();
    label.setSelection(0, 5);
    bar.setFocus(Qt::MenuBarFocusReason);
    ASSERT_TRUE(bar.hasFocus());
    Q_EMIT menu.aboutToShow();
    entry("Copy")->trigger();
    EXPECT_EQ(clipboard(), "March");
}

TEST_F(EditMenuTest, OffersPasteAsSoonAsThereIsText)
{
    field.setFocus();
    Q_EMIT menu.aboutToShow();
    EXPECT_EQ(able(), "");
    QGuiApplication::clipboard()->setText(QStringLiteral("from elsewhere"));
    EXPECT_EQ(able(), "Paste");
    QGuiApplication::clipboard()->setMimeData(new QMimeData);
    Q_EMIT menu.aboutToShow();
    EXPECT_EQ(able(), "");
}

TEST_F(EditMenuTest, OffersPasteOfWhatTheFocusedTextTakes)
{
    auto* styled = new QMimeData;
    styled->setHtml(QStringLiteral("<b>12</b>"));
    QGuiApplication::clipboard()->setMimeData(styled);
    paragraph.setFocus();
    Q_EMIT menu.aboutToShow();
    EXPECT_TRUE(entry("Paste")->isEnabled());
    field.setFocus();
    Q_EMIT menu.aboutToShow();
    EXPECT_FALSE(entry("Paste")->isEnabled()) << "a field has no use for it";
}

TEST_F(EditMenuTest, CopiesNothingOverWhatWasCopied)
{
    label.setFocusPolicy(Qt::StrongFocus);
    label.setFocus();
    label.setSelection(0, 5);
    Q_EMIT menu.aboutToShow();
    entry("Copy")->trigger();
    ASSERT_EQ(clipboard(), "March");
    label.setText(QStringLiteral("April 2026"));
    label.grab();
    ASSERT_FALSE(label.hasSelectedText());
    entry("Copy")->trigger();
    EXPECT_EQ(clipboard(), "March");
}

TEST_F(EditMenuTest, AsksTheClipboardsOwnerWhenItIsOpened)
{
    int questions = 0;
    field.setFocus();
    QGuiApplication::clipboard()->setMimeData(new CountingData(questions));
    QTest::keyClicks(&field, QStringLiteral("12"));
    field.selectAll();
    paragraph.setFocus();
    EXPECT_EQ(questions, 0) << "it may hang";
    Q_EMIT menu.aboutToShow();
    EXPECT_GT(questions, 0);
    EXPECT_EQ(able(), "Paste");
}

} // namespace
} // namespace zelta
