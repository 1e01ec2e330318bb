// SPDX-License-Identifier: MIT
#include "look/Announcer.h"

#include <QAccessibleWidget>
#include <QStringList>

#include <utility>

namespace {

class AnnouncerAccessible final : public QAccessibleWidget {
public:
    explicit AnnouncerAccessible(Announcer& announcer) : QAccessibleWidget(&announcer, QAccessible::Notification) {}

    QString text(QAccessible::Text t) const override
    {
        return t == QAccessible::Name ? qobject_cast<Announcer*>(object())->announcement() : QAccessibleWidget::text(t);
    }
};

QAccessibleInterface* makeAnnouncerInterface(const QString& /*className*/, QObject* object)
{
    auto* const announcer = qobject_cast<Announcer*>(object);
    return announcer ? new AnnouncerAccessible(*announcer) : nullptr; // the accessibility cache owns it
}

} // namespace

Announcer::Announcer(QWidget& window) : QWidget(&window)
{
    QAccessible::installFactory(makeAnnouncerInterface);
    hide();
}

void Announcer::announce(Kind kind, const QString& text)
{
    if (m_waiting.empty()) {
        QMetaObject::invokeMethod(this, &Announcer::say, Qt::QueuedConnection);
    }
    m_waiting.insert_or_assign(kind, text);
}

void Announcer::say()
{
    QStringList texts;
    for (const auto& [kind, text] : std::exchange(m_waiting, {})) {
        texts.append(text);
    }
    m_said = texts.join(QStringLiteral(". "));
    QAccessibleEvent renamed(this, QAccessible::NameChanged); // a reader caches names
    QAccessible::updateAccessibility(&renamed);
    QAccessibleEvent shown(this, QAccessible::ObjectShow);
    QAccessible::updateAccessibility(&shown);
}
