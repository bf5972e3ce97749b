#pragma once

#include <QWidget>
#include <string_view>

namespace zelta {

/// What a list shows while it has nothing: symbol, title and a sentence, centred one below the other, the
/// first 28 px below the top of its card.
class EmptyState : public QWidget
{
    Q_OBJECT

public:
    /// `keptAbove` is how many of these 28 px the card keeps free already.
    EmptyState(std::string_view symbol, const QString& title, const QString& text, QWidget* parent = nullptr,
               int keptAbove = 0);
};

} // namespace zelta
