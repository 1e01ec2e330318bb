// SPDX-License-Identifier: MIT
#pragma once

#include <QWidget>

/// An engraved line along the lower edge: a band 2 points high with a line of 1 point above it; white under light grey
/// in the light appearance.
class ZTRSeparator : public QWidget {
    Q_OBJECT

public:
    explicit ZTRSeparator(QWidget* parent = nullptr);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }

    /// Draws the line as wide as `rect`, always from the left edge.
    void drawRect(QPainter& painter, const QRect& rect) const;

protected:
    void paintEvent(QPaintEvent* event) override;
};
