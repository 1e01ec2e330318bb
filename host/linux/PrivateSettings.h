// SPDX-License-Identifier: MIT
#pragma once

#include <QSettings>

/// The program's settings in the desktop's native format, in a file that nobody but the user can read: they may hold
/// where the user lives. The settings write at once when told to, and by themselves from the event loop and at their
/// end; each time they make the new file with the permissions of the one it replaces, or without one, with those that
/// the process leaves it.
class PrivateSettings : public QSettings {
    Q_OBJECT

public:
    /// A file that is there already is closed to others from now on.
    PrivateSettings();
    ~PrivateSettings() override;

    /// In place of QSettings::sync.
    void save();

protected:
    bool event(QEvent* event) override;
};
