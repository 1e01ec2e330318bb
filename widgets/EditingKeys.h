// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>

/// Gives every key that edits text or moves in it to the focused text field before a menu's shortcut can take it, even
/// a key that the field does not use or leaves to the window. Applies to all fields of the program while the object
/// exists.
class EditingKeys : public QObject {
    Q_OBJECT

public:
    explicit EditingKeys(QObject* parent);

    bool eventFilter(QObject* watched, QEvent* event) override;
};
