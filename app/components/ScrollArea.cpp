#include "app/components/ScrollArea.h"

namespace zelta {

ScrollArea::ScrollArea(QWidget* parent)
    : QScrollArea(parent)
{
    setFrameShape(QFrame::NoFrame);
    setWidgetResizable(true);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setFocusPolicy(Qt::NoFocus);
    viewport()->setAutoFillBackground(false);
}

void ScrollArea::setContent(QWidget* content)
{
    setWidget(content);
    content->setAutoFillBackground(false); // Qt has just turned it on
}

QScrollArea* ScrollArea::around(const QWidget& widget)
{
    QScrollArea* area = nullptr;
    for (QWidget* outer = widget.parentWidget(); outer != nullptr && area == nullptr;
         outer = outer->parentWidget())
        area = qobject_cast<QScrollArea*>(outer);
    return area;
}

} // namespace zelta
