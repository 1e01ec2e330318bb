// SPDX-License-Identifier: MIT
#pragma once

#include "reminders/NotificationRequest.h"

#include <QVariantMap>

/// The arguments of a desktop notification (Desktop Notifications Specification 1.2).
struct NotificationText {
    QString summary;
    QString body;
    QStringList actions; ///< pairs of a key and a label
    QVariantMap hints;

    bool operator==(const NotificationText&) const = default;
};

enum class NotificationSound { Silent, Audible };

/// The notification for `content` on a daemon with these capabilities. Notes are shown literally: where bodies are
/// markup, the text is escaped. Texts beyond 2,000 UTF-16 units are cut and end in an ellipsis, since no daemon has
/// room for more and some would try.
NotificationText notificationText(const NotificationContent& content, const QStringList& capabilities,
                                  NotificationSound sound);
