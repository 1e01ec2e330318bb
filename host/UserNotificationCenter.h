// SPDX-License-Identifier: MIT
#pragma once

#include "reminders/NotificationRequest.h"

#include <QFlags>
#include <QString>
#include <QStringList>

#include <functional>
#include <optional>

/// The ways in which a notification reaches the user.
enum class NotificationOption : unsigned {
    Badge = 1U << 0,
    Sound = 1U << 1,
    Alert = 1U << 2,
};
Q_DECLARE_FLAGS(NotificationOptions, NotificationOption)
Q_DECLARE_OPERATORS_FOR_FLAGS(NotificationOptions)

enum class AuthorizationStatus { NotDetermined = 0, Denied = 1, Authorized = 2, Provisional = 3 };

/// What the user did with a delivered notification.
struct NotificationResponse {
    enum class Action { Default, Dismiss };

    Action action = Action::Default;
    NotificationRequest request;
};

/// Called by the notification centre, on the main thread.
class UserNotificationCenterDelegate {
public:
    UserNotificationCenterDelegate() = default;
    UserNotificationCenterDelegate(const UserNotificationCenterDelegate&) = delete;
    UserNotificationCenterDelegate& operator=(const UserNotificationCenterDelegate&) = delete;
    virtual ~UserNotificationCenterDelegate() = default;

    /// Called when a notification is due while the program is in front; returns how to show it.
    virtual NotificationOptions willPresentNotification(const NotificationRequest& request) = 0;

    /// False while too many responses wait for the user. Further ones are then refused unread.
    virtual bool acceptsResponses() const = 0;

    /// `completionHandler` is called once the response has been dealt with.
    virtual void didReceiveNotificationResponse(const NotificationResponse& response,
                                                const std::function<void()>& completionHandler) = 0;
};

/// The desktop's notification service. Completions are called on the main thread, never before the call has returned.
class UserNotificationCenter {
public:
    UserNotificationCenter() = default;
    UserNotificationCenter(const UserNotificationCenter&) = delete;
    UserNotificationCenter& operator=(const UserNotificationCenter&) = delete;
    virtual ~UserNotificationCenter() = default;

    /// `delegate` must outlive the centre or be replaced before it is destroyed.
    virtual void setDelegate(UserNotificationCenterDelegate& delegate) = 0;

    virtual void requestAuthorization(NotificationOptions options, std::function<void(bool granted)> completion) = 0;
    virtual void getNotificationSettings(std::function<void(AuthorizationStatus)> completion) = 0;

    /// The completion's `error` is the reason why the request was refused; nullopt when it is pending.
    virtual void addNotificationRequest(const NotificationRequest& request,
                                        std::function<void(const std::optional<QString>& error)> completion) = 0;

    virtual void removeDeliveredNotifications(const QStringList& identifiers) = 0;
};
