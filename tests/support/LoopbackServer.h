// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QList>
#include <QTcpServer>
#include <QTcpSocket>
#include <QUrl>

#include <functional>
#include <memory>

/// A web server on the loopback interface, in the event loop of the test. Each request is answered by `answer`, which
/// gets the head of the request and writes what it likes to the connection.
class LoopbackServer : public QObject {
public:
    std::function<void(QTcpSocket& connection, const QByteArray& head)> answer;
    QList<QByteArray> heads; ///< of the requests that came, in order

    /// On a port of the system's choice. An encrypted `server` is spoken to as "https".
    explicit LoopbackServer(const QString& scheme = QStringLiteral("http"),
                            std::unique_ptr<QTcpServer> server = std::make_unique<QTcpServer>())
        : m_scheme(scheme), m_server(std::move(server))
    {
        m_server->listen(QHostAddress::LocalHost);
        connect(m_server.get(), &QTcpServer::pendingConnectionAvailable, this, [this] {
            while (QTcpSocket* connection = m_server->nextPendingConnection()) {
                connect(connection, &QTcpSocket::readyRead, this, [this, connection] { read(*connection); });
                connect(connection, &QTcpSocket::disconnected, connection, &QObject::deleteLater);
            }
        });
    }

    QUrl url() const { return QUrl(QStringLiteral("%1://127.0.0.1:%2").arg(m_scheme).arg(m_server->serverPort())); }

    /// No connection is taken any more.
    void close() { m_server->close(); }

    /// A whole reply of that status and body.
    static QByteArray reply(const QByteArray& status, const QByteArray& body, const QByteArray& headers = {})
    {
        return "HTTP/1.1 " + status + "\r\nContent-Length: " + QByteArray::number(body.size()) + "\r\n" + headers +
               "Connection: close\r\n\r\n" + body;
    }

    /// Answers every request so.
    void answerAlways(const QByteArray& wholeReply)
    {
        answer = [wholeReply](QTcpSocket& connection, const QByteArray&) {
            connection.write(wholeReply);
            connection.disconnectFromHost();
        };
    }

private:
    void read(QTcpSocket& connection)
    {
        const QByteArray head = connection.readAll();
        heads.append(head);
        if (answer) {
            answer(connection, head);
        }
    }

    QString m_scheme;
    std::unique_ptr<QTcpServer> m_server;
};
