// SPDX-License-Identifier: MIT
#include "host/linux/DesktopWorkspace.h"

#include "host/bus/BusCall.h"

#include <QDBusMessage>

#include <utility>

namespace {

constexpr int fileManagerTimeoutMs = 3000;

} // namespace

DesktopWorkspace::DesktopWorkspace(const QDBusConnection& bus) : m_bus(bus), m_portal(bus) {}

void DesktopWorkspace::openUrl(const QUrl& url, Completion completion)
{
    m_portal.open(url, [this, url, completion = std::move(completion)](bool opened) {
        if (!opened) {
            m_opener.open(url, completion);
        } else if (completion) {
            completion(true);
        }
    });
}

void DesktopWorkspace::showFolder(const std::filesystem::path& folder, Completion completion)
{
    const QUrl url = QUrl::fromLocalFile(QString::fromStdString(folder.string()));
    if (!m_bus.isConnected()) { // a call would never be answered
        openUrl(url, std::move(completion));
        return;
    }
    QDBusMessage message = QDBusMessage::createMethodCall(
        QStringLiteral("org.freedesktop.FileManager1"), QStringLiteral("/org/freedesktop/FileManager1"),
        QStringLiteral("org.freedesktop.FileManager1"), QStringLiteral("ShowFolders"));
    message << QStringList{url.toString(QUrl::FullyEncoded)} << QString();
    const auto answer = [this, url, completion = std::move(completion)](const QDBusMessage& reply) {
        if (reply.type() == QDBusMessage::ErrorMessage) {
            openUrl(url, completion);
        } else if (completion) {
            completion(true);
        }
    };
    BusCall::send(m_bus, message, m_portal, answer, fileManagerTimeoutMs);
}
