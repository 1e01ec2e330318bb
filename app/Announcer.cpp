// SPDX-License-Identifier: MIT
#include "app/Announcer.h"

#include <QAccessibleWidget>

namespace {

class AnnouncerAccessible final : public QAccessibleWidget {
public:
    explicit AnnouncerAccessible(Announcer& announcer) : QAccessibleWidget(&announcer, QAccessible::Notification) {}

    QString text(QAccessible::Text t) const override
    {
        return t == QAccessible::Name ? qobject_cast<Announcer*>(object())->announcement() : QAccessibleWidget::text(t);
    }
};

QAccessibleInterface* makeInterface(const QString& /*className*/, QObject* object)
{
    auto* const announcer = qobject_cast<Announcer*>(object);
    return announcer ? new AnnouncerAccessible(*announcer) : nullptr; // the accessibility cache owns it
}

} // namespace

Announcer::Announcer(QWidget& window) : QWidget(&window)
{
    QAccessible::installFactory(makeInterface);
    hide();
}

void Announcer::announce(const QString& text)
{
    if (m_waiting.isEmpty()) {
        QMetaObject::invokeMethod(this, &Announcer::say, Qt::QueuedConnection);
    }
    if (!m_waiting.contains(text)) {
        m_waiting.append(text);
    }
}

void Announcer::say()
{
    m_said = m_waiting.join(QStringLiteral(". "));
    m_waiting.clear();
    QAccessibleEvent renamed(this, QAccessible::NameChanged); // a reader keeps the names that it was told
    QAccessible::updateAccessibility(&renamed);
    QAccessibleEvent shown(this, QAccessible::ObjectShow);
    QAccessible::updateAccessibility(&shown);
}
