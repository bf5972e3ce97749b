#pragma once

#include <QWidget>
#include <string_view>

namespace zelta {

class Label;

/// What a list shows while it has nothing: symbol, title and a sentence, centred one below the other.
class EmptyState : public QWidget
{
    Q_OBJECT

public:
    EmptyState(std::string_view symbol, const QString& title, const QString& text, QWidget* parent = nullptr);
};

} // namespace zelta
