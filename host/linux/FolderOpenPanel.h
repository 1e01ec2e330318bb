// SPDX-License-Identifier: MIT
#pragma once

#include "host/OpenPanel.h"

#include <functional>
#include <utility>

class QDialog;

/// A folder chooser that looks like the program's other sheets.
class FolderOpenPanel : public OpenPanel {
public:
    /// Shows the panel on the window, now or when its turn comes. The panel deletes itself when it is closed.
    using Presenter = std::function<void(QDialog& panel, QWidget& window)>;

    explicit FolderOpenPanel(Presenter present) : m_present(std::move(present)) {}

    void chooseFolder(QWidget& window, const Request& request, Completion completion) override;

private:
    Presenter m_present;
};
