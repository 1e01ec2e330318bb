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

/// Keeps the user's reminders and delivers each at its moment. What it offers on the bus are its public slots; a
/// request goes over the bus as the property list of NotificationRequestFormat.h.
///
/// D-Bus carries arrays of up to 64 MiB and messages of up to 128 MiB; a bus daemon whose configuration names no limit
/// takes messages of up to 32 MiB. One request is of 16 MiB at the most, all of them together are of 30 MiB in the file
/// and of 1,000 in number (see ReminderList.h), and each by itself is a quarter of a kilobyte longer: every reply is
/// below `largestReply`. A list from before these limits may be above it; then the answer is an error.
///
/// While its file cannot be read the agent answers every call with an error and leaves the file alone. It tries again
/// with each call and from time to time; so it does when a change could not be written.
///
/// A delivered reminder stays until it is clicked, dismissed or taken back. Until then it is shown again, without
/// a sound, when the daemon that showed it is gone and another one comes, after a restart of the machine too. So is one
/// that the daemon let go by itself. After a crash of the agent it takes the place of the notification that still
/// stands.
class ReminderAgent : public QObject, protected QDBusContext {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "app.velumora.ReminderAgent1") // the generator of such code knows no names

public:
    static constexpr qsizetype largestReply = qsizetype{31} << 20; ///< bytes

    ReminderAgent(const QDBusConnection& bus, const std::filesystem::path& file, AutostartEntry autostart);

    /// Reads the file, which from then on nobody else may write; delivers what is due, then waits.
    void begin();

    /// There is no reminder, and that is known and on the disk.
    bool hasNothingToDo() const;

    /// Answers once the request is on the disk and the agent is sure to be started at login; else with an error, that
    /// of LimitsExceeded for a request that is too large or would make the list so.
    Q_SLOT void AddRequest(const QByteArray& request);

    Q_SLOT QByteArrayList PendingRequests();
    Q_SLOT QByteArrayList DeliveredRequests();

    /// Takes delivered reminders from the screen. Pending ones stay.
    Q_SLOT void RemoveDelivered(const QStringList& identifiers);

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

    /// The identifier of the reminder that the daemon shows under that number; nullopt when it is none of the agent's.
    std::optional<QString> identifierOf(uint id) const;
    QByteArrayList requests(Reminder::State state);

    ReminderList m_reminders;
    AutostartEntry m_autostart;
    NotificationDaemon m_daemon;
    StartedService m_program;
    DueTimer m_due;
    QTimer m_linger;                              ///< runs only when there is nothing to do
    QTimer m_retry;                               ///< runs only while something that failed is to be done
    std::error_code m_loadError;                  ///< of the last try
    bool m_isStartedAtLogin = true;               ///< false when the entry is needed and could not be written
    QString m_reported;                           ///< the failure that was written to the log last
    QHash<QString, Notification> m_notifications; ///< by identifier, of delivered reminders only
};
