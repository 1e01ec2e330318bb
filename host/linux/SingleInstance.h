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

/// Sees to it that one program runs in a session, the holder of a name on the session bus: a second start hands over
/// to it and ends. Its public slots are the desktop's interface org.freedesktop.Application, by which launchers, the
/// second start and the reminder agent reach the program.
class SingleInstance : public QObject, protected QDBusContext {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.Application")

public:
    enum class Start {
        First,      ///< this program runs
        HandedOver, ///< another one runs and has come forward
        NoAnswer,   ///< another one runs and does not answer
        Ended,      ///< this program is to end
    };

    /// How long the one that runs may take to answer.
    static constexpr std::chrono::seconds usualPatience{5};

    /// `done` is called, at any later time, once the reminder has been dealt with, with whether that went well.
    using ReminderHandler = std::function<void(const QByteArray& request, const std::function<void(bool)>& done)>;

    explicit SingleInstance(QDBusConnection bus = QDBusConnection::sessionBus(),
                            std::chrono::milliseconds patience = usualPatience)
        : m_bus(std::move(bus)), m_patience(patience)
    {
    }

    /// Takes the name, or has its holder come forward. Without a session bus every program is the first. Needs the
    /// application object and runs the event loop while it waits; what others say meanwhile is told afterwards. Gives
    /// up when `signals` ask for the end.
    Start claim(const QString& activationToken, const TerminationSignals& signals);

    /// Gives the name back, for a program that ends: a new one may start, and whoever calls this one hears an error.
    void release();

    /// Takes clicked reminders from then on.
    void setReminderHandler(ReminderHandler handler) { m_reminderHandler = std::move(handler); }

    Q_SLOT void Activate(const QVariantMap& platformData);

    /// The program opens no files: it comes forward.
    Q_SLOT void Open(const QStringList& uris, const QVariantMap& platformData);

    Q_SLOT void ActivateAction(const QString& action, const QVariantList& parameters, const QVariantMap& platformData);

Q_SIGNALS:
    /// The window is to come forward. The token lets it take the keyboard; it may be empty. However many have asked for
    /// it by the time that the program gets round to it, it is told once.
    void activated(const QString& activationToken);

private:
    /// What the holder of the name says, an error when it is silent; nullopt when this program is to end.
    std::optional<QDBusMessage> callHolder(const QDBusMessage& message, int patienceMs,
                                           const TerminationSignals& signals) const;
    bool refusesCalls();
    void comeForward();

    QDBusConnection m_bus;
    std::chrono::milliseconds m_patience;
    ReminderHandler m_reminderHandler;
    std::optional<QString> m_activationToken; ///< of the call that waits to be told
    bool m_released = false;
};
