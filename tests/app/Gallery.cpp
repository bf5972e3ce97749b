// A board of the components for people who work on the look: `gallery [--dark] [--question]`.

#include "app/components/Card.h"
#include "app/components/Columns.h"
#include "app/components/ConfirmDialog.h"
#include "app/components/EmptyState.h"
#include "app/components/Flash.h"
#include "app/components/IconButton.h"
#include "app/components/InfoNote.h"
#include "app/components/Label.h"
#include "app/components/ModuleGlyph.h"
#include "app/components/NumberField.h"
#include "app/components/Picker.h"
#include "app/components/PillTabs.h"
#include "app/components/SwapButton.h"
#include "app/components/Switch.h"
#include "app/components/WrappingRow.h"
#include "app/look/DesktopLook.h"
#include "app/model/SystemClock.h"

#include <QApplication>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QMainWindow>
#include <QMenuBar>
#include <QScrollArea>
#include <QVBoxLayout>

using namespace zelta;

namespace {

Card* buttons(QWidget* parent)
{
    auto* card = new Card(QStringLiteral("Buttons"), "hand.tap.fill", parent);
    auto* row = new WrappingRow(card);
    row->add(new Button(QStringLiteral("Copy note"), "doc.on.doc"));
    auto* disabled = new Button(QStringLiteral("Copy note"), "doc.on.doc");
    disabled->setEnabled(false);
    row->add(disabled);
    auto* copied = new Button(QStringLiteral("Copy note"), "doc.on.doc");
    copied->showConfirmation(QStringLiteral("Copied"));
    row->add(copied);
    auto* remove = new Button(QStringLiteral("Delete"), "trash");
    remove->setInk(Theme::Token::downInk);
    row->add(remove);
    auto* destructive = new Button(QStringLiteral("Clear history"));
    destructive->setLook(Button::Look::destructive);
    row->add(destructive);
    auto* details = new Button(QStringLiteral("Show details"), "chevron-down");
    details->setLook(Button::Look::borderless);
    details->setSize(Button::Size::small);
    details->setInk(Theme::Token::accentInk);
    row->add(details);
    row->add(new SwapButton(QStringLiteral("Swap"), Module::converter));
    auto* bordered = new IconButton("arrow.left.arrow.right", QStringLiteral("Swap"));
    bordered->setLook(Button::Look::bordered);
    row->add(bordered);
    auto* done = new IconButton("doc.on.doc", QStringLiteral("Copy"));
    done->setConfirming(true);
    row->add(done);
    card->content()->addWidget(row);
    return card;
}

Card* fields(QWidget* parent)
{
    auto* card = new Card(QStringLiteral("Fields"), "number", parent);
    auto* row = new WrappingRow(card, 18, 14);
    auto* empty
        = new NumberField(QStringLiteral("Value X"), QStringLiteral("The part, or the starting point"));
    empty->setPlaceholder(QStringLiteral("0"));
    empty->setFieldWidth(200);
    row->add(empty);
    auto* wrong = new NumberField(QStringLiteral("Percentage"), {});
    wrong->setSuffix(QStringLiteral("%"));
    wrong->setText(QStringLiteral("abc"));
    row->add(wrong);
    auto* picker = new Picker(QStringLiteral("From"));
    picker->setFixedWidth(210);
    picker->addEntry(QStringLiteral("Mile"), QStringLiteral("mi"), QStringLiteral("mi"));
    picker->addEntry(QStringLiteral("Kilometre"), QStringLiteral("km"), QStringLiteral("km"));
    picker->addEntry(QStringLiteral("Inch"), QStringLiteral("in"), QStringLiteral("in"));
    row->add(picker);
    auto* search = new QLineEdit;
    search->setFixedSize(180, 32);
    search->setClearButtonEnabled(true);
    search->setText(QStringLiteral("search"));
    row->add(search);
    auto* off = new Switch(QStringLiteral("Off"), {});
    row->add(off);
    auto* on = new Switch(QStringLiteral("On"), {});
    on->setChecked(true);
    row->add(on);
    card->content()->addWidget(row);
    return card;
}

QWidget* board(Clock& clock)
{
    auto* page = new QWidget;
    auto* column = new QVBoxLayout(page);
    column->setContentsMargins(Metric::pagePadding, Metric::pagePadding, Metric::pagePadding,
                               Metric::pagePadding);
    column->setSpacing(Metric::partSpacing);
    auto* glyphs = new QHBoxLayout;
    for (const Module module : allCases<Module>())
        glyphs->addWidget(new ModuleGlyph(symbol(module), Theme::tint(module), 38));
    auto* flash = new Flash(clock, std::chrono::milliseconds(900));
    flash->hold(QStringLiteral("Saved to history"));
    glyphs->addStretch(1);
    glyphs->addWidget(flash);
    column->addLayout(glyphs);
    column->addWidget(
        new PillTabs({{QStringLiteral("a"), QStringLiteral("X is what % of Y"), "pie-slice"},
                      {QStringLiteral("b"), QStringLiteral("Increase / decrease"), "up-down-arrows"}},
                     Module::percent));
    column->addWidget(new Columns(300, buttons(page), fields(page)));
    column->addWidget(new InfoNote(
        QStringLiteral("“X is this much of Y” answers 50 is what % of 75. “Change X → Y” measures the move "
                       "from X to Y against X alone, so it reads differently going the other way.")));
    auto* empty = new Card(page);
    empty->content()->addWidget(new EmptyState("clock.arrow.circlepath", QStringLiteral("Nothing saved yet"),
                                               QStringLiteral("Calculations are saved automatically.")));
    column->addWidget(empty);
    column->addStretch(1);
    return page;
}

} // namespace

int main(int argc, char** argv)
{
    QApplication application(argc, argv);
    const QStringList arguments = QApplication::arguments();
    if (arguments.contains(QStringLiteral("--dark"))) {
        QPalette dark;
        dark.setColor(QPalette::Window, Qt::black);
        QApplication::setPalette(dark);
    }
    const DesktopLook look(application);
    SystemClock clock;
    QMainWindow window;
    QMenu* menu = window.menuBar()->addMenu(QStringLiteral("&Go"));
    menu->addAction(QStringLiteral("Calculator"))->setShortcut(QKeySequence(QStringLiteral("Ctrl+1")));
    menu->addAction(QStringLiteral("Percentage"))->setShortcut(QKeySequence(QStringLiteral("Ctrl+2")));
    menu->addSeparator();
    menu->addAction(QStringLiteral("Not now"))->setEnabled(false);
    window.menuBar()->addMenu(QStringLiteral("&Help"));
    auto* area = new QScrollArea;
    area->setFrameShape(QFrame::NoFrame);
    area->setWidgetResizable(true);
    area->setWidget(board(clock));
    window.setCentralWidget(area);
    window.resize(1120, 760);
    window.show();
    if (arguments.contains(QStringLiteral("--question")))
        ConfirmDialog::ask(
            window,
            {QStringLiteral("Delete this note?"),
             QStringLiteral("“Picnic on Saturday” will be deleted for good — Zelta Basic has no "
                            "Trash. This cannot be undone."),
             QStringLiteral("Delete Note")},
            [] {});
    return QApplication::exec();
}
