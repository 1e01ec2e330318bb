// SPDX-License-Identifier: MIT
#pragma once

#include <QDBusConnection>
#include <QDBusContext>
#include <QDBusMessage>
#include <QObject>
#include <QVariantMap>

#include <chrono>
#include <functional>
#include <optional>
#include <utility>

class TerminationSignals;

/// Ensures that one program runs in a session, the owner of a name on the session bus; a second start hands over to it
/// and ends. The public slots are the desktop's interface org.freedesktop.Application, by which launchers, a second
/// start and the reminder agent reach the program.
class SingleInstance : public QObject, protected QDBusContext {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.Application")

public:
    enum class Start {
        First,      ///< this program should run
        HandedOver, ///< another one runs and has come forward
        NoAnswer,   ///< another one runs and does not answer
        Ended,      ///< this program was asked to end
    };

    /// How long the running program may take to answer.
    static constexpr std::chrono::seconds usualPatience{5};

    /// `done` is called later, once the reminder has been dealt with, with whether that succeeded.
    using ReminderHandler = std::function<void(const QByteArray& request, const std::function<void(bool)>& done)>;

    explicit SingleInstance(QDBusConnection bus = QDBusConnection::sessionBus(),
                            std::chrono::milliseconds patience = usualPatience)
        : m_bus(std::move(bus)), m_patience(patience)
    {
    }

    /// Takes the name, or makes its owner come forward. Without a session bus every program is the first. Needs the
    /// application object and runs the event loop while it waits; calls from others meanwhile are reported afterwards.
    /// Gives up when `signals` ask the program to end.
    Start claim(const QString& activationToken, const TerminationSignals& signals);

    /// Releases the name for a program that ends: a new one may start, and callers of this one get an error.
    void release();

    /// Accepts clicked reminders from then on.
    void setReminderHandler(ReminderHandler handler) { m_reminderHandler = std::move(handler); }

    Q_SLOT void Activate(const QVariantMap& platformData);

    /// The program opens no files, so it only comes forward.
    Q_SLOT void Open(const QStringList& uris, const QVariantMap& platformData);

    Q_SLOT void ActivateAction(const QString& action, const QVariantList& parameters, const QVariantMap& platformData);

Q_SIGNALS:
    /// The window should come forward. The token, which may be empty, allows it to take the keyboard focus. Several
    /// requests that arrive before the program handles them are reported once.
    void activated(const QString& activationToken);

private:
    /// The reply of the name's owner, an error when it does not answer; nullopt when this program was asked to end.
    std::optional<QDBusMessage> callHolder(const QDBusMessage& message, int patienceMs,
                                           const TerminationSignals& signals) const;
    bool refusesCalls();
    void comeForward();

    QDBusConnection m_bus;
    std::chrono::milliseconds m_patience;
    ReminderHandler m_reminderHandler;
    std::optional<QString> m_activationToken; ///< of the latest call that has not been reported
    bool m_released = false;
};
