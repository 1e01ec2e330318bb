// SPDX-License-Identifier: MIT
#pragma once

#include "reminders/NotificationRequest.h"

#include <QFlags>
#include <QString>
#include <QStringList>

#include <functional>
#include <optional>

/// How a notification reaches the user.
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

/// What the notification centre calls on the main thread.
class UserNotificationCenterDelegate {
public:
    UserNotificationCenterDelegate() = default;
    UserNotificationCenterDelegate(const UserNotificationCenterDelegate&) = delete;
    UserNotificationCenterDelegate& operator=(const UserNotificationCenterDelegate&) = delete;
    virtual ~UserNotificationCenterDelegate() = default;

    /// A notification is due while the program is in front; the answer says how it is shown.
    virtual NotificationOptions willPresentNotification(const NotificationRequest& request) = 0;

    /// False while so many responses wait for the user that no other is to come. Those that do come then are refused,
    /// unread.
    virtual bool acceptsResponses() const = 0;

    /// `completionHandler` is called once the response has been dealt with.
    virtual void didReceiveNotificationResponse(const NotificationResponse& response,
                                                const std::function<void()>& completionHandler) = 0;
};

/// The desktop's notification service. Completions come on the main thread, never before the call has returned.
class UserNotificationCenter {
public:
    UserNotificationCenter() = default;
    UserNotificationCenter(const UserNotificationCenter&) = delete;
    UserNotificationCenter& operator=(const UserNotificationCenter&) = delete;
    virtual ~UserNotificationCenter() = default;

    /// `delegate` must outlive the centre or be replaced before it goes.
    virtual void setDelegate(UserNotificationCenterDelegate& delegate) = 0;

    virtual void requestAuthorization(NotificationOptions options, std::function<void(bool granted)> completion) = 0;
    virtual void getNotificationSettings(std::function<void(AuthorizationStatus)> completion) = 0;

    /// The completion's `error` says why the request was refused; nullopt when it is pending now.
    virtual void addNotificationRequest(const NotificationRequest& request,
                                        std::function<void(const std::optional<QString>& error)> completion) = 0;

    virtual void removeDeliveredNotifications(const QStringList& identifiers) = 0;
};
