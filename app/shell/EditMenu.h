#pragma once

#include <QMenu>
#include <QPointer>
#include <functional>

class QAction;

namespace zelta {

/// Undo to Select All for whatever text has the focus, each enabled exactly while it can do something.
///
/// What is in the clipboard is asked for when the menu opens, not at each key or whenever it changes: the
/// program that owns it has to answer, and may be slow or hang. Until then "Paste" is taken for possible.
class EditMenu final : public QMenu
{
public:
    explicit EditMenu(QWidget* parent);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    struct Target;

    void add(const QString& text, const QKeySequence& shortcut, bool Target::*able,
             std::function<void()> Target::*run);
    void follow(QWidget* focus);
    void hearClipboard();
    void readClipboard();
    void refresh();

    struct Entry
    {
        QAction* action;
        bool Target::*able;
    };

    QPointer<QWidget> m_focus;
    QList<Entry> m_entries;
    bool m_clipboardFits = true; ///< Or may: its owner has not been asked.
};

} // namespace zelta
