// SPDX-License-Identifier: MIT
#pragma once

#include "dates/Date.h"
#include "reminders/NotificationRequest.h"

#include <filesystem>
#include <optional>
#include <system_error>
#include <vector>

/// A notification on the screen: its daemon's number for it (0 for none), and which daemon that is, since each daemon
/// numbers from 1 again.
struct StandingNotification {
    uint id = 0;
    QString daemon;

    bool operator==(const StandingNotification&) const = default;
};

/// A request in the agent's care.
struct Reminder {
    enum class State {
        Pending,   ///< its moment has not come yet
        Delivered, ///< its moment has come; it has not been clicked, dismissed or withdrawn
    };

    NotificationRequest request;
    State state = State::Pending;
    bool announced = false;                 ///< it has been shown once; shown again, it makes no sound
    StandingNotification notification = {}; ///< the one that shows it, as far as known

    bool operator==(const Reminder&) const = default;
};

/// The pending and the delivered requests, kept in one file that only the user can read. An identifier has at most one
/// request in each state. A change is on the disk when the call returns, and a program killed in between leaves the
/// file as it was. A change that could not be written is kept, and written with the next one or by `saveAgain`.
class ReminderList {
public:
    static constexpr std::size_t largestRead = std::size_t{64} << 20; ///< bytes of the file that `load` accepts

    /// The most bytes that the file may have after adding a request. The rest, up to `largestRead`, is for later
    /// additions to the requests: whether they were announced, and by which notification.
    static constexpr std::size_t largestWritten = std::size_t{30} << 20;

    static constexpr std::size_t mostReminders = 1000; ///< that can be added; the program itself needs two at most

    explicit ReminderList(std::filesystem::path file) : m_file(std::move(file)) {}

    /// Reads the file, ignoring entries that are not requests. A file larger than `largestRead`, or that is not a
    /// property list, counts as empty and is renamed to Reminders.unreadable, replacing an earlier one.
    ///
    /// After an error the content of the file is unknown. It stays as it is, and the list is empty and accepts nothing
    /// until a later call succeeds.
    std::error_code load();
    bool isLoaded() const { return m_isLoaded; }

    bool empty() const { return m_reminders.empty(); }
    const std::vector<Reminder>& all() const { return m_reminders; }

    /// The earliest moment of a pending request; nullopt when none is pending.
    std::optional<Date> nextMoment() const;

    /// The delivered request with that identifier; null when there is none. Valid until the next change.
    const Reminder* delivered(const QString& identifier) const;

    /// Adds `request`, replacing the pending one with the same identifier. After an error nothing has changed;
    /// std::errc::value_too_large means that the list would exceed its limits or could not be read back.
    std::error_code add(const NotificationRequest& request);

    /// Delivers each pending request whose moment is not after `now`, replacing the delivered one with the same
    /// identifier and taking over its notification. Returns the identifiers.
    QStringList deliverDue(Date now);

    /// Records that the delivered request was announced, and by which notification it is shown now, if any.
    void setNotification(const QString& identifier, const StandingNotification& notification);

    /// Records that the notification shows an earlier delivery of the request; the present one is yet to be announced
    /// in its place.
    void setFormerNotification(const QString& identifier, const StandingNotification& notification);
    void removeDelivered(const QStringList& identifiers);

    /// Whether writing the file failed, so that it differs from the list. It may still have delivered requests as
    /// pending, which a program killed now delivers twice: better than never.
    bool hasUnsavedChanges() const { return m_hasUnsavedChanges; }
    std::error_code saveAgain();

private:
    enum class Check { None, ReadBack };

    /// Appends it, replacing the one with the same identifier and state.
    void put(Reminder reminder);
    std::error_code save(Check check = Check::None);
    std::error_code write(Check check);

    std::filesystem::path m_file;
    std::vector<Reminder> m_reminders;
    bool m_isLoaded = false;
    bool m_hasUnsavedChanges = false;
};
