// SPDX-License-Identifier: MIT
#pragma once

/// What the notification centre calls on the main thread.
class UserNotificationCenterDelegate {
public:
    UserNotificationCenterDelegate() = default;
    UserNotificationCenterDelegate(const UserNotificationCenterDelegate&) = delete;
    UserNotificationCenterDelegate& operator=(const UserNotificationCenterDelegate&) = delete;
    virtual ~UserNotificationCenterDelegate() = default;
};

/// The desktop's notification service.
class UserNotificationCenter {
public:
    UserNotificationCenter() = default;
    UserNotificationCenter(const UserNotificationCenter&) = delete;
    UserNotificationCenter& operator=(const UserNotificationCenter&) = delete;
    virtual ~UserNotificationCenter() = default;

    /// `delegate` must outlive the centre or be replaced before it goes.
    virtual void setDelegate(UserNotificationCenterDelegate& delegate) = 0;
};
