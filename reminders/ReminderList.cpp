// SPDX-License-Identifier: MIT
#include "reminders/ReminderList.h"

#include "plist/PropertyList.h"
#include "reminders/NotificationRequestFormat.h"
#include "reminders/TriggerMoment.h"
#include "store/Files.h"
#include "store/Record.h"

#include <QSet>

#include <algorithm>
#include <cerrno>
#include <utility>

#include <unistd.h>

namespace {

namespace fs = std::filesystem;

constexpr std::string_view requestKey = "Request";
constexpr std::string_view deliveredKey = "Delivered";
constexpr std::string_view announcedKey = "Announced";
constexpr std::string_view notificationKey = "Notification"; // absent when none is shown
constexpr std::string_view daemonKey = "Daemon";

Value valueOf(const Reminder& reminder)
{
    Dictionary dictionary{
        {std::string(requestKey), NotificationRequestFormat::valueOf(reminder.request)},
        {std::string(deliveredKey), Value(reminder.state == Reminder::State::Delivered)},
        {std::string(announcedKey), Value(reminder.announced)},
    };
    if (reminder.notification.id != 0) {
        dictionary.set(std::string(notificationKey), Value(Integer{reminder.notification.id, false}));
        dictionary.set(std::string(daemonKey), Value(reminder.notification.daemon.toStdString()));
    }
    return Value(dictionary);
}

StandingNotification notificationFrom(const DictionaryView& dictionary)
{
    const std::optional<Value> number = dictionary.find(notificationKey);
    const std::optional<Value> daemon = dictionary.find(daemonKey);
    const Integer* id = number ? number->integer() : nullptr;
    const std::optional<std::string_view> name = daemon ? daemon->text() : std::nullopt;
    if (!id || !name || id->negative || !std::in_range<uint>(id->magnitude)) {
        return {};
    }
    return {.id = static_cast<uint>(id->magnitude),
            .daemon = QString::fromUtf8(name->data(), static_cast<qsizetype>(name->size()))};
}

bool isTrue(const DictionaryView& dictionary, std::string_view key)
{
    const std::optional<Value> value = dictionary.find(key);
    return value && value->boolean() && *value->boolean();
}

std::optional<Reminder> reminderFrom(const Value& value)
{
    const DictionaryView dictionary = value.dictionary();
    const std::optional<Value> held = dictionary ? dictionary.find(requestKey) : std::nullopt;
    std::optional<NotificationRequest> request = held ? NotificationRequestFormat::requestFrom(*held) : std::nullopt;
    if (!request) {
        return std::nullopt;
    }
    const bool delivered = isTrue(dictionary, deliveredKey);
    return Reminder{*std::move(request), delivered ? Reminder::State::Delivered : Reminder::State::Pending,
                    isTrue(dictionary, announcedKey), notificationFrom(dictionary)};
}

/// Renames a file that is not a list, so that no later one overwrites it.
std::error_code keepAside(const fs::path& file)
{
    fs::path aside = file;
    aside += ".unreadable";
    std::error_code error;
    fs::rename(file, aside, error);
    return error ? error : syncFolder(file.parent_path());
}

/// The file's records, none when there is no file; nullopt without an error for a file that is not a list.
std::optional<Table> recordsIn(const fs::path& file, std::error_code& error)
{
    if (FileStatus::of(file).isAbsent() || FileStatus::ofTarget(file).isSomethingElse()) {
        return Table(); // a folder is not a list, and renaming a file onto it fails, so it is safe
    }
    if (std::optional<FileContent> content = readFile(file, ReminderList::largestRead, error)) {
        return content->size == 0 ? Table() : PropertyList::readTableInPlace(content->bytes(), error);
    }
    if (error == std::errc::file_too_large) {
        error.clear();
    }
    return std::nullopt;
}

} // namespace

std::error_code ReminderList::load()
{
    removeStaleTemporaries(m_file.parent_path(), m_file.filename().native());
    std::error_code error;
    const std::optional<Table> table = recordsIn(m_file, error);
    if (!table && !error) {
        error = keepAside(m_file);
    }
    if (error) {
        return error;
    }
    m_isLoaded = true;
    for (const Value& value : elementsOf(table)) {
        if (std::optional<Reminder> reminder = reminderFrom(value)) {
            put(*std::move(reminder));
        }
    }
    return {};
}

std::optional<Date> ReminderList::nextMoment() const
{
    std::optional<Date> next;
    for (const Reminder& reminder : m_reminders) {
        if (reminder.state == Reminder::State::Pending) {
            const Date moment = momentOf(reminder.request.trigger);
            next = next ? std::min(*next, moment) : moment;
        }
    }
    return next;
}

const Reminder* ReminderList::delivered(const QString& identifier) const
{
    const auto found = std::ranges::find_if(m_reminders, [&](const Reminder& reminder) {
        return reminder.state == Reminder::State::Delivered && reminder.request.identifier == identifier;
    });
    return found == m_reminders.end() ? nullptr : &*found;
}

std::error_code ReminderList::add(const NotificationRequest& request)
{
    if (!m_isLoaded) {
        return std::make_error_code(std::errc::operation_not_permitted);
    }
    const std::vector<Reminder> former = m_reminders;
    put({.request = request});
    if (m_reminders.size() > std::max(mostReminders, former.size())) {
        m_reminders = former;
        return std::make_error_code(std::errc::value_too_large);
    }
    const std::error_code error = save(Check::ReadBack);
    if (error) {
        m_reminders = former;
    }
    return error;
}

QStringList ReminderList::deliverDue(Date now)
{
    const auto isDue = [now](const Reminder& reminder) {
        return reminder.state == Reminder::State::Pending && momentOf(reminder.request.trigger) <= now;
    };
    std::vector<Reminder> due;
    std::ranges::copy_if(m_reminders, std::back_inserter(due), isDue);
    std::erase_if(m_reminders, isDue);
    QStringList identifiers;
    for (Reminder& reminder : due) {
        identifiers << reminder.request.identifier;
        reminder.state = Reminder::State::Delivered;
        if (const Reminder* former = delivered(reminder.request.identifier)) {
            reminder.notification = former->notification;
        }
        put(std::move(reminder));
    }
    if (!due.empty()) {
        (void)save();
    }
    return identifiers;
}

void ReminderList::setNotification(const QString& identifier, const StandingNotification& notification)
{
    for (Reminder& reminder : m_reminders) {
        if (reminder.state == Reminder::State::Delivered && reminder.request.identifier == identifier) {
            const bool wasAnnounced = std::exchange(reminder.announced, true);
            if (std::exchange(reminder.notification, notification) != notification || !wasAnnounced) {
                (void)save();
            }
        }
    }
}

void ReminderList::setFormerNotification(const QString& identifier, const StandingNotification& notification)
{
    for (Reminder& reminder : m_reminders) {
        if (reminder.state == Reminder::State::Delivered && reminder.request.identifier == identifier &&
            std::exchange(reminder.notification, notification) != notification) {
            (void)save();
        }
    }
}

void ReminderList::removeDelivered(const QStringList& identifiers)
{
    const QSet<QString> gone(identifiers.begin(), identifiers.end());
    const std::size_t removed = std::erase_if(m_reminders, [&](const Reminder& reminder) {
        return reminder.state == Reminder::State::Delivered && gone.contains(reminder.request.identifier);
    });
    if (removed > 0) {
        (void)save();
    }
}

void ReminderList::put(Reminder reminder)
{
    std::erase_if(m_reminders, [&](const Reminder& other) {
        return other.state == reminder.state && other.request.identifier == reminder.request.identifier;
    });
    m_reminders.push_back(std::move(reminder));
}

std::error_code ReminderList::saveAgain()
{
    return m_hasUnsavedChanges ? save() : std::error_code();
}

std::error_code ReminderList::save(Check check)
{
    const std::error_code error = m_reminders.empty() ? removeFile(m_file) : write(check);
    if (!error) {
        m_hasUnsavedChanges = false;
    } else if (check == Check::None) {
        m_hasUnsavedChanges = true;
    }
    return error;
}

std::error_code ReminderList::write(Check check)
{
    Table table;
    for (const Reminder& reminder : m_reminders) {
        table << valueOf(reminder);
    }
    std::string bytes;
    std::error_code error = PropertyList::writeXml(table, [&bytes](std::string_view piece) {
        bytes.append(piece);
        return std::error_code();
    });
    const std::size_t most = check == Check::ReadBack ? largestWritten : largestRead;
    if (error || bytes.size() > most || (check == Check::ReadBack && !PropertyList::readTable(bytes))) {
        return std::make_error_code(std::errc::value_too_large);
    }
    if ((error = makePrivateFolder(m_file.parent_path()))) {
        return error;
    }
    TemporaryFile file(m_file);
    if ((error = file.write(bytes))) {
        return error;
    }
    error = file.replaceTarget();
    if (file.hasReplacedTarget() && error) {
        m_hasUnsavedChanges = true; // it may not survive a power cut; a caller may undo the change
    }
    return error;
}
