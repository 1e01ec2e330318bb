// SPDX-License-Identifier: MIT
#pragma once

#include <QWidget>

/// The frame around what has the keyboard focus: a whole table, or the cell that is being edited. It lies above what it
/// frames and lets every click through.
class FocusRing : public QWidget {
    Q_OBJECT

public:
    /// Initially hidden.
    explicit FocusRing(QWidget* parent);

protected:
    void paintEvent(QPaintEvent* event) override;
};
