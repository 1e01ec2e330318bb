// SPDX-License-Identifier: MIT
#pragma once

#include <QUrl>

#include <filesystem>
#include <functional>

/// Opens things with the desktop's other programs, without waiting for them.
class Workspace {
public:
    /// Called on the caller's thread, at once or later, with whether something opened it; not called once the workspace
    /// is destroyed. May be empty.
    using Completion = std::function<void(bool opened)>;

    Workspace() = default;
    Workspace(const Workspace&) = delete;
    Workspace& operator=(const Workspace&) = delete;
    virtual ~Workspace() = default;

    /// Opens a page or a file with the user's default program.
    virtual void openUrl(const QUrl& url, Completion completion) = 0;

    /// Shows a folder in the file manager.
    virtual void showFolder(const std::filesystem::path& folder, Completion completion) = 0;
};
