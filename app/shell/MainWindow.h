#pragma once

#include "app/model/Module.h"

#include <QMainWindow>
#include <array>

class QMenu;
class QStackedWidget;

namespace zelta {

class AppModel;
class PageChrome;

/// The one window: menu bar, sidebar, and the selected page, which is built when it is first shown.
class MainWindow final : public QMainWindow
{
    Q_OBJECT

public:
    explicit MainWindow(AppModel& model);

    void setVisible(bool visible) override;

protected:
    bool event(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    QWidget* makeCentre();
    void makeMenus();
    void makeGoMenu(QMenu* menu);
    static void settle();
    void showSelection();
    void showAbout();
    /// The page in its frame, built at its first use.
    PageChrome* page(Module module);

    AppModel& m_model;
    QStackedWidget* m_pages = nullptr;
    std::array<PageChrome*, caseCount<Module>> m_built {};
};

} // namespace zelta
