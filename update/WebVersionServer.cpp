// SPDX-License-Identifier: MIT
#include "update/WebVersionServer.h"

#include "update/VersionText.h"

#include <QEventLoop>
#include <QNetworkAccessManager>
#include <QNetworkReply>
#include <QNetworkRequest>
#include <QTimer>

#include <memory>
#include <utility>

namespace {

constexpr int mostRedirects = 8;
constexpr int statusOk = 200;

QNetworkRequest requestFor(const QUrl& file)
{
    QNetworkRequest request(file);
    request.setMaximumRedirectsAllowed(mostRedirects);
    request.setAttribute(QNetworkRequest::RedirectPolicyAttribute, QNetworkRequest::NoLessSafeRedirectPolicy);
    request.setAttribute(QNetworkRequest::CacheLoadControlAttribute, QNetworkRequest::AlwaysNetwork);
    // A packed body would be unpacked before anyone can see how long it is.
    request.setRawHeader("Accept-Encoding", "identity");
    // The library would tell the user's languages.
    request.setRawHeader("Accept-Language", "en");
    return request;
}

/// The body of a reply that is the file, the whole file; nullopt for any other.
std::optional<QByteArray> wholeFile(QNetworkReply& reply)
{
    if (!reply.isFinished() || reply.error() != QNetworkReply::NoError ||
        reply.attribute(QNetworkRequest::HttpStatusCodeAttribute).toInt() != statusOk) {
        return std::nullopt;
    }
    QByteArray body = reply.readAll();
    const QVariant announced = reply.header(QNetworkRequest::ContentLengthHeader);
    const bool brokenOff = announced.isValid() && announced.toLongLong() != body.size();
    return brokenOff || body.size() > WebVersionServer::longestReply ? std::nullopt : std::optional(std::move(body));
}

} // namespace

WebVersionServer::WebVersionServer(QUrl server, std::chrono::milliseconds limit)
    : m_file(std::move(server)), m_limit(limit)
{
    m_file.setPath(QStringLiteral("/vm/Velumora_version.txt"));
}

std::optional<QString> WebVersionServer::newestVersion()
{
    QNetworkAccessManager network;
    const std::unique_ptr<QNetworkReply> reply(network.get(requestFor(m_file)));
    reply->setReadBufferSize(longestReply + 1);

    QEventLoop loop;
    QObject::connect(reply.get(), &QNetworkReply::finished, &loop, &QEventLoop::quit);
    QObject::connect(reply.get(), &QNetworkReply::readyRead, &loop, [&reply] {
        if (reply->bytesAvailable() > longestReply) {
            reply->abort();
        }
    });
    QTimer::singleShot(m_limit, &loop, [&reply] { reply->abort(); });
    if (!reply->isFinished()) {
        loop.exec(QEventLoop::ExcludeUserInputEvents);
    }

    const std::optional<QByteArray> file = wholeFile(*reply);
    return file ? VersionText::fromFile(*file) : std::nullopt;
}
