// SPDX-License-Identifier: MIT
#pragma once

#include "reminders/NotificationText.h"
#include "reminders/ReminderList.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusServiceWatcher>
#include <QObject>

#include <functional>
#include <optional>

/// The desktop's notification daemon, whichever program that is (Desktop Notifications Specification 1.2).
class NotificationDaemon : public QObject {
    Q_OBJECT

public:
    struct Shown {
        StandingNotification notification;
        bool clickable = false; ///< the daemon reports clicks
    };

    enum class Closing {
        Wanted,   ///< it was dismissed, or closed by a call
        ByItself, ///< the daemon removed it, seen or not
    };

    /// nullopt when there is no daemon or it refused. Not called once the object is destroyed.
    using Completion = std::function<void(const std::optional<Shown>& shown)>;

    explicit NotificationDaemon(const QDBusConnection& bus, QObject* parent = nullptr);

    /// Shows `content` until it is clicked or dismissed, in place of the notification `replaced` if the present daemon
    /// is the one that showed that.
    void show(const NotificationContent& content, NotificationSound sound, const StandingNotification& replaced,
              Completion completion);

    void close(uint id);

Q_SIGNALS:
    /// `activationToken` allows the program that is brought up to take the keyboard focus; it may be empty.
    void clicked(uint id, const QString& activationToken);
    void closed(uint id, NotificationDaemon::Closing closing);
    void gone();
    void appeared();

private:
    Q_SLOT void actionInvoked(uint id, const QString& action);
    Q_SLOT void activationTokenGiven(uint id, const QString& token);
    Q_SLOT void notificationClosed(uint id, uint reason);

    void notify(const NotificationText& text, uint replacedId, Completion completion);
    QString daemonThatSent(const QDBusMessage& reply) const;

    QDBusConnection m_bus;
    QDBusServiceWatcher m_watcher;
    QString m_busId;    ///< the bus's id, since connection names are unique only within a bus
    uint m_tokenId = 0; ///< the notification that `m_token` belongs to
    QString m_token;
};
