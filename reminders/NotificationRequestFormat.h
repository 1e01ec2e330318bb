// SPDX-License-Identifier: MIT
#pragma once

#include "plist/Value.h"
#include "reminders/NotificationRequest.h"

#include <QByteArray>

#include <optional>

/// Notification requests as property lists, as the reminder agent's file and the bus carry them.
namespace NotificationRequestFormat {

/// The most bytes of a request on the bus, both as received and as written again. The agent accepts no larger one, so
/// the program need not either. ReminderAgent.h has the limit for all requests together.
constexpr qsizetype largestRequest = qsizetype{16} << 20;

/// A dictionary from which `requestFrom` makes an equal request, except for what XML cannot represent (see
/// PropertyList.h).
Value valueOf(const NotificationRequest& request);

/// The request in `value`; nullopt when a part is missing, of another type or out of range. Unknown keys are dropped.
std::optional<NotificationRequest> requestFrom(const Value& value);

/// The same as text: an XML property list, an array with the dictionary as its only element. nullopt when it would
/// exceed `largestRequest`; that is noticed before more than that is written.
std::optional<QByteArray> bytesOf(const NotificationRequest& request);
std::optional<NotificationRequest> requestFromBytes(const QByteArray& bytes);

} // namespace NotificationRequestFormat
