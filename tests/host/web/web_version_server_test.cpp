// SPDX-License-Identifier: MIT
#include "host/web/web_version_server_fixture.h"

#include <QLineEdit>
#include <QPointer>
#include <QSslSocket>
#include <QTest>
#include <QTimer>

namespace {

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

TEST_F(WebVersionServerTest, AFloodOfAnyKindIsCutOff)
{
    struct {
        const char* what;
        QByteArray beginning;
        QByteArray again;
    } const rows[] = {
        {"a body", "HTTP/1.1 200 OK\r\nContent-Length: 1073741824\r\n\r\n", "9"},
        {"a body until it closes", "HTTP/1.1 200 OK\r\n\r\n", "9"},
        {"a body in pieces", "HTTP/1.1 200 OK\r\nTransfer-Encoding: chunked\r\n\r\n", "1\r\n9\r\n"},
        {"the name of a piece", "HTTP/1.1 200 OK\r\nTransfer-Encoding: chunked\r\n\r\n1;", "x"},
        {"heads behind a body", "HTTP/1.1 200 OK\r\nTransfer-Encoding: chunked\r\n\r\n0\r\n", "X: y\r\n"},
        {"an error's body", "HTTP/1.1 404 Not Found\r\n\r\n", "9"},
        {"a redirection's body", "HTTP/1.1 302 Found\r\nLocation: /x\r\nContent-Length: 1073741824\r\n\r\n", "9"},
        {"heads", "HTTP/1.1 200 OK\r\n", "X: y\r\n"},
        {"one head", "HTTP/1.1 200 OK\r\nX: ", "y"},
        {"the status", "HTTP/1.1 200 ", "O"},
        {"no status", "", "x"},
        {"ends of lines", "", "\r\n"},
        {"nothing yet", "", "HTTP/1.1 100 Continue\r\n\r\n"},
        {"early hints", "", "HTTP/1.1 103 Early Hints\r\nLink: </x>\r\n\r\n"},
    };
    for (const auto& row : rows) {
        const Flood flood(server, row.beginning, row.again);
        EXPECT_EQ(newest(), std::nullopt) << row.what;
        EXPECT_GT(flood.sent(), 0) << row.what;
        EXPECT_LT(flood.sent(), mostSent) << row.what;
    }
}

TEST_F(WebVersionServerTest, ADripIsCutOffByItsBytesToo)
{
    constexpr qint64 mostDrops = 100;
    DownloadLimits limits = patient;
    limits.received = mostDrops;
    for (const char* beginning : {"HTTP/1.1 200 ", "HTTP/1.1 200 OK\r\n", "HTTP/1.1 200 OK\r\n\r\n"}) {
        qint64 sent = 0;
        server.answer = [&](QTcpSocket& connection, const QByteArray&) {
            connection.setSocketOption(QAbstractSocket::LowDelayOption, 1);
            connection.write(beginning);
            auto* drip = new QTimer(&connection);
            QObject::connect(drip, &QTimer::timeout, &connection, [&] { sent += connection.write("X"); });
            drip->start(0);
        };
        EXPECT_EQ(newest(limits), std::nullopt) << beginning;
        EXPECT_GT(sent, mostDrops - 30) << beginning; // it counts what the beginning has, too
    }
}

TEST_F(WebVersionServerTest, WhatARedirectionSendsCountsAsWell)
{
    server.answerAlways(LoopbackServer::reply("302 Found", QByteArray(64 << 10, 'x'), "Location: /on/and/on\r\n"));
    EXPECT_EQ(newest(), std::nullopt);
    EXPECT_EQ(server.heads.size(), 4);
    server.heads.clear();
    server.answerAlways(LoopbackServer::reply("302 Found", "", "Location: /on/and/on\r\n"));
    EXPECT_EQ(newest(), std::nullopt);
    EXPECT_EQ(server.heads.size(), 9) << "eight redirections";
}

// --- While it is on its way ------------------------------------------------------------------------------------------

TEST_F(WebVersionServerTest, TheEventLoopRunsWhileTheServerIsSilentOrFloods)
{
    QLineEdit field;
    std::unique_ptr<Flood> flood;
    for (const bool isSilent : {true, false}) {
        server.heads.clear();
        if (!isSilent) {
            flood = std::make_unique<Flood>(server, "HTTP/1.1 200 OK\r\n", "X: y\r\n");
        }
        WebVersionServer asked(server.url(), {.time = 60s, .file = patient.file, .received = std::size_t{1} << 40});
        bool hasEnded = false;
        auto fetch = asked.fetchNewestVersion([&](const auto&) { hasEnded = true; });
        EXPECT_TRUE(QTest::qWaitFor([&] { return !server.heads.isEmpty(); }, 20'000));
        field.clear();
        for (const char* key : {"n", "o", "t", "e"}) {
            QTest::keyClicks(&field, QString::fromLatin1(key));
            QCoreApplication::processEvents();
        }
        EXPECT_EQ(field.text(), QStringLiteral("note"));
        EXPECT_FALSE(hasEnded);
    }
}

TEST_F(WebVersionServerTest, OneThatIsGivenUpLeavesTheServerAndTellsNobody)
{
    const std::function<void(QTcpSocket&)> behaviours[] = {
        [](QTcpSocket&) {},
        [](QTcpSocket& connection) { connection.write("HTTP/1.1 200 OK\r\nContent-Length: 9\r\n\r\n2"); },
    };
    for (const auto& behave : behaviours) {
        QPointer<QTcpSocket> connected;
        server.answer = [&](QTcpSocket& connection, const QByteArray&) {
            connected = &connection;
            behave(connection);
        };
        WebVersionServer asked(server.url(), patient);
        bool hasEnded = false;
        auto fetch = asked.fetchNewestVersion([&](const auto&) { hasEnded = true; });
        ASSERT_TRUE(QTest::qWaitFor([&] { return !connected.isNull(); }, 20'000));
        fetch.reset();
        EXPECT_TRUE(QTest::qWaitFor([&] { return connected.isNull(); }, 20'000)) << "the connection ends";
        EXPECT_FALSE(hasEnded);
    }
}

TEST_F(WebVersionServerTest, OneMayGoInItsOwnCompletionAndNoneComesBeforeTheCallReturned)
{
    server.answerAlways(LoopbackServer::reply("200 OK", "2.4"));
    for (const QUrl& url : {server.url(), QUrl()}) {
        WebVersionServer asked(url, patient);
        std::unique_ptr<VersionServer::Fetch> fetch;
        int calls = 0;
        fetch = asked.fetchNewestVersion([&](const auto&) {
            ++calls;
            EXPECT_TRUE(fetch);
            fetch.reset();
        });
        EXPECT_EQ(calls, 0);
        EXPECT_TRUE(QTest::qWaitFor([&] { return calls > 0; }, 20'000));
        QCoreApplication::processEvents();
        EXPECT_EQ(calls, 1);
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
        EXPECT_EQ(newest(impatient), std::nullopt);
    }
}

TEST_F(WebVersionServerTest, TheTimeIsFifteenSecondsInTheProgram)
{
    EXPECT_EQ(WebVersionServer::usualLimits.time, 15s);
}

TEST_F(WebVersionServerTest, WithoutAServerThereIsNoReply)
{
    const QUrl closed = server.url();
    server.close();
    for (const QUrl& url : {closed, QUrl(QStringLiteral("https://velumora.invalid")), QUrl(),
                            QUrl(QStringLiteral("file:///")), QUrl(QStringLiteral("velumora"))}) {
        WebVersionServer asked(url, patient);
        EXPECT_EQ(answerOf(asked), std::nullopt) << url.toString().toStdString();
    }
}

TEST_F(WebVersionServerTest, AnEncryptedServerMustBeOne)
{
    ASSERT_TRUE(QSslSocket::supportsSsl());
    QUrl encrypted = server.url(); // which speaks plainly
    encrypted.setScheme(QStringLiteral("https"));
    server.answerAlways(LoopbackServer::reply("200 OK", "2.4"));
    WebVersionServer asked(encrypted, patient);
    EXPECT_EQ(answerOf(asked), std::nullopt);
}

} // namespace
