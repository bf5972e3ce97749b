#include "app/components/Announcement.h"

#include <QAccessible>
#include <QAccessibleWidget>

namespace zelta {

namespace {

/// Qt knows the role, but has no widget of it.
class Notification final : public QAccessibleWidget
{
public:
    explicit Notification(Announcement* announcement)
        : QAccessibleWidget(announcement, QAccessible::Notification)
        , m_announcement(*announcement)
    { }

    [[nodiscard]] QString text(QAccessible::Text kind) const override
    {
        const QString text = QAccessibleWidget::text(kind);
        return kind == QAccessible::Name && text.isEmpty() ? m_announcement.text() : text;
    }

private:
    const Announcement& m_announcement;
};

QAccessibleInterface* makeInterface(const QString& /*className*/, QObject* object)
{
    auto* announcement = qobject_cast<Announcement*>(object);
    return announcement != nullptr ? new Notification(announcement) : nullptr;
}

} // namespace

Announcement::Announcement(const QString& text, Theme::FontRole role, Theme::Token token, QWidget* parent)
    : Label(text, role, token, parent)
{
    QAccessible::installFactory(makeInterface); // once; more often does nothing
}

void Announcement::announce()
{
    if (!isVisible())
        return;
    QAccessibleEvent shown(this, QAccessible::ObjectShow);
    QAccessible::updateAccessibility(&shown);
}

} // namespace zelta
