// SPDX-License-Identifier: MIT
#pragma once

#include "host/UserNotificationCenter.h"

#include <QCoreApplication>

/// For a desktop without a notification service: it reads as denied, and nothing is ever delivered.
class NoNotificationCenter : public UserNotificationCenter {
public:
    void setDelegate(UserNotificationCenterDelegate&) override {}
    void requestAuthorization(NotificationOptions, std::function<void(bool)> completion) override
    {
        later([completion] { completion(false); });
    }
    void getNotificationSettings(std::function<void(AuthorizationStatus)> completion) override
    {
        later([completion] { completion(AuthorizationStatus::Denied); });
    }
    void addNotificationRequest(const NotificationRequest&,
                                std::function<void(const std::optional<QString>&)> completion) override
    {
        later([completion] { completion(QStringLiteral("There is no notification service")); });
    }
    void removeDeliveredNotifications(const QStringList&) override {}

private:
    template <typename Step> static void later(Step step)
    {
        QMetaObject::invokeMethod(qApp, std::move(step), Qt::QueuedConnection);
    }
};
