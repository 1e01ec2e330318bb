// SPDX-License-Identifier: MIT
#pragma once

#include "host/agent/AutostartEntry.h"
#include "host/agent/DueTimer.h"
#include "host/agent/NotificationDaemon.h"
#include "host/agent/ReminderList.h"
#include "host/linux/StartedService.h"

#include <QByteArrayList>
#include <QDBusConnection>
#include <QDBusContext>
#include <QHash>
#include <QObject>
#include <QTimer>

/// Keeps the user's reminders and delivers each at its moment. What it offers on the bus are its public slots; a
/// request goes over the bus as the property list of NotificationRequestFormat.h.
///
/// A delivered reminder stays until it is clicked, dismissed or taken back. Until then it is shown again, without
/// a sound, when the daemon that showed it is gone and another one comes, after a restart of the machine too. So is one
/// that the daemon let go by itself. After a crash of the agent it takes the place of the notification that still
/// stands.
class ReminderAgent : public QObject, protected QDBusContext {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "app.velumora.ReminderAgent1")

public:
    static constexpr const char* service = "app.velumora.ReminderAgent1";
    static constexpr const char* path = "/app/velumora/ReminderAgent1";

    ReminderAgent(const QDBusConnection& bus, const std::filesystem::path& file, AutostartEntry autostart);

    /// Reads the file, which from then on nobody else may write; delivers what is due, then waits.
    void begin();

    bool hasNothingToDo() const;

public Q_SLOTS:
    /// Answers once the request is on the disk and the agent is sure to be started at login; else with an error.
    void AddRequest(const QByteArray& request);

    QByteArrayList PendingRequests() const;
    QByteArrayList DeliveredRequests() const;

    /// Takes delivered reminders from the screen. Pending ones stay.
    void RemoveDelivered(const QStringList& identifiers);

Q_SIGNALS:
    /// There has been nothing to do for a moment.
    void finished();

private:
    /// A delivered reminder's notification.
    struct Notification {
        uint id = 0; ///< 0 while the daemon shows none
        bool beingShown = false;
        bool upToDate = false;       ///< the daemon shows it as it is, has refused it, or is about to answer
        bool retryIfRefused = false; ///< a daemon has come since it was sent
        bool clicked = false;        ///< the program is being told
    };

    void update();
    void show(const QString& identifier);
    void shown(const QString& identifier, const std::optional<NotificationDaemon::Shown>& result);
    void clicked(uint id, const QString& activationToken);
    void closed(uint id, NotificationDaemon::Closing closing);
    void daemonGone();
    void daemonAppeared();
    void dismiss(const QStringList& identifiers);
    QString identifierOf(uint id) const;
    QByteArrayList requests(Reminder::State state) const;

    ReminderList m_reminders;
    AutostartEntry m_autostart;
    NotificationDaemon m_daemon;
    StartedService m_program;
    DueTimer m_due;
    QTimer m_linger;                              ///< runs only when there is nothing to do
    QHash<QString, Notification> m_notifications; ///< by identifier, of delivered reminders only
};
