// SPDX-License-Identifier: MIT
#pragma once

#include "dates/Date.h"
#include "host/UserNotificationCenter.h"

#include <filesystem>
#include <optional>
#include <system_error>
#include <vector>

/// A notification on the screen: the number that its daemon gave it, 0 for none, and which daemon that is. Numbers
/// begin anew with each daemon.
struct StandingNotification {
    uint id = 0;
    QString daemon;

    bool operator==(const StandingNotification&) const = default;
};

/// One request that the agent answers for.
struct Reminder {
    enum class State {
        Pending,   ///< its moment is to come
        Delivered, ///< its moment has come; nobody has clicked it, dismissed it or taken it back
    };

    NotificationRequest request;
    State state = State::Pending;
    bool announced = false;                 ///< it was shown once; when it is shown again it makes no sound
    StandingNotification notification = {}; ///< that shows it, as far as is known

    bool operator==(const Reminder&) const = default;
};

/// Where the agent of this user keeps its list: in the state folder of the XDG base directories 0.8. There
/// is such a file only while the agent has something to do.
std::filesystem::path usersReminderFile();

/// The pending and the delivered requests, kept in one file that only the user can read. There is at most one of each
/// state for an identifier. Every change is on the disk, whole, when the call returns; a program that is killed in
/// between leaves the file as it was.
class ReminderList {
public:
    explicit ReminderList(std::filesystem::path file) : m_file(std::move(file)) {}

    /// Takes what the file holds; entries that are no requests count as none. A file that cannot be read, is above
    /// 64 MiB or is no property list counts as none too: it is kept beside as Reminders.unreadable, in the place of an
    /// earlier one.
    void load();

    bool empty() const { return m_reminders.empty(); }
    const std::vector<Reminder>& all() const { return m_reminders; }

    /// The moment of the pending request that comes first, nullopt when none is pending.
    std::optional<Date> nextMoment() const;

    /// The delivered request of that identifier, null when there is none. It lives until the next change.
    const Reminder* delivered(const QString& identifier) const;

    /// Puts `request` in the place of the pending one of the same identifier. After an error nothing has changed.
    std::error_code add(const NotificationRequest& request);

    /// Delivers each pending request whose moment is not after `now`, in the place of the delivered one of the same
    /// identifier, whose notification it takes over. The identifiers of those delivered.
    QStringList deliverDue(Date now);

    /// The delivered request was announced by that notification, or is shown by none any more.
    void setNotification(const QString& identifier, const StandingNotification& notification);
    void removeDelivered(const QStringList& identifiers);

private:
    /// Puts it in the place of the one with the same identifier and state.
    void put(Reminder reminder);
    std::error_code save() const;

    std::filesystem::path m_file;
    std::vector<Reminder> m_reminders;
};
