// SPDX-License-Identifier: MIT
#include "agent/NotificationDaemon.h"

#include "host/bus/BusCall.h"

#include <QDBusReply>

#include <utility>

namespace {

constexpr int neverExpires = 0;
constexpr qsizetype longestToken = 4096; // it is passed in the program's environment, which has little room

QString service()
{
    return QStringLiteral("org.freedesktop.Notifications");
}

QDBusMessage method(const QString& name)
{
    return QDBusMessage::createMethodCall(service(), QStringLiteral("/org/freedesktop/Notifications"), service(), name);
}

} // namespace

NotificationDaemon::NotificationDaemon(const QDBusConnection& bus, QObject* parent)
    : QObject(parent), m_bus(bus), m_watcher(service(), bus, QDBusServiceWatcher::WatchForOwnerChange)
{
    const QDBusReply<QString> busId = m_bus.call(BusCall::methodOfTheBus(QStringLiteral("GetId")));
    m_busId = busId.value();
    connect(&m_watcher, &QDBusServiceWatcher::serviceOwnerChanged, this,
            [this](const QString&, const QString& formerOwner, const QString& owner) {
                if (!formerOwner.isEmpty()) {
                    Q_EMIT gone();
                }
                if (!owner.isEmpty()) {
                    Q_EMIT appeared();
                }
            });
    const auto listen = [this](const char* signal, const char* slot) {
        m_bus.connect(service(), QStringLiteral("/org/freedesktop/Notifications"), service(),
                      QString::fromLatin1(signal), this, slot);
    };
    listen("ActionInvoked", SLOT(actionInvoked(uint, QString)));
    listen("ActivationToken", SLOT(activationTokenGiven(uint, QString)));
    listen("NotificationClosed", SLOT(notificationClosed(uint, uint)));
}

void NotificationDaemon::show(const NotificationContent& content, NotificationSound sound,
                              const StandingNotification& replaced, Completion completion)
{
    const auto answer = [this, content, sound, replaced,
                         completion = std::move(completion)](const QDBusMessage& reply) {
        const QDBusReply<QStringList> capabilities(reply);
        if (!capabilities.isValid()) {
            completion(std::nullopt);
            return;
        }
        const bool isSame = daemonThatSent(reply) == replaced.daemon;
        notify(notificationText(content, capabilities.value(), sound), isSame ? replaced.id : 0, completion);
    };
    BusCall::send(m_bus, method(QStringLiteral("GetCapabilities")), *this, answer, BusCall::noTimeout);
}

void NotificationDaemon::notify(const NotificationText& text, uint replacedId, Completion completion)
{
    QDBusMessage message = method(QStringLiteral("Notify"));
    message << QStringLiteral("Velumora") << replacedId << QStringLiteral("x-office-calendar") << text.summary
            << text.body << text.actions << text.hints << neverExpires;
    const auto answer = [this, clickable = !text.actions.isEmpty(),
                         completion = std::move(completion)](const QDBusMessage& reply) {
        const QDBusReply<uint> id(reply);
        completion(id.isValid()
                       ? std::optional(Shown{.notification = {.id = id.value(), .daemon = daemonThatSent(reply)},
                                             .clickable = clickable})
                       : std::nullopt);
    };
    BusCall::send(m_bus, message, *this, answer, BusCall::noTimeout);
}

QString NotificationDaemon::daemonThatSent(const QDBusMessage& reply) const
{
    return m_busId + u' ' + reply.service();
}

void NotificationDaemon::close(uint id)
{
    QDBusMessage message = method(QStringLiteral("CloseNotification"));
    message.setAutoStartService(false);
    message << id;
    m_bus.asyncCall(message); // an error only means that it is gone already
}

void NotificationDaemon::actionInvoked(uint id, const QString& action)
{
    if (action == QLatin1String("default")) {
        const QString token = m_tokenId == id ? m_token : QString();
        m_token.clear();
        Q_EMIT clicked(id, token);
    }
}

void NotificationDaemon::activationTokenGiven(uint id, const QString& token)
{
    m_tokenId = id;
    m_token = token.size() <= longestToken ? token : QString();
}

void NotificationDaemon::notificationClosed(uint id, uint reason)
{
    constexpr uint dismissed = 2; // 1 is expired; 4 is undefined, and used by a daemon that ends, for example
    constexpr uint closedByCall = 3;
    Q_EMIT closed(id, reason == dismissed || reason == closedByCall ? Closing::Wanted : Closing::ByItself);
}
