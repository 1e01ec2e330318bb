// SPDX-License-Identifier: MIT
#include "host/agent/NotificationDaemon.h"

#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>

#include <limits>
#include <utility>

namespace {

constexpr int noTimeout = std::numeric_limits<int>::max(); // a daemon that ends is heard of at once
constexpr int neverExpires = 0;

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

void NotificationDaemon::show(const NotificationContent& content, NotificationSound sound, uint replacedId,
                              Completion completion)
{
    const QDBusMessage message = method(QStringLiteral("GetCapabilities"));
    auto* watcher = new QDBusPendingCallWatcher(m_bus.asyncCall(message, noTimeout), this);
    connect(watcher, &QDBusPendingCallWatcher::finished, this,
            [this, watcher, content, sound, replacedId, completion = std::move(completion)] {
                watcher->deleteLater();
                const QDBusPendingReply<QStringList> capabilities = *watcher;
                if (capabilities.isError()) {
                    completion(std::nullopt);
                } else {
                    notify(notificationText(content, capabilities.value(), sound), replacedId, completion);
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
            [watcher, clickable = !text.actions.isEmpty(), completion = std::move(completion)] {
                watcher->deleteLater();
                const QDBusPendingReply<uint> id = *watcher;
                completion(id.isError() ? std::nullopt : std::optional(Shown{id.value(), clickable}));
            });
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
    m_token = token;
}

void NotificationDaemon::notificationClosed(uint id, uint reason)
{
    constexpr uint dismissed = 2; // 1 has expired, 4 is undefined: that of a daemon which ends, for one
    constexpr uint closedByCall = 3;
    Q_EMIT closed(id, reason == dismissed || reason == closedByCall ? Closing::Wanted : Closing::ByItself);
}
