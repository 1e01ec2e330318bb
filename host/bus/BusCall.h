// SPDX-License-Identifier: MIT
#pragma once

#include <QDBusConnection>
#include <QDBusMessage>

#include <functional>
#include <limits>

class QObject;

/// Calls on a message bus for which nobody waits.
namespace BusCall {

/// The reply, or the error.
using Answer = std::function<void(const QDBusMessage& reply)>;

/// For a call that waits as long as the service lives: the bus tells when it is gone.
inline constexpr int noTimeout = std::numeric_limits<int>::max();
inline constexpr int usualTimeout = -1; ///< of the library, 25 seconds

/// Sends `message`; `answer` is called from the event loop of `context`, which is the caller's thread, and not any more
/// once `context` is gone. On a bus that is not connected it is never called. Calls reach a service in the order in
/// which they are made.
void send(const QDBusConnection& bus, const QDBusMessage& message, QObject& context, Answer answer,
          int timeoutMs = usualTimeout);

/// A method of the bus itself, which answers at once whatever its peers do.
QDBusMessage methodOfTheBus(const QString& name);

} // namespace BusCall
