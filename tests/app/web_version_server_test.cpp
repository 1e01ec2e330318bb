// SPDX-License-Identifier: MIT
#include "support/LoopbackServer.h"
#include "update/WebVersionServer.h"

#include <QFile>
#include <QNetworkProxy>
#include <QSslCertificate>
#include <QSslConfiguration>
#include <QSslKey>
#include <QSslServer>
#include <QSslSocket>
#include <QTimer>
#include <gtest/gtest.h>

namespace {

using namespace std::chrono_literals;

constexpr std::chrono::milliseconds patience = 20s;     ///< longer than any reply here takes
constexpr std::chrono::milliseconds shortLimit = 100ms; ///< where no reply ever comes

class WebVersionServerTest : public ::testing::Test {
protected:
    WebVersionServerTest() { QNetworkProxy::setApplicationProxy(QNetworkProxy::NoProxy); }

    std::optional<QString> newest(std::chrono::milliseconds limit = patience) const
    {
        return WebVersionServer(server.url(), limit).newestVersion();
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

TEST_F(WebVersionServerTest, TheFileIsAskedForByItsPathAndNotPacked)
{
    server.answerAlways(LoopbackServer::reply("200 OK", "2.4"));
    EXPECT_EQ(newest(), QStringLiteral("2.4"));
    ASSERT_EQ(server.heads.size(), 1);
    EXPECT_TRUE(server.heads.first().startsWith("GET /vm/Velumora_version.txt HTTP/1.1\r\n"));
    EXPECT_TRUE(server.heads.first().toLower().contains("\r\naccept-encoding: identity\r\n"));
    EXPECT_TRUE(server.heads.first().toLower().contains("\r\naccept-language: en\r\n"));
    EXPECT_FALSE(server.heads.first().toLower().contains("\r\ncookie:"));
}

TEST_F(WebVersionServerTest, TheReplyIsTheWholeBodyAsItStands)
{
    struct {
        QByteArray body;
        QString text;
    } const rows[] = {
        {"", QStringLiteral("")},
        {"2.3\n", QStringLiteral("2.3\n")},
        {" 2.3\t\r\n\r\n", QStringLiteral(" 2.3\t\r\n\r\n")},
        {"\xEF\xBB\xBF"
         "2.3",
         QStringLiteral("\uFEFF2.3")},
        {"\xC3\xA9 \xF0\x9F\x93\x85", QStringLiteral("\u00E9 \U0001F4C5")},
        {QByteArray("2\0.3", 4), QString::fromLatin1("2\0.3", 4)},
        {"<html>&amp;</html>", QStringLiteral("<html>&amp;</html>")},
    };
    for (const auto& row : rows) {
        server.answerAlways(LoopbackServer::reply("200 OK", row.body));
        const std::optional<QString> reply = newest();
        ASSERT_TRUE(reply) << row.body.toHex(' ').toStdString();
        EXPECT_EQ(*reply, row.text) << row.body.toHex(' ').toStdString();
    }
}

TEST_F(WebVersionServerTest, WhatIsNotUtf8IsNoReply)
{
    const QList<QByteArray> bodies{
        "2.3\xFF",                         // no byte of the encoding
        "\xE9 2.3",                        // Latin 1
        "2.3\xC3",                         // ends within a character
        "2.3\xE2\x82",                     // and again
        "\xC0\xAF",                        // longer than needed
        "\xED\xA0\x80",                    // half of a pair
        "\xF4\x90\x80\x80",                // beyond the last character
        QByteArray("\xFF\xFE\x32\x00", 4), // UTF-16
    };
    for (const QByteArray& body : bodies) {
        server.answerAlways(LoopbackServer::reply("200 OK", body));
        EXPECT_EQ(newest(), std::nullopt) << body.toHex(' ').toStdString();
    }
}

TEST_F(WebVersionServerTest, AnyStatusButSuccessIsNoReply)
{
    for (const char* status : {"404 Not Found", "403 Forbidden", "401 Unauthorized", "500 Internal Server Error",
                               "204 No Content", "302 Found", "304 Not Modified"}) {
        server.answerAlways(LoopbackServer::reply(status, "9.9"));
        EXPECT_EQ(newest(), std::nullopt) << status;
    }
}

TEST_F(WebVersionServerTest, ABodyThatBreaksOffIsNoReply)
{
    server.answerAlways("HTTP/1.1 200 OK\r\nContent-Length: 5\r\n\r\n2.1");
    EXPECT_EQ(newest(), std::nullopt);
}

TEST_F(WebVersionServerTest, ABodyInPiecesIsPutTogether)
{
    server.answerAlways("HTTP/1.1 200 OK\r\nTransfer-Encoding: chunked\r\n\r\n2\r\n2.\r\n1\r\n4\r\n0\r\n\r\n");
    EXPECT_EQ(newest(), QStringLiteral("2.4"));
    server.answerAlways("HTTP/1.0 200 OK\r\n\r\n2.4"); // as long as the connection lasts
    EXPECT_EQ(newest(), QStringLiteral("2.4"));
}

TEST_F(WebVersionServerTest, RedirectionsAreFollowed)
{
    const QByteArray elsewhere = server.url().toString().toUtf8() + "/elsewhere";
    for (const QByteArray& place : {QByteArray("/elsewhere"), elsewhere}) {
        for (const char* status : {"301 Moved Permanently", "302 Found", "307 Temporary Redirect"}) {
            redirectTo(status, place);
            EXPECT_EQ(newest(), QStringLiteral("2.4")) << status;
        }
    }
}

TEST_F(WebVersionServerTest, RedirectionsToNowhereInCirclesOrToFilesAreNoReply)
{
    for (const char* place : {"", "file:///etc/hostname", "ftp://127.0.0.1/x", "//", "/vm/Velumora_version.txt"}) {
        server.heads.clear();
        redirectTo("302 Found", place);
        EXPECT_EQ(newest(), std::nullopt) << place;
        EXPECT_LT(server.heads.size(), 20) << place; // nine, and again those that met a closing connection
    }
}

TEST_F(WebVersionServerTest, SixtyFourKibibytesAreReadAndNotOneMore)
{
    const QByteArray longest(64 * 1024, '9');
    server.answerAlways(LoopbackServer::reply("200 OK", longest));
    EXPECT_EQ(newest(), QString::fromLatin1(longest));
    server.answerAlways(LoopbackServer::reply("200 OK", longest + '9'));
    EXPECT_EQ(newest(), std::nullopt);
}

TEST_F(WebVersionServerTest, AFloodIsCutOff)
{
    constexpr qint64 flood = 1 << 30;
    constexpr qint64 whatBuffersOnTheWayHold = 32 << 20;
    for (const QByteArray& head : {QByteArray("Content-Length: 1073741824"), QByteArray("X: until it closes")}) {
        qint64 sent = 0;
        server.answer = [&](QTcpSocket& connection, const QByteArray&) {
            connection.write("HTTP/1.1 200 OK\r\n" + head + "\r\n\r\n");
            const auto send = [&sent, &connection] {
                if (sent < flood && connection.bytesToWrite() == 0) {
                    sent += connection.write(QByteArray(1 << 20, '9'));
                }
            };
            QObject::connect(&connection, &QIODevice::bytesWritten, &connection, send);
            send();
        };
        EXPECT_EQ(newest(), std::nullopt) << head.toStdString();
        EXPECT_GT(sent, 0);
        EXPECT_LT(sent, whatBuffersOnTheWayHold) << head.toStdString();
    }
}

TEST_F(WebVersionServerTest, ASmallPackThatUnpacksToAFloodIsNotUnpacked)
{
    // gzip: an empty file.
    const QByteArray packed = QByteArray::fromHex("1f8b080000000000000303000000000000000000");
    server.answerAlways(LoopbackServer::reply("200 OK", packed, "Content-Encoding: gzip\r\n"));
    EXPECT_EQ(newest(), std::nullopt) << "the bytes as they came are not UTF-8";
}

TEST_F(WebVersionServerTest, ASlowReplyIsWaitedFor)
{
    server.answer = [](QTcpSocket& connection, const QByteArray&) {
        connection.write("HTTP/1.1 200 OK\r\nContent-Length: 3\r\n\r\n2.");
        connection.flush();
        QTimer::singleShot(30ms, &connection, [&connection] { connection.write("4"); });
    };
    EXPECT_EQ(newest(), QStringLiteral("2.4"));
}

TEST_F(WebVersionServerTest, WhenTheTimeIsUpThereIsNoReplyHoweverMuchHasCome)
{
    const std::function<void(QTcpSocket&, const QByteArray&)> answers[] = {
        {}, // accepts and says nothing
        [](QTcpSocket& connection, const QByteArray&) {
            connection.write("HTTP/1.1 200 OK\r\nContent-Length: 4\r\n\r\n2.4");
        },
        [](QTcpSocket& connection, const QByteArray&) { // a head that goes on and on
            auto* drip = new QTimer(&connection);
            QObject::connect(drip, &QTimer::timeout, &connection, [&connection] { connection.write("X: 1\r\n"); });
            connection.write("HTTP/1.1 200 OK\r\n");
            drip->start(5);
        },
    };
    for (const auto& answer : answers) {
        server.answer = answer;
        EXPECT_EQ(newest(shortLimit), std::nullopt);
    }
}

TEST_F(WebVersionServerTest, TheTimeIsFifteenSecondsInTheProgram)
{
    EXPECT_EQ(WebVersionServer::longestWait, 15s);
}

TEST_F(WebVersionServerTest, WithoutAServerThereIsNoReply)
{
    const QUrl closed = server.url();
    server.close();
    for (const QUrl& url : {closed, QUrl(QStringLiteral("https://velumora.invalid")), QUrl(),
                            QUrl(QStringLiteral("file:///")), QUrl(QStringLiteral("velumora"))}) {
        EXPECT_EQ(WebVersionServer(url, patience).newestVersion(), std::nullopt) << url.toString().toStdString();
    }
}

TEST_F(WebVersionServerTest, AnEncryptedServerMustBeOne)
{
    ASSERT_TRUE(QSslSocket::supportsSsl());
    QUrl encrypted = server.url(); // which speaks plainly
    encrypted.setScheme(QStringLiteral("https"));
    server.answerAlways(LoopbackServer::reply("200 OK", "2.4"));
    EXPECT_EQ(WebVersionServer(encrypted, patience).newestVersion(), std::nullopt);
}

// --- Encrypted connections -------------------------------------------------------------------------------------------

/// A server with a certificate of its own, which the system does not know.
class EncryptedServerTest : public WebVersionServerTest {
protected:
    ~EncryptedServerTest() override { QSslConfiguration::setDefaultConfiguration(m_usual); }

    static QByteArray testFile(const char* name)
    {
        QFile file(QStringLiteral(VELUMORA_SOURCE_DIR "/tests/data/tls/") + QString::fromLatin1(name));
        EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << name;
        return file.readAll();
    }

    static std::unique_ptr<QTcpServer> encryptedServer()
    {
        QSslConfiguration configuration = QSslConfiguration::defaultConfiguration();
        configuration.setLocalCertificate(QSslCertificate(testFile("certificate.pem")));
        configuration.setPrivateKey(QSslKey(testFile("key.pem"), QSsl::Ec));
        auto made = std::make_unique<QSslServer>();
        made->setSslConfiguration(configuration);
        return made;
    }

    /// From now on the program knows the server's certificate, as it knows those of the system.
    void trustTheServer() const
    {
        QSslConfiguration configuration = m_usual;
        configuration.addCaCertificate(QSslCertificate(testFile("certificate.pem")));
        QSslConfiguration::setDefaultConfiguration(configuration);
    }

    std::optional<QString> newestEncrypted() const
    {
        return WebVersionServer(encrypted.url(), patience).newestVersion();
    }

    LoopbackServer encrypted{QStringLiteral("https"), encryptedServer()};

private:
    QSslConfiguration m_usual = QSslConfiguration::defaultConfiguration();
};

TEST_F(EncryptedServerTest, OnlyOneWithATrustedCertificateIsHeard)
{
    encrypted.answerAlways(LoopbackServer::reply("200 OK", "2.4"));
    EXPECT_EQ(newestEncrypted(), std::nullopt);
    EXPECT_TRUE(encrypted.heads.isEmpty()) << "nothing was even asked";
    trustTheServer();
    EXPECT_EQ(newestEncrypted(), QStringLiteral("2.4"));
}

TEST_F(EncryptedServerTest, RedirectionsDoNotLeaveTheEncryption)
{
    trustTheServer();
    server.answerAlways(LoopbackServer::reply("200 OK", "9.9"));
    encrypted.answerAlways(
        LoopbackServer::reply("302 Found", "", "Location: " + server.url().toString().toUtf8() + "/x\r\n"));
    EXPECT_EQ(newestEncrypted(), std::nullopt);
    EXPECT_TRUE(server.heads.isEmpty());
}

TEST_F(EncryptedServerTest, RedirectionsMayLeadIntoTheEncryption)
{
    trustTheServer();
    encrypted.answerAlways(LoopbackServer::reply("200 OK", "2.4"));
    redirectTo("302 Found", encrypted.url().toString().toUtf8() + "/x");
    EXPECT_EQ(newest(), QStringLiteral("2.4"));
}

} // namespace
