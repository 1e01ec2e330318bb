// SPDX-License-Identifier: MIT
// By way of a proxy, and over an encrypted connection.
#include "host/web/web_version_server_fixture.h"

#include <QFile>
#include <QSslCertificate>
#include <QSslConfiguration>
#include <QSslKey>
#include <QSslServer>

#include <memory>

namespace {

// --- Proxies ---------------------------------------------------------------------------------------------------------

/// The desktop has the web reached by way of the server.
class ProxyTest : public WebVersionServerTest {
protected:
    ~ProxyTest() override { QNetworkProxy::setApplicationProxy(QNetworkProxy::NoProxy); }

    void setProxy(QNetworkProxy::ProxyType type, const QString& user = {}, const QString& password = {})
    {
        QNetworkProxy::setApplicationProxy(
            {type, server.url().host(), static_cast<quint16>(server.url().port()), user, password});
    }
};

TEST_F(ProxyTest, AnOpenConnectionIsAskedOfTheProxy)
{
    server.answerAlways(LoopbackServer::reply("200 OK", "2.4"));
    for (const QNetworkProxy::ProxyType type : {QNetworkProxy::HttpProxy, QNetworkProxy::HttpCachingProxy}) {
        server.heads.clear();
        setProxy(type, QStringLiteral("Jane"), QStringLiteral("secret"));
        WebVersionServer asked(QUrl(QStringLiteral("http://velumora.invalid")), patient);
        EXPECT_EQ(answerOf(asked), QStringLiteral("2.4"));
        ASSERT_EQ(server.heads.size(), 1);
        const QByteArray& head = server.heads.first();
        EXPECT_TRUE(head.startsWith("GET http://velumora.invalid/vm/Velumora_version.txt HTTP/1.1\r\n"));
        EXPECT_TRUE(head.contains("\r\nProxy-Authorization: Basic " + QByteArray("Jane:secret").toBase64() + "\r\n"));
    }
}

TEST_F(ProxyTest, AnEncryptedOneGoesThroughAndAProxyThatFloodsIsCutOff)
{
    setProxy(QNetworkProxy::HttpProxy);
    WebVersionServer asked(QUrl(QStringLiteral("https://velumora.invalid")), patient);
    server.answerAlways(LoopbackServer::reply("403 Forbidden", "2.4"));
    EXPECT_EQ(answerOf(asked), std::nullopt);
    ASSERT_EQ(server.heads.size(), 1);
    EXPECT_TRUE(server.heads.first().startsWith("CONNECT velumora.invalid:443 HTTP/1.1\r\n"));
    for (const char* again : {"X: y\r\n", "HTTP/1.1 100 Continue\r\n\r\n"}) {
        const Flood flood(server, "HTTP/1.1 200 OK\r\n", again);
        EXPECT_EQ(answerOf(asked), std::nullopt);
        EXPECT_GT(flood.sent(), 0);
        EXPECT_LT(flood.sent(), mostSent);
    }
}

TEST_F(ProxyTest, ASocksProxyIsSpokenToInItsOwnWay)
{
    server.answer = [](QTcpSocket& connection, const QByteArray&) { connection.disconnectFromHost(); };
    setProxy(QNetworkProxy::Socks5Proxy);
    WebVersionServer asked(QUrl(QStringLiteral("http://velumora.invalid")), patient);
    EXPECT_EQ(answerOf(asked), std::nullopt);
    ASSERT_FALSE(server.heads.isEmpty());
    EXPECT_TRUE(server.heads.first().startsWith('\x05'));
}

// --- Encrypted connections -------------------------------------------------------------------------------------------

/// A server with a certificate of its own, which the system does not know.
class EncryptedServerTest : public WebVersionServerTest {
protected:
    static QString testFileName(const char* name)
    {
        return QStringLiteral(VELUMORA_SOURCE_DIR "/tests/data/tls/") + QString::fromLatin1(name);
    }

    static QByteArray testFile(const char* name)
    {
        QFile file(testFileName(name));
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

    /// Asks the server at `url`, where the program knows the server's certificate as it knows those of the system.
    static std::optional<QString> newestTrusting(const QUrl& url)
    {
        WebVersionServer asked(url, patient, testFileName("certificate.pem").toStdString());
        return answerOf(asked);
    }

    LoopbackServer encrypted{QStringLiteral("https"), encryptedServer()};
};

TEST_F(EncryptedServerTest, OnlyOneWithATrustedCertificateIsHeard)
{
    encrypted.answerAlways(LoopbackServer::reply("200 OK", "2.4"));
    WebVersionServer asked(encrypted.url(), patient);
    EXPECT_EQ(answerOf(asked), std::nullopt);
    EXPECT_TRUE(encrypted.heads.isEmpty()) << "nothing was even asked";
    EXPECT_EQ(newestTrusting(encrypted.url()), QStringLiteral("2.4"));
}

TEST_F(EncryptedServerTest, RedirectionsDoNotLeaveTheEncryption)
{
    server.answerAlways(LoopbackServer::reply("200 OK", "9.9"));
    encrypted.answerAlways(
        LoopbackServer::reply("302 Found", "", "Location: " + server.url().toString().toUtf8() + "/x\r\n"));
    EXPECT_EQ(newestTrusting(encrypted.url()), std::nullopt);
    EXPECT_TRUE(server.heads.isEmpty());
}

TEST_F(EncryptedServerTest, RedirectionsMayLeadIntoTheEncryption)
{
    encrypted.answerAlways(LoopbackServer::reply("200 OK", "2.4"));
    redirectTo("302 Found", encrypted.url().toString().toUtf8() + "/x");
    EXPECT_EQ(newestTrusting(server.url()), QStringLiteral("2.4"));
}

} // namespace
