// SPDX-License-Identifier: MIT
#include "host/bus/OpenUriPortal.h"

#include "host/bus/BusCall.h"

#include <QDBusMessage>
#include <QDBusObjectPath>
#include <QDBusReply>
#include <QDBusServiceWatcher>
#include <QDBusUnixFileDescriptor>
#include <QFile>
#include <QGuiApplication>
#include <QUuid>
#include <QWindow>

#include <optional>
#include <utility>

#include <fcntl.h>
#include <unistd.h>

namespace {

constexpr int requestPatienceMs = 10'000; // for accepting the request, including the time to start the portal
constexpr uint lastGoodResponse = 1;      // 0: opened, 1: cancelled by the user, 2: failed

QString portalService()
{
    return QStringLiteral("org.freedesktop.portal.Desktop");
}

/// The parent window for the portal's questions, in the portal's form; empty when it is unknown.
QString parentWindow()
{
    const QWindow* window = QGuiApplication::focusWindow();
    return window && QGuiApplication::platformName() == QLatin1String("xcb")
               ? QStringLiteral("x11:%1").arg(window->winId(), 0, 16)
               : QString();
}

/// The call that opens `url`; nullopt when the file cannot be read. Folders are opened as files, because the portal's
/// OpenDirectory shows the folder above.
std::optional<QDBusMessage> callFor(const QUrl& url, const QString& token)
{
    const QString method = url.isLocalFile() ? QStringLiteral("OpenFile") : QStringLiteral("OpenURI");
    QDBusMessage message =
        QDBusMessage::createMethodCall(portalService(), QStringLiteral("/org/freedesktop/portal/desktop"),
                                       QStringLiteral("org.freedesktop.portal.OpenURI"), method);
    message << parentWindow();
    if (url.isLocalFile()) {
        const int file = ::open(QFile::encodeName(url.toLocalFile()).constData(), O_RDONLY | O_CLOEXEC);
        if (file < 0) {
            return std::nullopt;
        }
        QDBusUnixFileDescriptor descriptor;
        descriptor.giveFileDescriptor(file);
        message << QVariant::fromValue(descriptor);
    } else {
        message << url.toString(QUrl::FullyEncoded);
    }
    message << QVariantMap{{QStringLiteral("handle_token"), token}};
    return message;
}

} // namespace

/// One request to the portal. It deletes itself once answered.
class OpenUriRequest : public QObject {
    Q_OBJECT

public:
    OpenUriRequest(const QDBusConnection& bus, OpenUriPortal::Completion completion, QObject* parent)
        : QObject(parent), m_bus(bus), m_completion(std::move(completion)),
          m_watcher(portalService(), bus, QDBusServiceWatcher::WatchForUnregistration)
    {
        connect(&m_watcher, &QDBusServiceWatcher::serviceUnregistered, this, [this] { finish(false); });
    }

    void send(const QUrl& url)
    {
        const QString token = QStringLiteral("velumora_") + QUuid::createUuid().toString(QUuid::Id128);
        const std::optional<QDBusMessage> message = callFor(url, token);
        if (!message) {
            finish(false);
            return;
        }
        // Before the call, so that an immediate answer is not missed.
        QString sender = m_bus.baseService().sliced(1);
        sender.replace(u'.', u'_');
        listenAt(QStringLiteral("/org/freedesktop/portal/desktop/request/%1/%2").arg(sender, token));
        const auto answer = [this](const QDBusMessage& reply) {
            const QDBusReply<QDBusObjectPath> handle(reply);
            if (!handle.isValid()) {
                finish(false);
            } else if (handle.value().path() != m_path) { // old portals choose the path themselves
                listenAt(handle.value().path());
            }
        };
        BusCall::send(m_bus, *message, *this, answer, requestPatienceMs);
    }

    Q_SLOT void respond(uint response, const QVariantMap&) { finish(response <= lastGoodResponse); }

private:
    void listenAt(const QString& path)
    {
        m_path = path;
        m_bus.connect(QString(), path, QStringLiteral("org.freedesktop.portal.Request"), QStringLiteral("Response"),
                      this, SLOT(respond(uint, QVariantMap)));
    }

    void finish(bool opened)
    {
        if (const OpenUriPortal::Completion completion = std::exchange(m_completion, {})) {
            deleteLater();
            completion(opened);
        }
    }

    QDBusConnection m_bus;
    OpenUriPortal::Completion m_completion; ///< empty once it has been called
    QDBusServiceWatcher m_watcher;
    QString m_path; ///< of the object on which the portal reports the outcome
};

void OpenUriPortal::open(const QUrl& url, const Completion& completion)
{
    if (!m_bus.isConnected()) {
        completion(false);
        return;
    }
    (new OpenUriRequest(m_bus, completion, this))->send(url);
}

#include "OpenUriPortal.moc"
