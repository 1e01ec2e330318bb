// SPDX-License-Identifier: MIT
#include "support/StandInLogind.h"

#include <QDBusMessage>
#include <QDBusUnixFileDescriptor>

#include <utility>

#include <fcntl.h>
#include <poll.h>
#include <unistd.h>

namespace {

const QString path = QStringLiteral("/org/freedesktop/login1");

} // namespace

StandInLogind::StandInLogind(QDBusConnection connection) : m_connection(std::move(connection))
{
    m_connection.registerVirtualObject(path, this);
    m_connection.registerService(QStringLiteral("org.freedesktop.login1"));
}

StandInLogind::~StandInLogind()
{
    closeReadEnd();
}

void StandInLogind::closeReadEnd()
{
    if (m_readEnd >= 0) {
        ::close(m_readEnd);
    }
}

bool StandInLogind::isHeldUp() const
{
    pollfd end{m_readEnd, POLLIN, 0};
    return m_readEnd >= 0 && ::poll(&end, 1, 0) == 0; // hung up once nobody has the other end
}

void StandInLogind::tell(bool active)
{
    QDBusMessage signal = QDBusMessage::createSignal(path, QStringLiteral("org.freedesktop.login1.Manager"),
                                                     QStringLiteral("PrepareForShutdown"));
    signal << active;
    m_connection.send(signal);
}

bool StandInLogind::handleMessage(const QDBusMessage& message, const QDBusConnection& connection)
{
    if (message.member() != QLatin1String("Inhibit")) {
        return false;
    }
    QStringList words;
    for (const QVariant& argument : message.arguments()) {
        words.append(argument.toString());
    }
    locks.append(words);
    if (isSilent) {
        return true;
    }
    std::array<int, 2> ends{};
    if (::pipe2(ends.data(), O_CLOEXEC) != 0) {
        return false;
    }
    closeReadEnd();
    m_readEnd = ends[0];
    QDBusUnixFileDescriptor lock;
    lock.giveFileDescriptor(ends[1]);
    connection.send(message.createReply(QVariant::fromValue(lock)));
    return true;
}
