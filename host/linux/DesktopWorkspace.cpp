// SPDX-License-Identifier: MIT
#include "host/linux/DesktopWorkspace.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDesktopServices>

namespace {

constexpr int fileManagerTimeoutMs = 3000;

} // namespace

bool DesktopWorkspace::openUrl(const QUrl& url)
{
    return url.isValid() && QDesktopServices::openUrl(url);
}

bool DesktopWorkspace::showFolder(const std::filesystem::path& folder)
{
    const QUrl url = QUrl::fromLocalFile(QString::fromStdString(folder.string()));
    QDBusMessage message = QDBusMessage::createMethodCall(
        QStringLiteral("org.freedesktop.FileManager1"), QStringLiteral("/org/freedesktop/FileManager1"),
        QStringLiteral("org.freedesktop.FileManager1"), QStringLiteral("ShowFolders"));
    message << QStringList{url.toString(QUrl::FullyEncoded)} << QString();
    const QDBusMessage reply = QDBusConnection::sessionBus().call(message, QDBus::Block, fileManagerTimeoutMs);
    return reply.type() == QDBusMessage::ReplyMessage || openUrl(url);
}
