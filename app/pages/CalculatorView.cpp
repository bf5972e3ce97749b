#include "app/pages/CalculatorView.h"

#include "app/components/Card.h"
#include "app/components/Clipboard.h"
#include "app/components/Flash.h"
#include "app/components/InfoNote.h"
#include "app/components/KeyMonitor.h"
#include "app/components/Label.h"
#include "app/components/ScrollArea.h"
#include "app/look/Theme.h"
#include "app/model/AppModel.h"
#include "app/model/Text.h"
#include "app/pages/CalculatorDisplay.h"
#include "app/pages/Keypad.h"
#include "app/pages/PlainColumn.h"
#include "app/pages/ShortcutsPanel.h"
#include "app/pages/TapePanel.h"

#include <QEvent>
#include <QKeyEvent>
#include <QVBoxLayout>
#include <algorithm>

namespace zelta {

namespace {

constexpr std::chrono::milliseconds flashTime {900};

// The keypad takes what the tape leaves it, within bounds: 318 in the smallest window.
constexpr int narrowKeypad = 280;
constexpr int wideKeypad = 380;
constexpr int narrowTape = 278;

/// From here on a shorter tape and the shortcuts fit the window together.
constexpr int roomyWindow = 730;
constexpr int shortTape = 240;

} // namespace

CalculatorView::CalculatorView(AppModel& model, QWidget* parent)
    : QWidget(parent)
    , m_model(model)
{
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Expanding);
    m_leftColumn = makeLeftColumn();
    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(Metric::partSpacing);
    row->addWidget(m_leftColumn);
    row->addWidget(makeRightColumn(), 1);
    makeDisplayMenu();
    new KeyMonitor(this, [this](const QKeyEvent& event) { return actionFor(event); });
    refresh();
}

QWidget* CalculatorView::makeLeftColumn()
{
    constexpr int belowDisplay = 14 - CalculatorDisplay::edge;
    constexpr int aboveFootnote = 13;
    constexpr int aboveNote = 10;
    auto* column = new QWidget(this);
    auto* card = new Card(column);
    m_keypadCard = card;
    QMargins margins = card->layout()->contentsMargins();
    margins.setTop(margins.top() - CalculatorDisplay::edge);
    card->layout()->setContentsMargins(margins);
    m_keypadCard->installEventFilter(this);
    m_display = new CalculatorDisplay(card);
    connect(m_display, &CalculatorDisplay::copyRequested, this, &CalculatorView::copyDisplay);
    m_keypad = new Keypad(card);
    connect(m_keypad, &Keypad::pressed, this, &CalculatorView::press);
    card->content()->addWidget(m_display);
    card->content()->addSpacing(belowDisplay);
    card->content()->addWidget(m_keypad);
    card->content()->addSpacing(aboveFootnote);
    card->content()->addWidget(makeFootnote(card));

    auto* note = new InfoNote(
        QStringLiteral("Percent works in context: 200 + 10 % is 220, but 10 % on its own is 0.1. Pressing = "
                       "again repeats the last operation. The tape keeps this session's calculations; Save "
                       "to history keeps one for later."),
        column);
    QVBoxLayout* layout = plainColumn(column, 0);
    layout->addWidget(card);
    layout->addSpacing(aboveNote);
    layout->addWidget(note);
    layout->addStretch(1);
    return column;
}

QWidget* CalculatorView::makeFootnote(QWidget* parent)
{
    constexpr int height = 16;
    auto* footnote = new QWidget(parent);
    footnote->setFixedHeight(height);
    auto* hint = new Label(QStringLiteral("Right-click the display to copy or save"),
                           Theme::FontRole::caption, Theme::Token::textSecondary, footnote);
    m_flash = new Flash(m_model.clock(), flashTime, footnote);
    m_flash->hide();
    connect(m_flash, &Flash::showingChanged, this, [this, hint](bool isShowing) {
        m_flash->setVisible(isShowing);
        hint->setVisible(!isShowing);
    });
    auto* row = new QHBoxLayout(footnote);
    row->setContentsMargins(0, 0, 0, 0);
    row->addStretch(1);
    row->addWidget(hint);
    row->addWidget(m_flash);
    row->addStretch(1);
    return footnote;
}

QWidget* CalculatorView::makeRightColumn()
{
    auto* column = new QWidget(this);
    m_tape = new TapePanel(column);
    connect(m_tape, &TapePanel::used, this,
            [this](const Decimal& result) { change([&](Calculator& c) { c.load(result); }); });
    connect(m_tape, &TapePanel::copyRequested, this, &CalculatorView::copy);
    connect(m_tape, &TapePanel::saveRequested, this, &CalculatorView::saveToHistory);
    connect(m_tape, &TapePanel::clearRequested, this,
            [this] { change([](Calculator& c) { c.clearTape(); }); });
    QVBoxLayout* layout = plainColumn(column, Metric::partSpacing);
    layout->addWidget(m_tape, 1);
    layout->addWidget(new ShortcutsPanel(column));
    layout->addStretch(0);
    return column;
}

void CalculatorView::makeDisplayMenu()
{
    m_display->setContextMenuPolicy(Qt::ActionsContextMenu);
    m_display->addAction(QStringLiteral("Copy"), this, &CalculatorView::copyDisplay);
    m_display->addAction(QStringLiteral("Save to history"), this, &CalculatorView::saveToHistory);
}

std::function<void()> CalculatorView::actionFor(const QKeyEvent& event)
{
    const Qt::KeyboardModifiers modifiers = event.modifiers() & ~Qt::KeypadModifier;
    if (modifiers == Qt::ControlModifier && event.key() == Qt::Key_C)
        return [this] { copyDisplay(); };
    if (const auto key = CalculatorKey::typed(event)) {
        return [this, key = *key] {
            press(key);
            // Who types from further down the page sees what comes of it.
            if (QScrollArea* area = ScrollArea::around(*this))
                area->ensureWidgetVisible(m_display);
        };
    }
    return {};
}

void CalculatorView::press(const CalculatorKey& key)
{
    const QString before = m_display->number();
    change([&](Calculator& c) { key.press(c); });
    // A reader repeats what is typed; what another key makes of that has to be told.
    const bool isTyped = key.kind == CalculatorKey::Kind::digit || key.kind == CalculatorKey::Kind::point;
    if (key.kind == CalculatorKey::Kind::equals || (!isTyped && m_display->number() != before))
        m_display->announceNumber();
}

void CalculatorView::change(const std::function<void(Calculator&)>& action)
{
    action(m_calculator);
    refresh();
}

void CalculatorView::refresh()
{
    m_display->setTexts(toQt(m_calculator.expression()), toQt(m_calculator.display()));
    const auto& tape = m_calculator.tape();
    const int newest = tape.empty() ? 0 : tape.front().id;
    if (newest == m_shownTapeId)
        return;
    m_shownTapeId = newest;
    m_tape->setEntries(tape);
}

void CalculatorView::copy(const QString& text, const QString& confirmation)
{
    copyText(text);
    m_flash->flash(confirmation);
}

void CalculatorView::copyDisplay()
{
    copy(toQt(m_calculator.display()), QStringLiteral("Copied"));
}

void CalculatorView::saveToHistory()
{
    const auto& tape = m_calculator.tape();
    m_model.record(Module::calculator, tape.empty() ? "Calculator" : tape.front().expression,
                   {{"Result", m_calculator.display(), std::nullopt, Weight::headline, Tone::neutral}});
}

bool CalculatorView::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::Resize)
        fitToWindow();
    return QWidget::eventFilter(watched, event);
}

void CalculatorView::showEvent(QShowEvent* event)
{
    QWidget::showEvent(event);
    window()->installEventFilter(this); // asked for again, it stays one filter
    fitToWindow();
}

void CalculatorView::resizeEvent(QResizeEvent* event)
{
    QWidget::resizeEvent(event);
    const int room = width() - Metric::partSpacing - narrowTape;
    m_leftColumn->setFixedWidth(std::clamp(room, narrowKeypad, wideKeypad));
}

void CalculatorView::fitToWindow()
{
    const int height = window()->height();
    m_keypad->setKeyHeight(Metric::forWindow(height, Keypad::shortKey, Keypad::tallKey));
    // The tape ends with the keypad at the lowest; where the shortcuts fit below it, it makes room for them.
    const int keypadHeight = m_keypadCard->height();
    m_tape->setMinimumHeight(height >= roomyWindow ? shortTape : keypadHeight);
    m_tape->setMaximumHeight(keypadHeight);
}

} // namespace zelta
