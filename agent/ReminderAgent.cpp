// SPDX-License-Identifier: MIT
#include "agent/ReminderAgent.h"

#include "dates/Clock.h"
#include "host/bus/ApplicationMessages.h"
#include "reminders/NotificationRequestFormat.h"

#include <QDBusMetaType>

#include <algorithm>
#include <chrono>
#include <utility>

using namespace std::chrono_literals;
using namespace NotificationRequestFormat;

namespace {

constexpr auto lingerTime = 3s; // a client that had the bus start the agent is about to call
constexpr auto firstRetry = 1s; // doubles with each failure
constexpr auto lastRetry = 60s;

bool isLimit(const std::error_code& error)
{
    return error == std::errc::value_too_large;
}

} // namespace

ReminderAgent::ReminderAgent(const QDBusConnection& bus, const std::filesystem::path& file, AutostartEntry autostart)
    : m_reminders(file), m_autostart(std::move(autostart)), m_daemon(bus),
      m_program(bus, ApplicationMessages::service(), QStringLiteral("velumora"))
{
    qDBusRegisterMetaType<QByteArrayList>();
    m_linger.setSingleShot(true);
    m_linger.setInterval(lingerTime);
    connect(&m_linger, &QTimer::timeout, this, &ReminderAgent::finished);
    m_retry.setSingleShot(true);
    m_retry.setInterval(firstRetry);
    connect(&m_retry, &QTimer::timeout, this, &ReminderAgent::tryAgain);
    connect(&m_due, &DueTimer::woken, this, &ReminderAgent::update);
    connect(&m_daemon, &NotificationDaemon::clicked, this, &ReminderAgent::clicked);
    connect(&m_daemon, &NotificationDaemon::closed, this, &ReminderAgent::closed);
    connect(&m_daemon, &NotificationDaemon::gone, this, &ReminderAgent::daemonGone);
    connect(&m_daemon, &NotificationDaemon::appeared, this, &ReminderAgent::daemonAppeared);
}

void ReminderAgent::begin()
{
    load();
    update();
}

bool ReminderAgent::hasNothingToDo() const
{
    return m_reminders.isLoaded() && m_reminders.empty() && !m_reminders.hasUnsavedChanges();
}

/// Reads the file unless that has been done; false when it cannot be read.
bool ReminderAgent::load()
{
    if (m_reminders.isLoaded()) {
        return true;
    }
    m_loadError = m_reminders.load();
    if (m_loadError) {
        report("The reminders cannot be read", m_loadError);
    } else if (!m_reminders.empty()) {
        startAtLogin(); // the agent may have been moved since the entry was written
    }
    return !m_loadError;
}

/// Does `load` for a call from the bus, and answers it with an error when that fails.
bool ReminderAgent::canAnswer()
{
    const bool wasLoaded = m_reminders.isLoaded();
    if (!load()) {
        sendErrorReply(QDBusError::Failed, QStringLiteral("The reminders cannot be read: ") +
                                               QString::fromStdString(m_loadError.message()));
        return false;
    }
    if (!wasLoaded) {
        update();
    }
    return true;
}

void ReminderAgent::startAtLogin()
{
    const std::error_code error = m_autostart.enable();
    m_isStartedAtLogin = !error;
    if (error) {
        report("The autostart entry cannot be written", error);
    }
}

void ReminderAgent::tryAgain()
{
    if (load()) {
        if (const std::error_code error = m_reminders.saveAgain()) {
            report("The reminders cannot be saved", error);
        }
        if (!m_isStartedAtLogin) {
            startAtLogin();
        }
    }
    m_retry.setInterval(std::min<std::chrono::milliseconds>(2 * m_retry.intervalAsDuration(), lastRetry));
    update();
}

/// Logs a failure, but not again until there is a different one or it is over.
void ReminderAgent::report(const char* failure, const std::error_code& error)
{
    const QString line = QString::fromUtf8(failure) + QStringLiteral(": ") + QString::fromStdString(error.message());
    if (std::exchange(m_reported, line) != line) {
        qWarning("velumora-reminder-agent: %s", qUtf8Printable(line));
    }
}

void ReminderAgent::AddRequest(const QByteArray& request)
{
    std::optional<NotificationRequest> parsed;
    bool isTooLarge = request.size() > largestRequest;
    if (!isTooLarge && (parsed = requestFromBytes(request))) {
        const std::optional<QByteArray> written = bytesOf(*parsed);
        isTooLarge = !written;
        parsed = written ? requestFromBytes(*written) : std::nullopt; // as it will be read from the file
    }
    if (isTooLarge) {
        sendErrorReply(QDBusError::LimitsExceeded, QStringLiteral("The request is too large"));
        return;
    }
    if (!parsed || parsed->trigger.repeats) {
        sendErrorReply(QDBusError::InvalidArgs, QStringLiteral("Not a request for one moment"));
        return;
    }
    if (!canAnswer()) {
        return;
    }
    std::error_code error = m_autostart.enable();
    if (!error) {
        m_isStartedAtLogin = true;
        error = m_reminders.add(*parsed);
    }
    if (error && hasNothingToDo()) {
        m_autostart.disable();
    }
    if (error) {
        sendErrorReply(isLimit(error) ? QDBusError::LimitsExceeded : QDBusError::Failed,
                       QString::fromStdString(error.message()));
    }
    update();
}

QByteArrayList ReminderAgent::PendingRequests()
{
    return requests(Reminder::State::Pending);
}

QByteArrayList ReminderAgent::DeliveredRequests()
{
    return requests(Reminder::State::Delivered);
}

void ReminderAgent::RemoveDelivered(const QStringList& identifiers)
{
    if (canAnswer()) {
        dismiss(identifiers);
        update();
    }
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
    updateTimers();
}

void ReminderAgent::updateTimers()
{
    if (!hasNothingToDo()) {
        m_linger.stop();
    } else if (!m_linger.isActive()) {
        if (const std::error_code error = m_autostart.disable()) { // the next start tries again
            report("The autostart entry cannot be removed", error);
        }
        m_isStartedAtLogin = true;
        m_linger.start();
    }
    if (m_reminders.isLoaded() && !m_reminders.hasUnsavedChanges() && m_isStartedAtLogin) {
        m_retry.stop();
        m_retry.setInterval(firstRetry);
        m_reported.clear();
    } else if (!m_retry.isActive()) {
        m_retry.start();
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
    if (notification == m_notifications.end()) { // withdrawn meanwhile
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
    if (result) {
        takeNumberFromOthers(identifier, notification->id);
    }
    if (result && !notification->upToDate) {
        m_reminders.setFormerNotification(identifier, result->notification); // it was delivered again meanwhile
    } else if (result) {
        m_reminders.setNotification(identifier, result->notification);
        if (!result->clickable) {
            m_reminders.removeDelivered({identifier}); // the daemon will not report a click
            m_notifications.erase(notification);
        }
    }
    update();
}

/// A number means the notification that was last shown under it.
void ReminderAgent::takeNumberFromOthers(const QString& identifier, uint id)
{
    for (auto other = m_notifications.begin(); other != m_notifications.end(); ++other) {
        if (other.key() != identifier && id != 0 && other->id == id) {
            other->id = 0;
            m_reminders.setNotification(other.key(), {});
        }
    }
}

void ReminderAgent::clicked(uint id, const QString& activationToken)
{
    const std::optional<QString> shownOne = identifierOf(id);
    const Reminder* reminder = shownOne ? m_reminders.delivered(*shownOne) : nullptr;
    if (!reminder || m_notifications[*shownOne].clicked) {
        return;
    }
    const QString& identifier = *shownOne;
    m_notifications[identifier].clicked = true;
    const std::optional<QByteArray> request = bytesOf(reminder->request);
    // Only a file that another program wrote can have one that is too large; the program is brought up without it.
    const QDBusMessage message = request ? ApplicationMessages::showReminder(*request, activationToken)
                                         : ApplicationMessages::activate(activationToken);
    m_program.call(
        message,
        [this, identifier](const QDBusMessage& reply) {
            const auto notification = m_notifications.find(identifier);
            if (notification == m_notifications.end() || !notification->clicked) {
                return; // withdrawn or replaced meanwhile
            }
            if (reply.type() == QDBusMessage::ReplyMessage) {
                dismiss({identifier});
            } else { // the program did not take it, so show it again
                notification->clicked = false;
                notification->upToDate = false;
            }
            update();
        },
        activationToken);
}

void ReminderAgent::closed(uint id, NotificationDaemon::Closing closing)
{
    const std::optional<QString> identifier = identifierOf(id);
    if (!identifier) {
        return;
    }
    Notification& notification = m_notifications[*identifier];
    notification.id = 0;
    if (notification.beingShown) {
        m_reminders.setFormerNotification(*identifier, {}); // the one on its way has not been seen yet
        return;
    }
    m_reminders.setNotification(*identifier, {});
    if (!notification.clicked && closing == NotificationDaemon::Closing::Wanted) {
        dismiss({*identifier});
    }
    update();
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
        if (notification.beingShown) { // the bus may have started this daemon for it
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

std::optional<QString> ReminderAgent::identifierOf(uint id) const
{
    for (auto entry = m_notifications.begin(); entry != m_notifications.end(); ++entry) {
        if (id != 0 && entry->id == id) {
            return entry.key();
        }
    }
    return std::nullopt;
}

QByteArrayList ReminderAgent::requests(Reminder::State state)
{
    if (!canAnswer()) {
        return {};
    }
    constexpr qsizetype lengthAndPadding = 8; // of each element on the bus
    QByteArrayList found;
    qsizetype size = 0;
    for (const Reminder& reminder : m_reminders.all()) {
        if (reminder.state != state) {
            continue;
        }
        const std::optional<QByteArray> request = bytesOf(reminder.request);
        found << request.value_or(QByteArray());
        size += found.last().size() + lengthAndPadding;
        if (!request || size > largestReply) {
            sendErrorReply(QDBusError::LimitsExceeded, QStringLiteral("The reminders are too large for the bus"));
            return {};
        }
    }
    return found;
}
