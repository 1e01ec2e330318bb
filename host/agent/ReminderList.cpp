// SPDX-License-Identifier: MIT
#include "host/agent/ReminderList.h"

#include "host/agent/NotificationRequestFormat.h"
#include "host/agent/StateFolder.h"
#include "host/agent/TriggerMoment.h"
#include "store/Files.h"
#include "store/PropertyList.h"

#include <algorithm>
#include <utility>

namespace {

namespace fs = std::filesystem;

constexpr std::string_view requestKey = "Request";
constexpr std::string_view deliveredKey = "Delivered";
constexpr std::string_view announcedKey = "Announced";
constexpr std::string_view notificationKey = "Notification"; // absent where none stands
constexpr std::string_view daemonKey = "Daemon";
constexpr std::size_t maximumFileSize = std::size_t{64} << 20; // bytes; one note is a few hundred

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

StandingNotification notificationFrom(const Dictionary& dictionary)
{
    const Value* number = dictionary.find(notificationKey);
    const Value* daemon = dictionary.find(daemonKey);
    const Integer* id = number ? number->integer() : nullptr;
    const std::string* name = daemon ? daemon->text() : nullptr;
    if (!id || !name || id->negative || !std::in_range<uint>(id->magnitude)) {
        return {};
    }
    return {.id = static_cast<uint>(id->magnitude), .daemon = QString::fromStdString(*name)};
}

bool isTrue(const Dictionary& dictionary, std::string_view key)
{
    const Value* value = dictionary.find(key);
    return value && value->boolean() && *value->boolean();
}

std::optional<Reminder> reminderFrom(const Value& value)
{
    const Dictionary* dictionary = value.dictionary();
    const Value* held = dictionary ? dictionary->find(requestKey) : nullptr;
    std::optional<NotificationRequest> request = held ? NotificationRequestFormat::requestFrom(*held) : std::nullopt;
    if (!request) {
        return std::nullopt;
    }
    const bool delivered = isTrue(*dictionary, deliveredKey);
    return Reminder{*std::move(request), delivered ? Reminder::State::Delivered : Reminder::State::Pending,
                    isTrue(*dictionary, announcedKey), notificationFrom(*dictionary)};
}

/// Gives a file that cannot be read another name, so that no later one takes its place.
void keepAside(const fs::path& file)
{
    std::error_code ignored; // what cannot be renamed cannot be replaced either
    if (fs::is_regular_file(file, ignored) && !fs::is_empty(file, ignored)) {
        fs::path aside = file;
        aside += ".unreadable";
        fs::rename(file, aside, ignored);
        syncFolder(file.parent_path());
    }
}

} // namespace

fs::path usersReminderFile()
{
    return usersStateFolder() / "Reminders";
}

void ReminderList::load()
{
    removeStaleTemporaries(m_file.parent_path(), m_file.filename().native());
    std::optional<FileContent> content = readFile(m_file, maximumFileSize);
    const std::optional<Table> table = content ? PropertyList::readTableInPlace(content->bytes()) : std::nullopt;
    if (!table) {
        keepAside(m_file);
    }
    for (const Value& value : table.value_or(Table())) {
        if (std::optional<Reminder> reminder = reminderFrom(value)) {
            put(*std::move(reminder));
        }
    }
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
    const std::vector<Reminder> former = m_reminders;
    put({.request = request});
    const std::error_code error = save();
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
        (void)save(); // when that fails, the request is delivered again at the next start: better than never
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

void ReminderList::removeDelivered(const QStringList& identifiers)
{
    const std::size_t removed = std::erase_if(m_reminders, [&](const Reminder& reminder) {
        return reminder.state == Reminder::State::Delivered && identifiers.contains(reminder.request.identifier);
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

std::error_code ReminderList::save() const
{
    if (m_reminders.empty()) {
        std::error_code error;
        if (fs::remove(m_file, error)) {
            syncFolder(m_file.parent_path());
        }
        return error;
    }
    if (const std::error_code error = makePrivateFolder(m_file.parent_path())) {
        return error;
    }
    Table table;
    for (const Reminder& reminder : m_reminders) {
        table << valueOf(reminder);
    }
    TemporaryFile file(m_file);
    if (const std::error_code error = file.write(PropertyList::writeXml(table))) {
        return error;
    }
    if (const std::error_code error = file.sync()) {
        return error;
    }
    return file.replaceTarget();
}
