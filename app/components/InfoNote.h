#pragma once

#include <QWidget>
#include <string_view>

namespace zelta {

class Label;

/// An explanatory note in small type beside a symbol; wraps at its width.
class InfoNote : public QWidget
{
    Q_OBJECT

public:
    explicit InfoNote(const QString& text, QWidget* parent = nullptr);

    /// With another symbol, such as "lightbulb.fill", and flush with its surroundings: for a note inside a
    /// card.
    InfoNote(const QString& text, std::string_view symbol, QWidget* parent = nullptr);

    void setText(const QString& text);

private:
    Label* m_text;
};

} // namespace zelta
