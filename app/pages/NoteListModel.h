#pragma once

#include "app/pages/NoteList.h"
#include "core/Calendar.h"
#include "core/Note.h"

#include <QAbstractListModel>
#include <QString>
#include <cstdint>
#include <functional>
#include <optional>
#include <unordered_map>
#include <vector>

namespace zelta {

/// The loaded notes as the rows of a list, each group under its heading. A thousand notes may be megabytes
/// of text: a note is read when its row is looked at, and only what the row shows of it is kept.
class NoteListModel final : public QAbstractListModel
{
    Q_OBJECT

public:
    enum Role {
        titleRole = Qt::DisplayRole, ///< a note's title, or the heading
        previewRole = Qt::UserRole,
        dateRole, ///< "Sat, 07 Mar 2026"
        isHeadingRole,
        isRightToLeftRole, ///< The title, and with it the side that all lines stand at.
        isPreviewRightToLeftRole,
        noteIdRole,
    };

    /// Gives the note as it is now; nothing when it is gone.
    using Reader = std::function<std::optional<Note>(std::int64_t id)>;

    NoteListModel(Reader read, QObject* parent);

    const std::vector<NoteStamp>& notes() const { return m_notes; }

    void setNotes(std::vector<NoteStamp> notes, Instant now, const Calendar& calendar);

    /// Tells that a note has changed: its row shows the new state, the order stays, the groups follow.
    void updateNote(const NoteStamp& changed, Instant now, const Calendar& calendar);

    /// Groups the notes again, for another day.
    void regroup(Instant now, const Calendar& calendar);

    QModelIndex indexOf(std::optional<std::int64_t> noteId) const;

    int rowCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    Qt::ItemFlags flags(const QModelIndex& index) const override;

private:
    /// A heading (an index into the groups) or a note (an index into the notes).
    struct Row
    {
        bool isHeading = false;
        std::size_t place = 0;
    };

    /// The texts of a note's row, as of its last change.
    struct Shown
    {
        Instant updatedAt;
        QString title;
        QString preview;
        QString date;
        bool isRightToLeft = false;
        bool isPreviewRightToLeft = false;
    };

    const Shown& shown(std::size_t place) const;
    QVariant noteData(std::size_t place, int role) const;

    Reader m_read;
    std::vector<NoteStamp> m_notes;
    mutable std::unordered_map<std::int64_t, Shown> m_shown; // by note, for the rows looked at so far
    mutable Shown m_unread; // of the last note that could not be read
    std::vector<NoteGroup> m_groups;
    std::vector<Row> m_rows;
    std::optional<Calendar> m_calendar;
};

} // namespace zelta
