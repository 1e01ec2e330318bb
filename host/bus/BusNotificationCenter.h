// SPDX-License-Identifier: MIT
#pragma once

#include "host/UserNotificationCenter.h"

#include <QObject>

#include <filesystem>
#include <memory>

class StartedService;

/// The desktop's notification service: reminders are handed to the reminder agent, which keeps and delivers them
/// whether the program runs or not. Nothing is asked of the bus before it is needed, and nothing waits for an answer
/// but the end of the program, for the agent to have what was handed to it.
class BusNotificationCenter : public QObject, public UserNotificationCenter {
    Q_OBJECT

public:
    BusNotificationCenter();
    ~BusNotificationCenter() override;

    void setDelegate(UserNotificationCenterDelegate& delegate) override { m_delegate = &delegate; }

    /// The desktop asks nobody: it is granted where a notification can be shown.
    void requestAuthorization(NotificationOptions options, std::function<void(bool)> completion) override;

    /// Authorized where a notification daemon runs or can be started by the bus; else Denied, as where there is no bus.
    void getNotificationSettings(std::function<void(AuthorizationStatus)> completion) override;

    void addNotificationRequest(const NotificationRequest& request,
                                std::function<void(const std::optional<QString>&)> completion) override;
    void removeDeliveredNotifications(const QStringList& identifiers) override;

    /// Has the agent run where `reminders`, its file, tells that some wait for it: it may have been killed since login.
    void startAgentForReminders(const std::filesystem::path& reminders);

    /// Passes a reminder that was clicked, as it goes over the bus, to the delegate. `done` tells whether it was one
    /// that the delegate took: anybody on the bus may say that one was clicked, again and again, and of any size. Of
    /// those that come while the delegate takes none, the first is written to the log.
    void reminderClicked(const QByteArray& request, const std::function<void(bool)>& done);

private:
    StartedService& agent();

    UserNotificationCenterDelegate* m_delegate = nullptr;
    std::unique_ptr<StartedService> m_agent;
    int m_unanswered = 0; ///< requests on their way to the agent
    bool m_ending = false;
    bool m_isRefusing = false; ///< the last reminder was one too many
};
