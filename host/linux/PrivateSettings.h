// SPDX-License-Identifier: MIT
#pragma once

#include <QSettings>

/// The program's settings in the desktop's native format, in a file that only the user can read, since they may contain
/// where the user lives. QSettings writes on request, from the event loop and when destroyed. Each time it creates a
/// new file with the permissions of the old one or, without one, those that the process's umask leaves.
class PrivateSettings : public QSettings {
    Q_OBJECT

public:
    /// Closes an existing file to others.
    PrivateSettings();
    ~PrivateSettings() override;

    /// To be called instead of QSettings::sync.
    void save();

protected:
    bool event(QEvent* event) override;
};
