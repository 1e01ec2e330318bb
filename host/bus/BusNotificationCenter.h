// SPDX-License-Identifier: MIT
#pragma once

#include "host/UserNotificationCenter.h"

#include <QObject>

#include <filesystem>
#include <memory>

class StartedService;

/// Passes reminders to the reminder agent, which keeps and delivers them whether the program runs or not. The bus is
/// not asked anything before that is needed, and nothing blocks except the destructor, which waits for the agent to
/// receive what was sent to it.
class BusNotificationCenter : public QObject, public UserNotificationCenter {
    Q_OBJECT

public:
    BusNotificationCenter();
    ~BusNotificationCenter() override;

    void setDelegate(UserNotificationCenterDelegate& delegate) override { m_delegate = &delegate; }

    /// Granted, without asking the user, wherever a notification can be shown.
    void requestAuthorization(NotificationOptions options, std::function<void(bool)> completion) override;

    /// Authorized when a notification daemon runs or the bus can start one; else Denied, also without a bus.
    void getNotificationSettings(std::function<void(AuthorizationStatus)> completion) override;

    void addNotificationRequest(const NotificationRequest& request,
                                std::function<void(const std::optional<QString>&)> completion) override;
    void removeDeliveredNotifications(const QStringList& identifiers) override;

    /// Starts the agent if `reminders`, its file, shows that it has something to do: it may have been killed since
    /// login.
    void startAgentForReminders(const std::filesystem::path& reminders);

    /// Passes a clicked reminder, in the form that it has on the bus, to the delegate. `done` is told whether the
    /// delegate accepted it: any program on the bus may send such calls, in any number and size. The first of those
    /// that the delegate refuses to accept is logged.
    void reminderClicked(const QByteArray& request, const std::function<void(bool)>& done);

private:
    StartedService& agent();

    UserNotificationCenterDelegate* m_delegate = nullptr;
    std::unique_ptr<StartedService> m_agent;
    int m_unanswered = 0; ///< requests on their way to the agent
    bool m_ending = false;
    bool m_isRefusing = false; ///< the last reminder was refused
};
