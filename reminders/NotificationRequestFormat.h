// SPDX-License-Identifier: MIT
#pragma once

#include "plist/Value.h"
#include "reminders/NotificationRequest.h"

#include <QByteArray>

#include <optional>

/// Notification requests as property lists: in the reminder agent's file and on the bus.
namespace NotificationRequestFormat {

/// Bytes of a request on the bus, both as it comes and as it is written again. The agent takes no larger one, so the
/// program need not either. See ReminderAgent.h for what all of them may come to.
constexpr qsizetype largestRequest = qsizetype{16} << 20;

/// A dictionary that `requestFrom` reads back to an equal request, but for what XML cannot carry (see PropertyList.h).
Value valueOf(const NotificationRequest& request);

/// The request that `value` holds; nullopt when a part is missing, of another type or out of range. Keys that it does
/// not know are left out.
std::optional<NotificationRequest> requestFrom(const Value& value);

/// The same in one text: an XML property list, an array of the one dictionary. nullopt when that would be larger than
/// `largestRequest`, which is told before more than so much is made of it.
std::optional<QByteArray> bytesOf(const NotificationRequest& request);
std::optional<NotificationRequest> requestFromBytes(const QByteArray& bytes);

} // namespace NotificationRequestFormat
