// SPDX-License-Identifier: MIT
#pragma once

#include "host/UserNotificationCenter.h"
#include "store/Value.h"

#include <QByteArray>

#include <optional>

/// Notification requests as property lists: in the reminder agent's file and on the bus.
namespace NotificationRequestFormat {

/// A dictionary that `requestFrom` reads back to an equal request, but for what XML cannot carry (see PropertyList.h).
Value valueOf(const NotificationRequest& request);

/// The request that `value` holds; nullopt when a part is missing, of another type or out of range. Keys that it does
/// not know are left out.
std::optional<NotificationRequest> requestFrom(const Value& value);

/// The same in one text: an XML property list, an array of the one dictionary.
QByteArray bytesOf(const NotificationRequest& request);
std::optional<NotificationRequest> requestFromBytes(const QByteArray& bytes);

} // namespace NotificationRequestFormat
