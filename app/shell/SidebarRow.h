#pragma once

#include "app/look/TextLine.h"
#include "app/look/WrappedText.h"
#include "app/model/Module.h"

#include <QRadioButton>

namespace zelta {

/// One page in the sidebar: badge, title and a subtitle of at most two lines. As radio buttons the rows are
/// one tab stop, Up and Down move the selection, and a screen reader hears which of them is chosen.
class SidebarRow final : public QRadioButton
{
    Q_OBJECT

public:
    SidebarRow(Module module, const QString& subtitle, QWidget* parent);

    void setSubtitle(const QString& subtitle);

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;
    [[nodiscard]] bool hasHeightForWidth() const override { return true; }
    [[nodiscard]] int heightForWidth(int width) const override;

protected:
    [[nodiscard]] bool hitButton(const QPoint& position) const override;
    void paintEvent(QPaintEvent* event) override;

private:
    void paintSubtitle(QPainter& painter, int top);

    Module m_module;
    TextLine m_title;
    mutable WrappedText m_subtitle; ///< In the lines that were asked for last.
};

} // namespace zelta
