#include "app/shell/MainWindow.h"

#include "app/look/Surface.h"
#include "app/look/Theme.h"
#include "app/model/AppModel.h"
#include "app/model/Text.h"
#include "app/pages/CalculatorView.h"
#include "app/pages/CalendarPageView.h"
#include "app/pages/ConverterView.h"
#include "app/pages/DurationView.h"
#include "app/pages/HistoryView.h"
#include "app/pages/NotesView.h"
#include "app/pages/PercentView.h"
#include "app/pages/SettingsView.h"
#include "app/shell/AboutDialog.h"
#include "app/shell/EditMenu.h"
#include "app/shell/PageChrome.h"
#include "app/shell/Sidebar.h"
#include "app/shell/SidebarRow.h"

#include <QCoreApplication>
#include <QKeyEvent>
#include <QMenuBar>
#include <QPainter>
#include <QSplitter>
#include <QStackedWidget>
#include <cstddef>

namespace zelta {
namespace {

constexpr QSize defaultSize {1120, Metric::windowHeight};
constexpr QSize smallestSize {940, Metric::smallestWindowHeight};

/// The pages, below a line like the one at their side.
class PageStack final : public QStackedWidget
{
public:
    explicit PageStack(QWidget* parent)
        : QStackedWidget(parent)
    {
        setContentsMargins(0, 1, 0, 0);
    }

protected:
    void paintEvent(QPaintEvent* /*event*/) override
    {
        QPainter(this).fillRect(0, 0, width(), 1, Theme::color(Theme::Token::outline));
    }
};

QWidget* makeContent(Module module, AppModel& model, QWidget* parent)
{
    switch (module) {
    case Module::calculator:
        return new CalculatorView(model, parent);
    case Module::percent:
        return new PercentView(model, parent);
    case Module::converter:
        return new ConverterView(model, parent);
    case Module::calendar:
        return new CalendarPageView(model, parent);
    case Module::notes:
        return new NotesView(model, parent);
    case Module::duration:
        return new DurationView(model, parent);
    case Module::history:
        return new HistoryView(model, parent);
    case Module::settings:
        return new SettingsView(model, parent);
    }
    return nullptr; // a page that is none
}

} // namespace

MainWindow::MainWindow(AppModel& model)
    : m_model(model)
{
    makeMenus();
    setCentralWidget(makeCentre());
    setMinimumSize(smallestSize);
    resize(defaultSize);
    connect(&model, &AppModel::selectionChanged, this, &MainWindow::showSelection);
    setWindowTitle(toQt(title(model.selection())));
}

/// The page comes last: it is made and laid out while the window manager makes room for the window.
void MainWindow::setVisible(bool visible)
{
    QMainWindow::setVisible(visible);
    if (visible && m_pages->count() == 0)
        showSelection();
}

/// Where a digit takes Shift (French, Czech), its key turns to a page without, too: no menu entry is meant.
void MainWindow::keyPressEvent(QKeyEvent* event)
{
    constexpr quint32 keyOfOne = 10; // by its place on the keyboard, as XKB counts
    const quint32 place = event->nativeScanCode() - keyOfOne;
    if (event->modifiers() == Qt::ControlModifier && place < allCases<Module>().size())
        m_model.setSelection(allCases<Module>()[place]);
    else
        QMainWindow::keyPressEvent(event);
}

bool MainWindow::event(QEvent* event)
{
    if (event->type() == QEvent::UpdateRequest)
        settle();
    const bool isHandled = QMainWindow::event(event);
    if (event->type() == QEvent::Resize)
        settle(); // the picture follows without asking
    return isHandled;
}

/// A layout that changes asks the one around it by an event. A picture that comes between two of them would
/// show what stands in its old place, or lies over its neighbours.
void MainWindow::settle()
{
    constexpr int depth = 8; // of layouts in one another; each round hears what the last one has asked
    for (int i = 0; i < depth; ++i)
        QCoreApplication::sendPostedEvents(nullptr, QEvent::LayoutRequest);
}

QWidget* MainWindow::makeCentre()
{
    auto* splitter = new QSplitter(this);
    splitter->setHandleWidth(1);
    splitter->setChildrenCollapsible(false);
    auto* sidebar = new Sidebar(m_model, splitter);
    splitter->addWidget(sidebar);
    m_pages = new PageStack(splitter);
    splitter->addWidget(m_pages);
    sidebar->lower(); // readers go by the order of the widgets, and a splitter puts each new one first
    splitter->setStretchFactor(1, 1);
    splitter->setSizes({Sidebar::idealWidth, defaultSize.width() - Sidebar::idealWidth});
    return splitter;
}

void MainWindow::makeMenus()
{
    QMenu* file = menuBar()->addMenu(QStringLiteral("&File"));
    QAction* quit = file->addAction(QStringLiteral("&Quit"), this, &MainWindow::close);
    quit->setShortcut(QKeySequence::Quit);
    menuBar()->addMenu(new EditMenu(this));
    makeGoMenu(menuBar()->addMenu(QStringLiteral("&Go")));
    QMenu* help = menuBar()->addMenu(QStringLiteral("&Help"));
    help->addAction(QStringLiteral("&About Zelta Basic"), this, &MainWindow::showAbout);
}

void MainWindow::makeGoMenu(QMenu* menu)
{
    int number = 1;
    for (const Module module : allCases<Module>()) {
        QAction* action
            = menu->addAction(toQt(title(module)), this, [this, module] { m_model.setSelection(module); });
        action->setShortcut(QKeySequence(Qt::CTRL | static_cast<Qt::Key>(Qt::Key_0 + number++)));
    }
}

void MainWindow::showSelection()
{
    const Module module = m_model.selection();
    PageChrome* shown = page(module);
    // Who walks the sidebar by keyboard stays there; everybody else can type at once.
    QWidget* focus = focusWidget();
    const auto* row = qobject_cast<SidebarRow*>(focus);
    const bool isWalking = row && Surface::showsFocus(*row);
    if (!isWalking && focus != nullptr)
        focus->clearFocus(); // or the stack would give it to whatever comes first on the page
    m_pages->setCurrentWidget(shown);
    setWindowTitle(toQt(title(module)));
    if (!isWalking)
        shown->focusEntry();
}

void MainWindow::showAbout()
{
    auto* about = new AboutDialog(this);
    about->setAttribute(Qt::WA_DeleteOnClose);
    about->open();
}

PageChrome* MainWindow::page(Module module)
{
    PageChrome*& page = m_built[static_cast<std::size_t>(module)];
    if (!page) {
        const auto content = [this, module](QWidget* parent) { return makeContent(module, m_model, parent); };
        page = new PageChrome(module, m_model, content, m_pages);
        m_pages->addWidget(page);
    }
    return page;
}

} // namespace zelta
