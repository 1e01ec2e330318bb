// SPDX-License-Identifier: MIT
#pragma once

#include "agent/DueTimer.h"
#include "agent/NotificationDaemon.h"
#include "host/bus/StartedService.h"
#include "reminders/AutostartEntry.h"
#include "reminders/ReminderList.h"

#include <QByteArrayList>
#include <QDBusConnection>
#include <QDBusContext>
#include <QHash>
#include <QObject>
#include <QTimer>

/// Keeps the user's reminders and delivers each at its moment. The public slots are its interface on the bus, where a
/// request has the form of NotificationRequestFormat.h.
///
/// D-Bus allows arrays of up to 64 MiB and messages of up to 128 MiB; a bus daemon without a configured limit allows
/// messages of up to 32 MiB. A request has at most 16 MiB; all of them together have at most 30 MiB in the file and
/// number at most 1,000 (see ReminderList.h); and each is a quarter of a kilobyte longer as a property list of its own.
/// So every reply stays below `largestReply`. A list from before these limits may exceed it; then the answer is an
/// error.
///
/// While its file cannot be read, the agent answers every call with an error and leaves the file alone. It tries again
/// with each call and from time to time, and does the same after a change that could not be written.
///
/// A delivered reminder stays until it is clicked, dismissed or withdrawn. Until then it is shown again, silently, when
/// another daemon replaces the one that showed it, also after a restart of the machine, and when the daemon removed it
/// on its own. After a crash of the agent it replaces the notification that is still on the screen.
class ReminderAgent : public QObject, protected QDBusContext {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "app.velumora.ReminderAgent1") // the moc cannot use a constant here

public:
    static constexpr qsizetype largestReply = qsizetype{31} << 20; ///< bytes

    ReminderAgent(const QDBusConnection& bus, const std::filesystem::path& file, AutostartEntry autostart);

    /// Reads the file, which nobody else may write from then on; delivers what is due, then waits.
    void begin();

    /// Whether there is certainly no reminder, in memory or on the disk.
    bool hasNothingToDo() const;

    /// Answers once the request is on the disk and the agent is certain to be started at login, else with an error:
    /// LimitsExceeded for a request that is too large or would make the list too large.
    Q_SLOT void AddRequest(const QByteArray& request);

    Q_SLOT QByteArrayList PendingRequests();
    Q_SLOT QByteArrayList DeliveredRequests();

    /// Removes delivered reminders from the list and the screen. Pending ones stay.
    Q_SLOT void RemoveDelivered(const QStringList& identifiers);

Q_SIGNALS:
    /// There has been nothing to do for a few seconds.
    void finished();

private:
    /// A delivered reminder's notification.
    struct Notification {
        uint id = 0; ///< 0 while the daemon shows none
        bool beingShown = false;
        bool upToDate = false;       ///< the daemon shows the present delivery, refused it, or is about to answer
        bool retryIfRefused = false; ///< a daemon has appeared since it was sent
        bool clicked = false;        ///< the program is being notified
    };

    bool load();
    bool canAnswer();
    void startAtLogin();
    void tryAgain();
    void report(const char* failure, const std::error_code& error);
    void update();
    void updateTimers();
    void show(const QString& identifier);
    void shown(const QString& identifier, const std::optional<NotificationDaemon::Shown>& result);
    void takeNumberFromOthers(const QString& identifier, uint id);
    void clicked(uint id, const QString& activationToken);
    void closed(uint id, NotificationDaemon::Closing closing);
    void daemonGone();
    void daemonAppeared();
    void dismiss(const QStringList& identifiers);

    /// The identifier of the reminder that the daemon shows under that number; nullopt when it is not the agent's.
    std::optional<QString> identifierOf(uint id) const;
    QByteArrayList requests(Reminder::State state);

    ReminderList m_reminders;
    AutostartEntry m_autostart;
    NotificationDaemon m_daemon;
    StartedService m_program;
    DueTimer m_due;
    QTimer m_linger;                              ///< runs only while there is nothing to do
    QTimer m_retry;                               ///< runs only while something that failed has to be repeated
    std::error_code m_loadError;                  ///< of the last attempt
    bool m_isStartedAtLogin = true;               ///< false when the entry is needed and could not be written
    QString m_reported;                           ///< the failure that was logged last
    QHash<QString, Notification> m_notifications; ///< by identifier; of delivered reminders only
};
