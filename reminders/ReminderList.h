// SPDX-License-Identifier: MIT
#pragma once

#include "dates/Date.h"
#include "reminders/NotificationRequest.h"

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

/// The pending and the delivered requests, kept in one file that only the user can read. There is at most one of each
/// state for an identifier. A change is on the disk, whole, when the call returns; a program that is killed in between
/// leaves the file as it was. A change that could not be written is kept, and written with the next one or by
/// `saveAgain`.
class ReminderList {
public:
    static constexpr std::size_t largestRead = std::size_t{64} << 20; ///< bytes of a file that is read

    /// Bytes of the file that an added request may make. The rest up to `largestRead` is for what later becomes of the
    /// requests: whether they were announced, and by which notification.
    static constexpr std::size_t largestWritten = std::size_t{30} << 20;

    static constexpr std::size_t mostReminders = 1000; ///< added ones; the program itself has two at the most

    explicit ReminderList(std::filesystem::path file) : m_file(std::move(file)) {}

    /// Takes what the file holds; entries that are no requests count as none. A file that is above `largestRead` or is
    /// no property list counts as none too: it is kept beside as Reminders.unreadable, in the place of an earlier one.
    ///
    /// After an error nobody knows what the file holds. It stays as it is, the list is empty and takes nothing until
    /// a later call succeeds.
    std::error_code load();
    bool isLoaded() const { return m_isLoaded; }

    bool empty() const { return m_reminders.empty(); }
    const std::vector<Reminder>& all() const { return m_reminders; }

    /// The moment of the pending request that comes first, nullopt when none is pending.
    std::optional<Date> nextMoment() const;

    /// The delivered request of that identifier, null when there is none. It lives until the next change.
    const Reminder* delivered(const QString& identifier) const;

    /// Puts `request` in the place of the pending one of the same identifier. After an error nothing has changed;
    /// std::errc::value_too_large says that the list would be beyond its limits, or could not be read back.
    std::error_code add(const NotificationRequest& request);

    /// Delivers each pending request whose moment is not after `now`, in the place of the delivered one of the same
    /// identifier, whose notification it takes over. The identifiers of those delivered.
    QStringList deliverDue(Date now);

    /// The delivered request was announced by that notification, or is shown by none any more.
    void setNotification(const QString& identifier, const StandingNotification& notification);

    /// That notification stands for an earlier delivery of the request, which is yet to be announced in its place.
    void setFormerNotification(const QString& identifier, const StandingNotification& notification);
    void removeDelivered(const QStringList& identifiers);

    /// The file is not what the list is: writing it failed. It may hold delivered requests as pending ones, so that a
    /// program that is killed now delivers them again: better than never.
    bool hasUnsavedChanges() const { return m_hasUnsavedChanges; }
    std::error_code saveAgain();

private:
    enum class Check { None, ReadBack };

    /// Puts it in the place of the one with the same identifier and state.
    void put(Reminder reminder);
    std::error_code save(Check check = Check::None);
    std::error_code write(Check check);

    std::filesystem::path m_file;
    std::vector<Reminder> m_reminders;
    bool m_isLoaded = false;
    bool m_hasUnsavedChanges = false;
};
