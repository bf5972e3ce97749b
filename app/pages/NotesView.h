#pragma once

#include "app/model/Clock.h"
#include "app/pages/NoteDraft.h"
#include "app/pages/NoteList.h"
#include "app/pages/SearchPace.h"
#include "core/Note.h"

#include <QWidget>
#include <chrono>
#include <cstdint>
#include <memory>
#include <optional>
#include <string_view>
#include <vector>

namespace zelta {

class AppModel;
class NoteEditorPane;
class NoteKeeper;
class NotesListView;
struct NotesToolbar;

/// The notes page: the list of notes with its search, and the open note as a column of paragraphs.
///
/// What is typed goes from a paragraph's row to the draft, and from the draft to the database, each after a
/// pause. Whatever looks at the draft or changes it asks the rows first to hand on what they still hold, so
/// no order of clicks loses a keystroke.
class NotesView final : public QWidget
{
    Q_OBJECT

public:
    static constexpr std::chrono::milliseconds saveDelay {600};
    /// A save that failed is tried again after this time, and after twice the time whenever it fails again.
    static constexpr std::chrono::milliseconds retryDelay {500};
    static constexpr std::chrono::milliseconds longestRetryDelay {32'000};
    /// A program that was closed waits for so many tries; a full disk may stay full.
    static constexpr int triesBeforeTheEnd = 2;
    static constexpr std::int64_t listLimit = 1000;

    explicit NotesView(AppModel& model, QWidget* parent = nullptr);
    ~NotesView() override;

    /// The listed notes, most recently updated first.
    [[nodiscard]] const std::vector<NoteStamp>& notes() const;
    [[nodiscard]] std::optional<std::int64_t> selectedID() const;
    [[nodiscard]] const std::optional<NoteDraft>& draft() const { return m_draft; }

    [[nodiscard]] NotesToolbar* toolbar() const { return m_toolbar; }
    [[nodiscard]] NotesListView* list() const { return m_list; }
    [[nodiscard]] NoteEditorPane* pane() const { return m_pane; }

    /// Reads the list anew for the present search, saving first.
    void load(OnReload onReload);

    /// Makes, stores and opens an empty note.
    void newNote();

    /// Opens a note of the list, saving first; its history of steps begins anew.
    void open(std::int64_t noteId);

    /// A paragraph's text as its editor hands it on, also one that comes late, for a note no longer open.
    void updateBlock(const ParagraphKey& key, std::int64_t inNote, std::string_view text);

    void appendBlock();
    void removeBlock(std::size_t at);
    void undo();
    void redo();
    void copyNote();

    /// Asks before the open note is deleted for good.
    void askToDelete();
    void carryOutDelete(std::int64_t noteId);

    /// Writes the draft now, if it has changed since it was written.
    void flushSave();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    void connectParts();
    void setTabOrders();
    void handOn();
    void scheduleSave();
    void scheduleRetry();
    void waitForMidnight();
    void followDay();
    void renewTries();
    bool write(const Note& note);
    void searchChanged();
    void runDueSearch();
    void runSearch();
    void reload(OnReload onReload);
    void readList();
    void openFirst();
    void followStore();
    void openDraft(std::optional<Note> note);
    void draftChanged();
    void showDraft();
    void step(bool (NoteDraft::*direction)(), const QString& message);
    [[nodiscard]] Instant now() const;

    AppModel& m_model;
    std::shared_ptr<NoteKeeper> m_keeper; ///< The list reads by it as well, until it is gone itself.
    NotesToolbar* m_toolbar;
    NotesListView* m_list;
    NoteEditorPane* m_pane;
    std::optional<NoteDraft> m_draft;
    bool m_isUnsaved = false;
    int m_failedSaves = 0; ///< One after the other, up to now.
    bool m_isLoaded = false;
    SearchPace m_pace;
    Clock::Task m_saveTask;
    Clock::Task m_searchTask;
    Clock::Task m_reloadTask;
    Clock::Task m_midnight;
};

} // namespace zelta
