#pragma once

#include <QFont>
#include <QSizeF>
#include <QString>
#include <QTextLayout>
#include <QTextOption>
#include <optional>
#include <vector>

class QPainter;

namespace zelta {

/// A text in lines of any width, shaped once to be measured and drawn. Qt's layout shapes the whole text anew
/// for each width, and a window's layouts ask for the height at many widths before they settle: here the
/// words are measured on one line, and put into lines by adding widths. Qt breaks what that does not hold
/// for: right-to-left text, several fonts, tabs, soft hyphens, line separators, a word to be cut, and more
/// than a page of text.
class WrappedText
{
public:
    struct Line
    {
        qsizetype from = 0; ///< The index of its first character.
        qsizetype length = 0; ///< With the space at its end.
        double width = 0; ///< In pixels, without that space.
        double top = 0; ///< Below the top of the text.
    };

    /// How to break a text whose words may be cut. Qt looks for a word's end anew at each line, which takes
    /// minutes for one of a million characters: with a word of over 1,000, a text is cut where a line is
    /// full.
    static QTextOption::WrapMode cuttingMode(const QString& text);

    /// A `lineHeight` of 0 is the font's own. Nothing is shaped again where nothing differs.
    void set(const QString& text, const QFont& font, QTextOption::WrapMode mode, int lineHeight = 0);

    [[nodiscard]] QString text() const { return m_layout.text(); }
    [[nodiscard]] QFont font() const { return m_layout.font(); }

    /// What the text takes where there is room enough, in fractions of a pixel.
    [[nodiscard]] const QSizeF& natural() const { return m_natural; }

    /// The narrowest width that cuts no word.
    [[nodiscard]] double longestWord() const { return m_longestWord; }

    /// What the text takes in lines of at most that width.
    [[nodiscard]] QSizeF size(double width);

    /// Those lines. Valid until another width is asked for.
    [[nodiscard]] const std::vector<Line>& lines(double width);

    /// Draws one of them with the painter's pen, in the middle of its height.
    void draw(QPainter& painter, const QPointF& topLeft, std::size_t index) const;

private:
    /// Up to the word's end and the next one's beginning, in pixels from the text's, where it is on one line.
    struct Word
    {
        qsizetype next;
        double endX;
        double nextX;
    };

    void layOut(double width);
    void findWords();
    void breakFor(double width);
    void fillLines(double width);

    QTextLayout m_layout;
    QTextOption::WrapMode m_mode = QTextOption::WordWrap;
    double m_lineHeight = 0;
    /// Found when first needed; none where Qt is to break the text.
    std::optional<std::vector<Word>> m_words;
    double m_widestWord = 0;
    QSizeF m_natural {0, 0};
    double m_longestWord = 0;
    double m_brokenFor = 0; ///< The width that these lines are for.
    std::vector<Line> m_lines;
    QSizeF m_size {0, 0};
};

} // namespace zelta
