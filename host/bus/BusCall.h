// SPDX-License-Identifier: MIT
#pragma once

#include <QDBusConnection>
#include <QDBusMessage>

#include <functional>
#include <limits>

class QObject;

/// Asynchronous calls on a message bus.
namespace BusCall {

/// The reply, or the error.
using Answer = std::function<void(const QDBusMessage& reply)>;

/// For a call that waits as long as the service runs; the bus reports when it is gone.
inline constexpr int noTimeout = std::numeric_limits<int>::max();
inline constexpr int usualTimeout = -1; ///< the library's default, 25 seconds

/// Sends `message`. `answer` is called from the event loop of `context`, on the caller's thread, and not once `context`
/// is destroyed; never on a bus that is not connected. Calls reach a service in the order in which they are made.
void send(const QDBusConnection& bus, const QDBusMessage& message, QObject& context, Answer answer,
          int timeoutMs = usualTimeout);

/// A call to a method of the bus itself, which answers at once whatever its peers do.
QDBusMessage methodOfTheBus(const QString& name);

} // namespace BusCall
