// SPDX-License-Identifier: MIT
#pragma once

#include "host/Workspace.h"
#include "host/linux/OpenUriPortal.h"
#include "host/linux/Opener.h"

#include <QDBusConnection>

/// Opens through the desktop's portal, and where there is none or it cannot, with the desktop's opener. Shows folders
/// through the file manager on the session bus, and where there is none, opens them.
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
