#pragma once

#include "app/components/ScrollArea.h"
#include "app/model/Module.h"

#include <QPointer>
#include <functional>

namespace zelta {

class AppModel;
class Flash;
class Label;

/// The frame of every page: badge, title and subtitle above the page's own content, in a column of limited
/// width that scrolls. A page whose size policy expands downwards fills the view; others keep their height.
class PageChrome final : public ScrollArea
{
    Q_OBJECT

public:
    /// Makes the page's content as a child of the widget that it is given, after the page itself: Tab goes on
    /// from the page to the first control of its content.
    using MakeContent = std::function<QWidget*(QWidget* parent)>;

    PageChrome(Module module, AppModel& model, const MakeContent& makeContent, QWidget* parent);

    /// Puts the caret where typing on this page goes on: the field, or the paragraph of a note, that had it
    /// last, or its first field. A page without takes the focus itself, so that no key presses a button
    /// unasked.
    void focusEntry();

protected:
    void paintEvent(QPaintEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    QWidget* makeHeader(QWidget* column);
    void showMessage();

    Module m_module;
    AppModel& m_model;
    QWidget* m_column;
    QPointer<QWidget> m_lastFocus; ///< In this page; Qt forgets it when the window turns to another.
    QMetaObject::Connection m_typing; ///< Brings the field with the focus into sight.
    Label* m_subtitle = nullptr;
    Flash* m_message = nullptr;
};

} // namespace zelta
