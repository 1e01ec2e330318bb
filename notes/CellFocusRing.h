// SPDX-License-Identifier: MIT
#pragma once

#include <QWidget>

/// The frame around the cell that is being edited. It lies above the editor and lets every click through.
class CellFocusRing : public QWidget {
    Q_OBJECT

public:
    explicit CellFocusRing(QWidget* parent);

protected:
    void paintEvent(QPaintEvent* event) override;
};

/// Draws the ring just inside `around`, as thick as every focus ring of the tables.
void drawFocusRing(QPainter& painter, const QRectF& around, const QPalette& palette);
