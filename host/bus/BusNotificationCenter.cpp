// SPDX-License-Identifier: MIT
#include "host/bus/BusNotificationCenter.h"

#include "host/bus/StartedService.h"
#include "reminders/NotificationRequestFormat.h"
#include "reminders/ReminderList.h"
#include "store/Files.h"

#include <QDBusConnection>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QEventLoop>
#include <QTimer>

#include <utility>

namespace {

const QString daemonService = QStringLiteral("org.freedesktop.Notifications");

QDBusMessage agentMethod(const QString& name)
{
    const QString service = QStringLiteral("app.velumora.ReminderAgent1");
    return QDBusMessage::createMethodCall(service, QStringLiteral("/app/velumora/ReminderAgent1"), service, name);
}

/// Asks the bus itself. `completion` gets the answer, or a default one after an error, and is not called any more once
/// `context` is gone.
template <typename Answer, typename Completion>
void askBus(QObject* context, const QString& question, const QVariantList& arguments, Completion completion)
{
    const QString bus = QStringLiteral("org.freedesktop.DBus");
    QDBusMessage message = QDBusMessage::createMethodCall(bus, QStringLiteral("/org/freedesktop/DBus"), bus, question);
    message.setArguments(arguments);
    auto* watcher = new QDBusPendingCallWatcher(QDBusConnection::sessionBus().asyncCall(message), context);
    QObject::connect(watcher, &QDBusPendingCallWatcher::finished, context,
                     [watcher, completion = std::move(completion)] {
                         watcher->deleteLater();
                         const QDBusPendingReply<Answer> reply = *watcher;
                         completion(reply.isError() ? Answer() : reply.value());
                     });
}

} // namespace

BusNotificationCenter::BusNotificationCenter() = default;

BusNotificationCenter::~BusNotificationCenter()
{
    m_ending = true;
    QTimer patience;
    patience.setSingleShot(true);
    patience.start(StartedService::patience);
    QEventLoop loop;
    while (m_unanswered > 0 && patience.isActive()) {
        loop.processEvents(QEventLoop::ExcludeUserInputEvents | QEventLoop::WaitForMoreEvents);
    }
}

void BusNotificationCenter::requestAuthorization(NotificationOptions, std::function<void(bool)> completion)
{
    getNotificationSettings([completion = std::move(completion)](AuthorizationStatus status) {
        completion(status == AuthorizationStatus::Authorized);
    });
}

void BusNotificationCenter::getNotificationSettings(std::function<void(AuthorizationStatus)> completion)
{
    if (!QDBusConnection::sessionBus().isConnected()) { // which would never answer
        QMetaObject::invokeMethod(
            this, [completion = std::move(completion)] { completion(AuthorizationStatus::Denied); },
            Qt::QueuedConnection);
        return;
    }
    askBus<bool>(this, QStringLiteral("NameHasOwner"), {daemonService},
                 [this, completion = std::move(completion)](bool runs) {
                     if (runs) {
                         completion(AuthorizationStatus::Authorized);
                         return;
                     }
                     askBus<QStringList>(this, QStringLiteral("ListActivatableNames"), {},
                                         [completion](const QStringList& names) {
                                             completion(names.contains(daemonService) ? AuthorizationStatus::Authorized
                                                                                      : AuthorizationStatus::Denied);
                                         });
                 });
}

void BusNotificationCenter::addNotificationRequest(const NotificationRequest& request,
                                                   std::function<void(const std::optional<QString>&)> completion)
{
    const std::optional<QByteArray> bytes = NotificationRequestFormat::bytesOf(request);
    if (!bytes) { // the agent takes none so large, and the bus breaks with some
        QMetaObject::invokeMethod(
            this, [completion = std::move(completion)] { completion(QStringLiteral("The note is too long.")); },
            Qt::QueuedConnection);
        return;
    }
    QDBusMessage message = agentMethod(QStringLiteral("AddRequest"));
    message << *bytes;
    ++m_unanswered;
    agent().call(message, [this, completion = std::move(completion)](const QDBusMessage& reply) {
        --m_unanswered;
        if (!m_ending) {
            completion(reply.type() == QDBusMessage::ErrorMessage ? std::optional(reply.errorMessage()) : std::nullopt);
        }
    });
}

void BusNotificationCenter::removeDeliveredNotifications(const QStringList& identifiers)
{
    QDBusMessage message = agentMethod(QStringLiteral("RemoveDelivered"));
    message.setAutoStartService(false); // one that does not run shows nothing
    message << identifiers;
    QDBusConnection::sessionBus().asyncCall(message);
}

void BusNotificationCenter::startAgentForReminders()
{
    if (!FileStatus::of(usersReminderFile()).isAbsent()) {
        agent().call(agentMethod(QStringLiteral("PendingRequests")), [](const QDBusMessage&) {});
    }
}

void BusNotificationCenter::reminderClicked(const QByteArray& request, const std::function<void(bool)>& done)
{
    if (!m_delegate || m_ending) { // at the end the delegate may be gone
        done(false);
        return;
    }
    const bool isTooMany = !m_delegate->acceptsResponses();
    if (isTooMany && !m_isRefusing) {
        qWarning("velumora: too many clicked reminders wait; no more are taken");
    }
    m_isRefusing = isTooMany;
    std::optional<NotificationRequest> clicked;
    if (!isTooMany && request.size() <= NotificationRequestFormat::largestRequest) {
        clicked = NotificationRequestFormat::requestFromBytes(request);
    }
    if (!clicked) {
        done(false);
        return;
    }
    m_delegate->didReceiveNotificationResponse({NotificationResponse::Action::Default, *clicked},
                                               [done] { done(true); });
}

StartedService& BusNotificationCenter::agent()
{
    if (!m_agent) {
        m_agent = std::make_unique<StartedService>(QDBusConnection::sessionBus(),
                                                   QStringLiteral("app.velumora.ReminderAgent1"),
                                                   QStringLiteral("velumora-reminder-agent"));
    }
    return *m_agent;
}
