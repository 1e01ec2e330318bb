// SPDX-License-Identifier: MIT
#include "agent/NotificationDaemon.h"

#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QDBusReply>

#include <limits>
#include <utility>

namespace {

constexpr int noTimeout = std::numeric_limits<int>::max(); // a daemon that ends is heard of at once
constexpr int neverExpires = 0;
constexpr qsizetype longestToken = 4096; // it goes to the program in its environment, which has little room

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
    const QString theBus = QStringLiteral("org.freedesktop.DBus");
    const QDBusReply<QString> busId = m_bus.call(QDBusMessage::createMethodCall(
        theBus, QStringLiteral("/org/freedesktop/DBus"), theBus, QStringLiteral("GetId")));
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
    const QDBusMessage message = method(QStringLiteral("GetCapabilities"));
    auto* watcher = new QDBusPendingCallWatcher(m_bus.asyncCall(message, noTimeout), this);
    connect(watcher, &QDBusPendingCallWatcher::finished, this,
            [this, watcher, content, sound, replaced, completion = std::move(completion)] {
                watcher->deleteLater();
                const QDBusPendingReply<QStringList> capabilities = *watcher;
                if (capabilities.isError()) {
                    completion(std::nullopt);
                } else {
                    const bool isSame = daemonThatSent(watcher->reply()) == replaced.daemon;
                    notify(notificationText(content, capabilities.value(), sound), isSame ? replaced.id : 0,
                           completion);
                }
            });
}

void NotificationDaemon::notify(const NotificationText& text, uint replacedId, Completion completion)
{
    QDBusMessage message = method(QStringLiteral("Notify"));
    message << QStringLiteral("Velumora") << replacedId << QStringLiteral("x-office-calendar") << text.summary
            << text.body << text.actions << text.hints << neverExpires;
    auto* watcher = new QDBusPendingCallWatcher(m_bus.asyncCall(message, noTimeout), this);
    connect(watcher, &QDBusPendingCallWatcher::finished, this,
            [this, watcher, clickable = !text.actions.isEmpty(), completion = std::move(completion)] {
                watcher->deleteLater();
                const QDBusPendingReply<uint> id = *watcher;
                completion(id.isError()
                               ? std::nullopt
                               : std::optional(Shown{
                                     .notification = {.id = id.value(), .daemon = daemonThatSent(watcher->reply())},
                                     .clickable = clickable}));
            });
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
    m_bus.asyncCall(message); // one that is gone already is an error of no interest
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
    constexpr uint dismissed = 2; // 1 has expired, 4 is undefined: that of a daemon which ends, for one
    constexpr uint closedByCall = 3;
    Q_EMIT closed(id, reason == dismissed || reason == closedByCall ? Closing::Wanted : Closing::ByItself);
}
