// SPDX-License-Identifier: MIT
#include "host/agent/ReminderAgent.h"

#include "dates/Clock.h"
#include "host/agent/NotificationRequestFormat.h"
#include "host/linux/ApplicationMessages.h"

#include <QDBusMetaType>

#include <chrono>
#include <utility>

using namespace std::chrono_literals;

namespace {

constexpr auto lingerTime = 3s;                           // whoever started it by way of the bus is about to call
constexpr qsizetype largestRequest = qsizetype{16} << 20; // bytes; see the largest file in ReminderList.cpp

} // namespace

ReminderAgent::ReminderAgent(const QDBusConnection& bus, const std::filesystem::path& file, AutostartEntry autostart)
    : m_reminders(file), m_autostart(std::move(autostart)), m_daemon(bus),
      m_program(bus, ApplicationMessages::service(), QStringLiteral("velumora"))
{
    qDBusRegisterMetaType<QByteArrayList>();
    m_linger.setSingleShot(true);
    m_linger.setInterval(lingerTime);
    connect(&m_linger, &QTimer::timeout, this, &ReminderAgent::finished);
    connect(&m_due, &DueTimer::woken, this, &ReminderAgent::update);
    connect(&m_daemon, &NotificationDaemon::clicked, this, &ReminderAgent::clicked);
    connect(&m_daemon, &NotificationDaemon::closed, this, &ReminderAgent::closed);
    connect(&m_daemon, &NotificationDaemon::gone, this, &ReminderAgent::daemonGone);
    connect(&m_daemon, &NotificationDaemon::appeared, this, &ReminderAgent::daemonAppeared);
}

void ReminderAgent::begin()
{
    m_reminders.load();
    if (!m_reminders.empty()) {
        (void)m_autostart.enable(); // the program may have been moved since
    }
    update();
}

bool ReminderAgent::hasNothingToDo() const
{
    return m_reminders.empty();
}

void ReminderAgent::AddRequest(const QByteArray& request)
{
    if (request.size() > largestRequest) {
        sendErrorReply(QDBusError::LimitsExceeded, QStringLiteral("The request is too large"));
        return;
    }
    const std::optional<NotificationRequest> parsed = NotificationRequestFormat::requestFromBytes(request);
    if (!parsed || parsed->trigger.repeats) {
        sendErrorReply(QDBusError::InvalidArgs, QStringLiteral("Not a request for one moment"));
        return;
    }
    std::error_code error = m_autostart.enable();
    if (!error) {
        error = m_reminders.add(*parsed);
    }
    if (error && m_reminders.empty()) {
        m_autostart.disable();
    }
    if (error) {
        sendErrorReply(QDBusError::Failed, QString::fromStdString(error.message()));
    }
    update();
}

QByteArrayList ReminderAgent::PendingRequests() const
{
    return requests(Reminder::State::Pending);
}

QByteArrayList ReminderAgent::DeliveredRequests() const
{
    return requests(Reminder::State::Delivered);
}

void ReminderAgent::RemoveDelivered(const QStringList& identifiers)
{
    dismiss(identifiers);
    update();
}

void ReminderAgent::update()
{
    for (const QString& identifier : m_reminders.deliverDue(DateEnvironment::now())) {
        m_notifications[identifier].upToDate = false;
        m_notifications[identifier].clicked = false;
    }
    for (const Reminder& reminder : m_reminders.all()) {
        if (reminder.state == Reminder::State::Delivered) {
            show(reminder.request.identifier);
        }
    }
    m_due.waitFor(m_reminders.nextMoment());
    if (!m_reminders.empty()) {
        m_linger.stop();
    } else if (!m_linger.isActive()) {
        m_autostart.disable();
        m_linger.start();
    }
}

void ReminderAgent::show(const QString& identifier)
{
    Notification& notification = m_notifications[identifier];
    const Reminder* reminder = m_reminders.delivered(identifier);
    if (notification.upToDate || notification.beingShown || notification.clicked || !reminder) {
        return;
    }
    notification.upToDate = true;
    notification.beingShown = true;
    const NotificationSound sound = reminder->announced ? NotificationSound::Silent : NotificationSound::Audible;
    m_daemon.show(
        reminder->request.content, sound, reminder->notification,
        [this, identifier](const std::optional<NotificationDaemon::Shown>& result) { shown(identifier, result); });
}

void ReminderAgent::shown(const QString& identifier, const std::optional<NotificationDaemon::Shown>& result)
{
    const auto notification = m_notifications.find(identifier);
    if (notification == m_notifications.end()) { // taken back meanwhile
        if (result) {
            m_daemon.close(result->notification.id);
        }
        return;
    }
    notification->beingShown = false;
    notification->id = result ? result->notification.id : 0;
    if (std::exchange(notification->retryIfRefused, false) && !result) {
        notification->upToDate = false;
    }
    if (result && notification->upToDate) {
        m_reminders.setNotification(identifier, result->notification);
        if (!result->clickable) {
            m_reminders.removeDelivered({identifier}); // nothing more will be heard of it
            m_notifications.erase(notification);
        }
    }
    update();
}

void ReminderAgent::clicked(uint id, const QString& activationToken)
{
    const QString identifier = identifierOf(id);
    const Reminder* reminder = m_reminders.delivered(identifier);
    if (!reminder || m_notifications[identifier].clicked) {
        return;
    }
    m_notifications[identifier].clicked = true;
    const QByteArray request = NotificationRequestFormat::bytesOf(reminder->request);
    m_program.call(
        ApplicationMessages::showReminder(request, activationToken),
        [this, identifier](const QDBusMessage& reply) {
            const auto notification = m_notifications.find(identifier);
            if (notification == m_notifications.end() || !notification->clicked) {
                return; // taken back or replaced meanwhile
            }
            if (reply.type() == QDBusMessage::ReplyMessage) {
                dismiss({identifier});
            } else { // the program was not there to take it, so it is there to be clicked again
                notification->clicked = false;
                notification->upToDate = false;
            }
            update();
        },
        activationToken);
}

void ReminderAgent::closed(uint id, NotificationDaemon::Closing closing)
{
    const QString identifier = identifierOf(id);
    const auto notification = m_notifications.find(identifier);
    if (notification == m_notifications.end()) {
        return;
    }
    notification->id = 0;
    m_reminders.setNotification(identifier, {});
    if (!notification->clicked && closing == NotificationDaemon::Closing::Wanted) {
        dismiss({identifier});
        update();
    }
}

void ReminderAgent::daemonGone()
{
    for (Notification& notification : m_notifications) {
        notification.id = 0;
    }
}

void ReminderAgent::daemonAppeared()
{
    for (Notification& notification : m_notifications) {
        if (notification.beingShown) { // the bus may have started this daemon to show it
            notification.retryIfRefused = true;
        } else {
            notification.upToDate = false;
        }
    }
    update();
}

void ReminderAgent::dismiss(const QStringList& identifiers)
{
    for (const QString& identifier : identifiers) {
        if (const uint id = m_notifications.take(identifier).id; id != 0) {
            m_daemon.close(id);
        }
    }
    m_reminders.removeDelivered(identifiers);
}

QString ReminderAgent::identifierOf(uint id) const
{
    for (auto entry = m_notifications.begin(); entry != m_notifications.end(); ++entry) {
        if (id != 0 && entry->id == id) {
            return entry.key();
        }
    }
    return {};
}

QByteArrayList ReminderAgent::requests(Reminder::State state) const
{
    QByteArrayList found;
    for (const Reminder& reminder : m_reminders.all()) {
        if (reminder.state == state) {
            found << NotificationRequestFormat::bytesOf(reminder.request);
        }
    }
    return found;
}
