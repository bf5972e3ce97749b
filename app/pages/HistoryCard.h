#pragma once

#include "core/HistoryEntry.h"

#include <QWidget>
#include <vector>

namespace zelta {

class Button;
class HistoryDetail;
class IconButton;
class Label;

/// One saved calculation: badge, title, summary and time, with its full result folded below. There may be 500
/// of these, so the card draws its own badge and places its parts itself.
class HistoryCard : public QWidget
{
    Q_OBJECT

public:
    /// As tall as a card is whose texts take one line each.
    static int usualHeight();

    HistoryCard(const HistoryEntry& entry, const QString& time, QWidget* parent);

    [[nodiscard]] const HistoryEntry& entry() const;

    /// "Tue, 10 Mar 2026 · 4:32 PM", in the user's present zone and clock format.
    void setTime(const QString& time);

    /// Shows the copy button as a check mark.
    void setCopied(bool copied);
    [[nodiscard]] bool isCopied() const { return m_isCopied; }

    /// The card's controls in the order of the Tab key.
    [[nodiscard]] std::vector<QWidget*> controls() const;
    [[nodiscard]] IconButton* deleteButton() const;

    [[nodiscard]] int heightForWidth(int width) const override;

Q_SIGNALS:
    void copyRequested();
    void deletionRequested();

    /// The details were folded or unfolded: the card wants another height.
    void heightChanged();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    void toggleDetail();
    enum class Parts { stay, move };
    [[nodiscard]] int place(int width, Parts parts) const;

    HistoryEntry m_entry;
    Label* m_title;
    Label* m_summary;
    Label* m_time;
    Button* m_toggle;
    IconButton* m_copy;
    IconButton* m_delete;
    bool m_isCopied = false;
    HistoryDetail* m_detail = nullptr; ///< Made when it is first shown.
};

} // namespace zelta
