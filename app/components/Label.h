#pragma once

#include "app/look/Theme.h"
#include "app/look/WrappedText.h"

#include <QLabel>

namespace zelta {

/// Plain text in one of the theme's fonts and colours; follows the appearance by itself. Never reads markup.
///
/// The glyphs of a text are found once and kept: Qt's own label finds them anew for each hint and each paint,
/// which was a third of the start. A label whose text can be selected is left to Qt.
class Label : public QLabel
{
    Q_OBJECT

public:
    explicit Label(const QString& text, QWidget* parent = nullptr);
    Label(const QString& text, Theme::FontRole role, Theme::Token token, QWidget* parent = nullptr);

    void setRole(Theme::FontRole role);
    void setToken(Theme::Token token);

    /// Lets the ground show through the colour; 1 is solid.
    void setOpacity(double opacity);

    /// Lets the text be selected with the mouse.
    void setSelectable();

    /// Wraps at the label's width, lines `pixels` apart (0: the font's own spacing). A word that is wider
    /// than the label, such as a long number, is broken too.
    void setWrapped(int pixels = 0);

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;
    [[nodiscard]] int heightForWidth(int width) const override;

protected:
    bool event(QEvent* event) override;
    void changeEvent(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    void applyToken();
    [[nodiscard]] bool isQts() const;
    [[nodiscard]] WrappedText& measured() const;
    [[nodiscard]] QSize withMargins(const QSizeF& text) const;

    Theme::Token m_token = Theme::Token::text;
    float m_opacity = 1;
    bool m_isSelectable = false;
    int m_lineHeight = 0;
    QTextOption::WrapMode m_wrapMode = QTextOption::WordWrap;
    mutable WrappedText m_wrapped; ///< The text as it was last measured or painted.
};

} // namespace zelta
