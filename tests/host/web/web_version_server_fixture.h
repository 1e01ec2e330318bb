// SPDX-License-Identifier: MIT
#pragma once

#include "host/web/WebVersionServer.h"
#include "support/LoopbackServer.h"

#include <QEventLoop>
#include <QNetworkProxy>
#include <gtest/gtest.h>

#include <chrono>

using namespace std::chrono_literals;

/// The program's limits with more time than any reply here takes, and with little, where no reply ever comes.
inline constexpr DownloadLimits patient{
    .time = 60s, .file = WebVersionServer::usualLimits.file, .received = WebVersionServer::usualLimits.received};
inline constexpr DownloadLimits impatient{.time = 100ms, .file = patient.file, .received = patient.received};

/// What a server may have sent at the most when a fetch of these limits ends: what this takes in, and what waits in
/// the system on the way, which tunes it to some megabytes.
inline constexpr qint64 mostSent = qint64{8} << 20;

/// Waits for the server's answer in the event loop.
inline std::optional<QString> answerOf(WebVersionServer& asked)
{
    std::optional<QString> answer;
    QEventLoop loop;
    const auto fetch = asked.fetchNewestVersion([&](const std::optional<QString>& version) {
        answer = version;
        loop.quit();
    });
    loop.exec();
    return answer;
}

class WebVersionServerTest : public ::testing::Test {
protected:
    WebVersionServerTest() { QNetworkProxy::setApplicationProxy(QNetworkProxy::NoProxy); }

    std::optional<QString> newest(const DownloadLimits& limits = patient) const
    {
        WebVersionServer asked(server.url(), limits);
        return answerOf(asked);
    }

    /// Answers the version file with a redirection to `place`, every other path with the version 2.4.
    void redirectTo(const QByteArray& status, const QByteArray& place)
    {
        server.answer = [status, place](QTcpSocket& connection, const QByteArray& head) {
            const bool first = head.startsWith("GET /vm/");
            connection.write(first ? LoopbackServer::reply(status, "moved", "Location: " + place + "\r\n")
                                   : LoopbackServer::reply("200 OK", "2.4"));
            connection.disconnectFromHost();
        };
    }

    LoopbackServer server;
};

/// Answers with `beginning`, then `again` as often as it is taken.
class Flood {
public:
    Flood(LoopbackServer& server, const QByteArray& beginning, const QByteArray& again)
    {
        while (m_piece.size() < pieceSize) {
            m_piece += again;
        }
        server.answer = [this, beginning](QTcpSocket& connection, const QByteArray&) {
            connection.write(beginning);
            const auto send = [this, &connection] {
                if (m_sent < most && connection.bytesToWrite() == 0) {
                    m_sent += connection.write(m_piece);
                }
            };
            QObject::connect(&connection, &QIODevice::bytesWritten, &connection, send);
            send();
        };
    }

    qint64 sent() const { return m_sent; } ///< bytes

private:
    static constexpr qsizetype pieceSize = 1 << 18;
    static constexpr qint64 most = 1 << 30;

    QByteArray m_piece;
    qint64 m_sent = 0;
};
