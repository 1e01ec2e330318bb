// SPDX-License-Identifier: MIT
#pragma once

#include <QAccessible>
#include <QList>
#include <QPointer>
#include <QString>
#include <qpa/qplatformaccessibility.h>
#include <qpa/qplatformintegration.h>

#include <algorithm>

#include <private/qguiapplication_p.h>

/// What a screen reader is told from now on, as long as this lives. One at a time.
class HeardEvents {
public:
    struct Heard {
        QAccessible::Event type;
        QPointer<QObject> object;
        QAccessible::Role role;
        QString name; ///< of what the event is about, when it came
    };

    HeardEvents() : m_wasActive(QAccessible::isActive())
    {
        events().clear();
        setActive(true);
        m_former = QAccessible::installUpdateHandler(hear);
    }
    HeardEvents(const HeardEvents&) = delete;
    HeardEvents& operator=(const HeardEvents&) = delete;
    ~HeardEvents()
    {
        QAccessible::installUpdateHandler(m_former);
        setActive(m_wasActive);
    }

    const QList<Heard>& all() const { return events(); }

    QList<Heard> ofType(QAccessible::Event type) const
    {
        QList<Heard> found;
        std::ranges::copy_if(events(), std::back_inserter(found),
                             [type](const Heard& each) { return each.type == type; });
        return found;
    }

    /// The names of the notifications that showed themselves, in their order.
    QStringList announcements() const
    {
        QStringList names;
        for (const Heard& each : ofType(QAccessible::ObjectShow)) {
            if (each.role == QAccessible::Notification) {
                names.append(each.name);
            }
        }
        return names;
    }

private:
    /// As the desktop does when a screen reader starts or ends.
    static void setActive(bool active)
    {
        QGuiApplicationPrivate::platformIntegration()->accessibility()->setActive(active);
    }

    static QList<Heard>& events()
    {
        static QList<Heard> list;
        return list;
    }

    static void hear(QAccessibleEvent* event)
    {
        const QAccessibleInterface* about = event->accessibleInterface();
        events().append({.type = event->type(),
                         .object = event->object(),
                         .role = about ? about->role() : QAccessible::NoRole,
                         .name = about ? about->text(QAccessible::Name) : QString()});
    }

    QAccessible::UpdateHandler m_former = nullptr;
    bool m_wasActive;
};
