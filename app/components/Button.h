#pragma once

#include "app/look/TextLine.h"
#include "app/look/Theme.h"

#include <QPushButton>
#include <functional>
#include <optional>
#include <string>

namespace zelta {

/// A push button of this look: a symbol, a text, or both. Takes the focus by Tab only, so that a click
/// neither ends typing nor steals Enter.
///
///     auto* copy = new Button(QStringLiteral("Copy note"), "doc.on.doc", this);
///     copy->showConfirmation(QStringLiteral("Copied"));     // with a check mark, at the same width
///     copy->clearConfirmation();
class Button : public QPushButton
{
    Q_OBJECT

public:
    enum class Look { bordered, borderless, destructive };
    enum class Size { regular, small };

    /// `label` is shown as it stands: "&" is no mnemonic here. An empty symbol is none.
    explicit Button(const QString& label, QWidget* parent = nullptr);
    Button(const QString& label, std::string_view symbol, QWidget* parent = nullptr);

    [[nodiscard]] QString label() const;
    void setLabel(const QString& label);
    void setSymbol(std::string_view symbol);
    void setLook(Look look);
    void setSize(Size size);

    /// A height other than the size's own, such as that of a field beside it.
    void setHeight(int pixels);

    /// Colour of symbol and text instead of the look's own; asked for at each paint.
    void setInk(Theme::Token token);
    void setInk(std::function<QColor()> ink);

    /// Shows a check mark and `label` in the colour of success; the button keeps its width.
    void showConfirmation(const QString& label);
    void clearConfirmation();

    [[nodiscard]] QSize sizeHint() const override;

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void paintSurface(QPainter& painter) const;
    [[nodiscard]] QColor inkColor() const;
    [[nodiscard]] bool isConfirming() const;
    [[nodiscard]] Look look() const;
    [[nodiscard]] double cornerRadius() const;

    /// The button's own symbol, or a check mark while it confirms.
    [[nodiscard]] std::string_view shownSymbol() const;

private:
    [[nodiscard]] QString shownLabel() const;
    [[nodiscard]] int contentWidth(const TextLine& line, std::string_view symbol) const;
    [[nodiscard]] int padding() const;
    [[nodiscard]] int gap() const;
    [[nodiscard]] int symbolSize() const;

    std::string m_symbol;
    QString m_label;
    std::optional<QString> m_confirmation;
    Look m_look = Look::bordered;
    Size m_size = Size::regular;
    std::optional<int> m_height;
    std::function<QColor()> m_ink;
    mutable TextLine m_line; ///< The button's own label as it was last measured.
    TextLine m_confirmationLine;
};

} // namespace zelta
