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

    enum class Place {
        belowCard, ///< A little further in than the card's edge.
        insideCard, ///< Flush with what else is in the card.
    };

    /// With another symbol, such as "lightbulb.fill".
    InfoNote(const QString& text, std::string_view symbol, Place place, QWidget* parent = nullptr);

    void setText(const QString& text);

private:
    Label* m_text;
};

} // namespace zelta
