// SPDX-License-Identifier: MIT
#include "host/bus/BusNotificationCenter.h"

#include "host/bus/AgentMessages.h"
#include "host/bus/BusCall.h"
#include "host/bus/StartedService.h"
#include "reminders/NotificationRequestFormat.h"
#include "store/Files.h"

#include <QDBusConnection>
#include <QDBusReply>
#include <QEventLoop>
#include <QTimer>

#include <utility>

namespace {

const QString daemonService = QStringLiteral("org.freedesktop.Notifications");

/// Calls the method `question` of the bus itself. `completion` receives the answer, or a default one after an error,
/// and is not called once `context` is destroyed.
template <typename Answer, typename Completion>
void askBus(QObject& context, const QString& question, const QVariantList& arguments, Completion completion)
{
    QDBusMessage message = BusCall::methodOfTheBus(question);
    message.setArguments(arguments);
    BusCall::send(QDBusConnection::sessionBus(), message, context,
                  [completion = std::move(completion)](const QDBusMessage& answer) {
                      const QDBusReply<Answer> reply(answer);
                      completion(reply.isValid() ? reply.value() : Answer());
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
    if (!QDBusConnection::sessionBus().isConnected()) { // it would never answer
        QMetaObject::invokeMethod(
            this, [completion = std::move(completion)] { completion(AuthorizationStatus::Denied); },
            Qt::QueuedConnection);
        return;
    }
    askBus<bool>(*this, QStringLiteral("NameHasOwner"), {daemonService},
                 [this, completion = std::move(completion)](bool runs) {
                     if (runs) {
                         completion(AuthorizationStatus::Authorized);
                         return;
                     }
                     askBus<QStringList>(*this, QStringLiteral("ListActivatableNames"), {},
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
    if (!bytes) { // the agent refuses such a size, and the bus may break on it
        QMetaObject::invokeMethod(
            this, [completion = std::move(completion)] { completion(QStringLiteral("The note is too long.")); },
            Qt::QueuedConnection);
        return;
    }
    ++m_unanswered;
    agent().call(AgentMessages::addRequest(*bytes), [this,
                                                     completion = std::move(completion)](const QDBusMessage& reply) {
        --m_unanswered;
        if (!m_ending) {
            completion(reply.type() == QDBusMessage::ErrorMessage ? std::optional(reply.errorMessage()) : std::nullopt);
        }
    });
}

void BusNotificationCenter::removeDeliveredNotifications(const QStringList& identifiers)
{
    QDBusConnection::sessionBus().asyncCall(AgentMessages::removeDelivered(identifiers));
}

void BusNotificationCenter::startAgentForReminders(const std::filesystem::path& reminders)
{
    if (!FileStatus::of(reminders).isAbsent()) {
        agent().call(AgentMessages::pendingRequests(), [](const QDBusMessage&) {});
    }
}

void BusNotificationCenter::reminderClicked(const QByteArray& request, const std::function<void(bool)>& done)
{
    if (!m_delegate || m_ending) { // the delegate may be gone by then
        done(false);
        return;
    }
    const bool isTooMany = !m_delegate->acceptsResponses();
    if (isTooMany && !m_isRefusing) {
        qWarning("velumora: too many clicked reminders wait; further ones are refused");
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
        m_agent = std::make_unique<StartedService>(QDBusConnection::sessionBus(), AgentMessages::service(),
                                                   AgentMessages::program());
    }
    return *m_agent;
}
