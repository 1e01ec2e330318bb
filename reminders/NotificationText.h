// SPDX-License-Identifier: MIT
#pragma once

#include "reminders/NotificationRequest.h"

#include <QVariantMap>

/// What the arguments of a desktop notification are made of (Desktop Notifications Specification 1.2).
struct NotificationText {
    QString summary;
    QString body;
    QStringList actions; ///< pairs of a key and a label
    QVariantMap hints;

    bool operator==(const NotificationText&) const = default;
};

enum class NotificationSound { Silent, Audible };

/// The notification for `content` on a daemon with these capabilities. A note is shown to the letter: where bodies are
/// markup it is escaped. A body beyond 2,000 characters is cut and ends in an ellipsis, since no daemon has room for
/// more and some would try.
NotificationText notificationText(const NotificationContent& content, const QStringList& capabilities,
                                  NotificationSound sound);
