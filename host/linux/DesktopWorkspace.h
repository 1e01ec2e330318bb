// SPDX-License-Identifier: MIT
#pragma once

#include "host/Workspace.h"

/// Opens with the desktop's default programs; shows folders through the file manager on the session bus.
class DesktopWorkspace : public Workspace {
public:
    bool openUrl(const QUrl& url) override;
    bool showFolder(const std::filesystem::path& folder) override;
};
