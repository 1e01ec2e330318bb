// SPDX-License-Identifier: MIT
#pragma once

#include "plist/Value.h"

#include <QString>

#include <string>

/// The content of a notification. All texts are plain text.
struct NotificationContent {
    QString title;
    QString subtitle;
    QString body;
    bool defaultSound = false;
    QString defaultActionTitle =
        {};              ///< of the button that does what a click on the notification does; empty for the usual title
    Dictionary userInfo; ///< returned with the user's response

    bool operator==(const NotificationContent&) const = default;
};

/// A moment in the Gregorian calendar, in a zone of its own.
struct CalendarNotificationTrigger {
    int year = 0;
    int month = 0; ///< from 1
    int day = 0;   ///< of the month, from 1
    int hour = 0;
    int minute = 0;
    int second = 0;
    std::string timeZone; ///< an IANA identifier
    bool repeats = false;

    bool operator==(const CalendarNotificationTrigger&) const = default;
};

struct NotificationRequest {
    QString identifier; ///< a request replaces the pending one with the same identifier
    NotificationContent content;
    CalendarNotificationTrigger trigger;

    bool operator==(const NotificationRequest&) const = default;
};
