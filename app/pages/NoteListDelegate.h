#pragma once

#include <QStyledItemDelegate>

namespace zelta {

/// Draws a row of the note list: a heading, or title, preview and date, aligned in the title's direction.
class NoteListDelegate final : public QStyledItemDelegate
{
    Q_OBJECT

public:
    using QStyledItemDelegate::QStyledItemDelegate;

    [[nodiscard]] QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;
    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override;

private:
    static void paintHeading(QPainter& painter, const QRect& area, const QModelIndex& index);
    static void paintNote(QPainter& painter, const QRect& area, const QStyleOptionViewItem& option,
                          const QModelIndex& index);
};

} // namespace zelta
