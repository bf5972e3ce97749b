#pragma once

#include <QWidget>
#include <string_view>

class QVBoxLayout;

namespace zelta {

/// A section box: title row (symbol and title, both optional), then the content in a column, on white with a
/// thin line around it.
///
///     auto* card = new Card(QStringLiteral("Options"), "slider.horizontal.3", this);
///     card->content()->addWidget(new InfoNote(…));
class Card : public QWidget
{
    Q_OBJECT

public:
    explicit Card(QWidget* parent = nullptr);
    Card(const QString& title, std::string_view symbol, QWidget* parent = nullptr);

    /// The column below the title row; no spacing of its own.
    [[nodiscard]] QVBoxLayout* content() const;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QVBoxLayout* m_content;
};

} // namespace zelta
