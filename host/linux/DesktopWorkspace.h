// SPDX-License-Identifier: MIT
#pragma once

#include "host/Workspace.h"
#include "host/bus/OpenUriPortal.h"
#include "host/linux/Opener.h"

#include <QDBusConnection>

/// Opens things through the desktop portal or, when there is none or it fails, with the desktop's opener. Shows folders
/// through the file manager on the session bus, or opens them when there is none.
class DesktopWorkspace : public Workspace {
public:
    explicit DesktopWorkspace(const QDBusConnection& bus = QDBusConnection::sessionBus());

    void openUrl(const QUrl& url, Completion completion) override;
    void showFolder(const std::filesystem::path& folder, Completion completion) override;

private:
    QDBusConnection m_bus;
    OpenUriPortal m_portal;
    Opener m_opener;
};
