// SPDX-License-Identifier: MIT
#pragma once

#include "host/OpenPanel.h"

/// The desktop's own folder chooser, window-modal.
class FolderOpenPanel : public OpenPanel {
public:
    void chooseFolder(QWidget& window, const Request& request, Completion completion) override;
};
