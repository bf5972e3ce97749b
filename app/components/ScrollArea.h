#pragma once

#include <QScrollArea>

namespace zelta {

/// Scrolls content of its own width up and down, on its parent's background. Not a tab stop.
class ScrollArea : public QScrollArea
{
    Q_OBJECT

public:
    explicit ScrollArea(QWidget* parent);

    /// Takes ownership of `content`, which should be made a child of the viewport.
    void setContent(QWidget* content);

    /// The innermost area that scrolls this widget; null where none does.
    static QScrollArea* around(const QWidget& widget);
};

} // namespace zelta
