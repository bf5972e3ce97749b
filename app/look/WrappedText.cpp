#include "app/look/WrappedText.h"

#include <QFontMetricsF>
#include <QGlyphRun>
#include <QPainter>
#include <QTextBoundaryFinder>
#include <QWidget>
#include <algorithm>

namespace zelta {

namespace {

constexpr double unlimited = QWIDGETSIZE_MAX;
/// In pixels. Layouts that do not know a width yet ask for the height at a handful, or none: no word is cut
/// for that.
constexpr double narrowest = 64;
/// Characters. Qt finds a word's place by walking there from the beginning, so that the words of a long text
/// take longer than shaping it again.
constexpr qsizetype longest = 1000;

/// Whether the places of the words on one line say where they are in others: a tab's width depends on its
/// place, a soft hyphen's on whether a line ends there.
bool canBeAdded(const QString& text)
{
    return text.size() <= longest && !text.contains(QChar(QChar::Tabulation))
        && !text.contains(QChar(QChar::SoftHyphen));
}

/// White space that a line may end in.
bool isGap(QChar character)
{
    return character.isSpace() && character.decompositionTag() != QChar::NoBreak;
}

} // namespace

QTextOption::WrapMode WrappedText::cuttingMode(const QString& text)
{
    qsizetype word = 0;
    for (const QChar character : text) {
        word = isGap(character) ? 0 : word + 1;
        if (word > longest)
            return QTextOption::WrapAnywhere;
    }
    return QTextOption::WrapAtWordBoundaryOrAnywhere;
}

void WrappedText::set(const QString& text, const QFont& font, QTextOption::WrapMode mode, int lineHeight)
{
    if (!m_lines.empty() && m_layout.text() == text && m_layout.font() == font && m_mode == mode
        && m_lineHeight == lineHeight)
        return;
    const bool cutsWords = mode == QTextOption::WrapAtWordBoundaryOrAnywhere;
    QTextOption option(Qt::AlignLeft | Qt::AlignAbsolute);
    option.setWrapMode(cutsWords ? cuttingMode(text) : mode);
    m_layout.setCacheEnabled(true);
    m_layout.setTextOption(option);
    m_layout.setText(text);
    m_layout.setFont(font);
    m_mode = mode;
    m_lineHeight = lineHeight;
    layOut(unlimited);
    m_natural = m_size;
    m_longestWord = m_layout.minimumWidth();
    m_words.reset();
}

QSizeF WrappedText::size(double width)
{
    breakFor(width);
    return m_size;
}

const std::vector<WrappedText::Line>& WrappedText::lines(double width)
{
    breakFor(width);
    return m_lines;
}

void WrappedText::draw(QPainter& painter, const QPointF& topLeft, std::size_t index) const
{
    if (static_cast<std::size_t>(m_layout.lineCount()) == m_lines.size()) {
        m_layout.lineAt(static_cast<int>(index)).draw(&painter, topLeft);
        return;
    }
    const Line& line = m_lines.at(index);
    const auto from = static_cast<int>(line.from);
    const QPointF begin(m_layout.lineAt(0).cursorToX(from), 0);
    for (const QGlyphRun& run : m_layout.glyphRuns(from, static_cast<int>(line.length)))
        painter.drawGlyphRun(topLeft - begin, run);
}

/// Has Qt shape the text and break it.
void WrappedText::layOut(double width)
{
    m_brokenFor = width;
    m_size = {0, 0};
    m_lines.clear();
    m_layout.beginLayout();
    for (QTextLine line = m_layout.createLine(); line.isValid(); line = m_layout.createLine()) {
        line.setLineWidth(width);
        const double height = std::max<double>(m_lineHeight, line.height()); // some scripts are tall
        line.setPosition(QPointF(0, (height - line.height()) / 2));
        m_lines.push_back({line.textStart(), line.textLength(), line.naturalTextWidth(), m_size.height()});
        m_size = {std::max(m_size.width(), m_lines.back().width), m_size.height() + height};
    }
    m_layout.endLayout();
}

/// Measures the words of a text that is on one line, in one font and direction.
void WrappedText::findWords()
{
    std::vector<Word>& words = m_words.emplace();
    m_widestWord = 0;
    const QString text = m_layout.text();
    if (m_mode == QTextOption::ManualWrap || m_lines.size() != 1 || !canBeAdded(text))
        return;
    const QList<QGlyphRun> runs = m_layout.glyphRuns();
    if (runs.size() != 1 || runs.constFirst().isRightToLeft())
        return;
    const QTextLine line = m_layout.lineAt(0);
    const QFontMetricsF metrics(m_layout.font());
    QTextBoundaryFinder finder(QTextBoundaryFinder::Line, text);
    double beginX = 0;
    qsizetype end = 0;
    for (qsizetype next = 1; next <= text.size(); ++next) {
        if (!isGap(text[next - 1]))
            end = next;
        finder.setPosition(next);
        const bool isLast = next == text.size();
        const bool isBehindGap
            = end < next && !isLast && !isGap(text[next]); // also where Unicode has no break
        if (!finder.isAtBoundary() && !isBehindGap && !isLast)
            continue;
        const double beyond = end > 0 ? std::max(0.0, -metrics.rightBearing(text[end - 1])) : 0;
        const double endX = line.cursorToX(static_cast<int>(end)) + beyond;
        m_widestWord = std::max(m_widestWord, endX - beginX);
        beginX = line.cursorToX(static_cast<int>(next));
        words.push_back({next, endX, beginX});
    }
}

/// Each line takes as many words as fit, so every width from the longest line's to the one that they were
/// broken for gives the same lines.
void WrappedText::breakFor(double width)
{
    if (m_size.width() <= width && width <= m_brokenFor)
        return;
    if (!m_words)
        findWords();
    const bool cutsWord
        = m_mode == QTextOption::WrapAtWordBoundaryOrAnywhere && width >= narrowest && m_widestWord > width;
    const double wanted = m_natural.width() <= width ? unlimited : width;
    if (m_words->empty() || cutsWord)
        layOut(wanted);
    else
        fillLines(wanted);
}

/// Puts the words into lines of at most that width; a word that is wider has a line of its own.
void WrappedText::fillLines(double width)
{
    if (m_layout.lineCount() != 1)
        layOut(unlimited);
    m_brokenFor = width;
    m_size = {0, 0};
    m_lines = {{}};
    double beginX = 0;
    double nextX = 0;
    for (const Word& word : *m_words) {
        if (word.endX - beginX > width && nextX > beginX) {
            const Line& full = m_lines.back();
            m_lines.push_back({full.from + full.length, 0, 0, full.top + m_natural.height()});
            beginX = nextX;
        }
        Line& line = m_lines.back();
        line.length = word.next - line.from;
        line.width = word.endX - beginX;
        nextX = word.nextX;
        m_size = {std::max(m_size.width(), line.width), line.top + m_natural.height()};
    }
}

} // namespace zelta
