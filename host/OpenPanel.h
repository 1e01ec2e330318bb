// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <filesystem>
#include <functional>
#include <optional>

class QWidget;

/// Lets the user choose a folder.
class OpenPanel {
public:
    struct Request {
        QString title;
        QString message; ///< plain text, shown above the folders
        QString acceptButton;
        std::filesystem::path folder; ///< where the panel opens; a leading "~/" means the user's home
    };
    /// Called once on the main thread with the chosen folder, or nullopt when the user cancelled.
    using Completion = std::function<void(std::optional<std::filesystem::path>)>;

    OpenPanel() = default;
    OpenPanel(const OpenPanel&) = delete;
    OpenPanel& operator=(const OpenPanel&) = delete;
    virtual ~OpenPanel() = default;

    virtual void chooseFolder(QWidget& window, const Request& request, Completion completion) = 0;
};
