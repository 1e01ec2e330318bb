// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>

/// Gives every key that edits text, or moves in it, to the text field that has the focus, before a shortcut of a menu
/// can take it: also those that the field itself has no use for, or leaves to the window. Works on all fields of the
/// program while it lives.
class EditingKeys : public QObject {
    Q_OBJECT

public:
    explicit EditingKeys(QObject* parent);

    bool eventFilter(QObject* watched, QEvent* event) override;
};
