// SPDX-License-Identifier: MIT
#pragma once

#include <QDBusConnection>
#include <QDBusVirtualObject>
#include <QList>
#include <QStringList>

#include <array>

/// The login manager as far as it delays a shutdown, on a connection of its own.
class StandInLogind : public QDBusVirtualObject {
    Q_OBJECT

public:
    explicit StandInLogind(QDBusConnection connection);
    ~StandInLogind() override;

    QList<QStringList> locks; ///< the arguments of every lock that was asked for
    bool isSilent = false;    ///< answers nothing

    /// Whether a lock that was handed out is still held.
    bool isHeldUp() const;

    void tell(bool active);

    bool handleMessage(const QDBusMessage& message, const QDBusConnection& connection) override;
    QString introspect(const QString&) const override { return {}; }

private:
    void closeReadEnd();

    QDBusConnection m_connection;
    int m_readEnd = -1; ///< of the pipe whose other end the holder of the last lock has
};
