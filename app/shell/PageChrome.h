#pragma once

#include "app/components/ScrollArea.h"
#include "app/model/Module.h"

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
    /// Takes ownership of `content`.
    PageChrome(Module module, AppModel& model, QWidget* content, QWidget* parent);

    /// Puts the caret where typing on this page begins: its first field, or the paragraph of a note that had
    /// it last. A page without takes the focus itself, so that no key presses a button unasked.
    void focusEntry();

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QWidget* makeHeader(QWidget* column);
    void showMessage();

    Module m_module;
    AppModel& m_model;
    QWidget* m_column;
    Label* m_subtitle = nullptr;
    Flash* m_message = nullptr;
};

} // namespace zelta
