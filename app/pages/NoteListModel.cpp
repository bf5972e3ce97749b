#include "app/pages/NoteListModel.h"

#include "app/model/Text.h"
#include "core/CalendarKit.h"
#include "core/TextDirection.h"

#include <algorithm>
#include <utility>

namespace zelta {

NoteListModel::NoteListModel(Reader read, QObject* parent)
    : QAbstractListModel(parent)
    , m_read(std::move(read))
{ }

void NoteListModel::setNotes(std::vector<NoteStamp> notes, Instant now, const Calendar& calendar)
{
    beginResetModel();
    m_notes = std::move(notes);
    if (std::exchange(m_calendar, calendar) != calendar)
        m_shown.clear();
    m_groups = groupNotes(m_notes, now, calendar);
    m_rows.clear();
    m_rows.reserve(m_groups.size() + m_notes.size());
    for (std::size_t i = 0; i < m_groups.size(); ++i) {
        m_rows.push_back({.isHeading = true, .place = i});
        for (const std::size_t place : m_groups[i].notes)
            m_rows.push_back({.isHeading = false, .place = place});
    }
    endResetModel();
}

void NoteListModel::updateNote(const NoteStamp& changed, Instant now, const Calendar& calendar)
{
    const auto found = std::ranges::find(m_notes, changed.id, &NoteStamp::id);
    if (found == m_notes.end())
        return;
    *found = changed;
    m_shown.erase(changed.id);
    regroup(now, calendar);
    const QModelIndex row = indexOf(changed.id);
    Q_EMIT dataChanged(row, row);
}

void NoteListModel::regroup(Instant now, const Calendar& calendar)
{
    if (m_calendar != calendar || groupNotes(m_notes, now, calendar) != m_groups)
        setNotes(m_notes, now, calendar);
}

QModelIndex NoteListModel::indexOf(std::optional<std::int64_t> noteId) const
{
    const auto found = std::ranges::find_if(
        m_rows, [this, noteId](const Row& row) { return !row.isHeading && m_notes[row.place].id == noteId; });
    return found != m_rows.end() ? index(static_cast<int>(found - m_rows.begin())) : QModelIndex();
}

int NoteListModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(m_rows.size());
}

QVariant NoteListModel::data(const QModelIndex& index, int role) const
{
    if (!index.isValid() || index.row() >= rowCount())
        return {};
    const Row& row = m_rows[static_cast<std::size_t>(index.row())];
    if (role == isHeadingRole)
        return row.isHeading;
    if (!row.isHeading)
        return noteData(row.place, role);
    if (role == titleRole || role == Qt::AccessibleTextRole)
        return toQt(m_groups[row.place].title);
    return {};
}

const NoteListModel::Shown& NoteListModel::shown(std::size_t place) const
{
    // A row shows one elided line; a title may be the whole of a very long paragraph.
    constexpr qsizetype longestShown = 400;
    const auto [id, updatedAt] = m_notes[place];
    const auto found = m_shown.find(id);
    if (found != m_shown.end() && found->second.updatedAt == updatedAt)
        return found->second;
    // One that another copy of the program has deleted stays in the list until that is loaded again; one that
    // cannot be read at the moment is read again when it is shown again.
    std::optional<Note> read = m_read(id);
    Shown& shown = read ? m_shown[id] : m_unread;
    const Note note = read ? std::move(*read) : Note(id, {}, updatedAt, updatedAt);
    const std::string title = note.title();
    const std::string preview = note.preview();
    shown = {.updatedAt = updatedAt,
             .title = leadingCharacters(toQt(title), longestShown),
             .preview = leadingCharacters(toQt(preview), longestShown),
             .date = toQt(CalendarKit::fullDate(updatedAt, *m_calendar)),
             .isRightToLeft = directionOf(title) == TextDirection::rightToLeft,
             .isPreviewRightToLeft = directionOf(preview) == TextDirection::rightToLeft};
    return shown;
}

QVariant NoteListModel::noteData(std::size_t place, int role) const
{
    switch (role) {
    case titleRole:
        return shown(place).title;
    case previewRole:
        return shown(place).preview;
    case dateRole:
        return shown(place).date;
    case isRightToLeftRole:
        return shown(place).isRightToLeft;
    case isPreviewRightToLeftRole:
        return shown(place).isPreviewRightToLeft;
    case noteIdRole:
        return static_cast<qlonglong>(m_notes[place].id);
    case Qt::AccessibleTextRole:
        return QStringList {shown(place).title, shown(place).preview, shown(place).date}.join(
            QStringLiteral(", "));
    default:
        return {};
    }
}

Qt::ItemFlags NoteListModel::flags(const QModelIndex& index) const
{
    if (!index.isValid() || m_rows[static_cast<std::size_t>(index.row())].isHeading)
        return Qt::NoItemFlags;
    return Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemNeverHasChildren;
}

} // namespace zelta
