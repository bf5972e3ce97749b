#pragma once

#include "app/model/Module.h"

#include <QWidget>
#include <array>

namespace zelta {

class AppModel;
class Label;
class ScrollArea;
class SidebarRow;

/// The list of pages, with the program's name and version above it and the weekend rule below.
class Sidebar final : public QWidget
{
    Q_OBJECT

public:
    static constexpr int idealWidth = 280;

    Sidebar(AppModel& model, QWidget* parent);

    [[nodiscard]] QSize sizeHint() const override { return {idealWidth, 0}; }

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    QWidget* makeHeader();
    QWidget* makeRows();
    QWidget* makeFooter();
    void showSelection();
    void bringSelectionIntoView();
    void showSettings();

    AppModel& m_model;
    ScrollArea* m_area = nullptr;
    std::array<SidebarRow*, caseCount<Module>> m_rows {};
    Label* m_weekend = nullptr;
};

} // namespace zelta
