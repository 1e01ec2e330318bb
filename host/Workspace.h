// SPDX-License-Identifier: MIT
#pragma once

#include <QUrl>

#include <filesystem>

/// Opens things with the desktop's other programs.
class Workspace {
public:
    Workspace() = default;
    Workspace(const Workspace&) = delete;
    Workspace& operator=(const Workspace&) = delete;
    virtual ~Workspace() = default;

    /// Opens a page or a file with the user's default program; false when nothing opened it.
    virtual bool openUrl(const QUrl& url) = 0;

    /// Shows a folder in the file manager; false when none could.
    virtual bool showFolder(const std::filesystem::path& folder) = 0;
};
