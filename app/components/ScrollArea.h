#pragma once

#include <QScrollArea>

namespace zelta {

/// Scrolls up and down what is as wide as itself, on the ground that it stands on. It is no stop of the Tab
/// key.
class ScrollArea : public QScrollArea
{
    Q_OBJECT

public:
    explicit ScrollArea(QWidget* parent);

    /// Takes ownership of `content`, which should be made a child of the viewport.
    void setContent(QWidget* content);
};

} // namespace zelta
