// SPDX-License-Identifier: MIT
#pragma once

#include <QIconEngine>

#include <memory>

class QSvgRenderer;

/// Draws the application's icon, a leaf of a calendar with the number of a day on it, at whatever size it is asked for.
/// It keeps no picture: a desktop asks for each size once.
class DockIcon : public QIconEngine {
public:
    /// `leaf` is the path of an SVG picture, which must be square. Where it cannot be read there are the digits alone.
    DockIcon(const QString& leaf, int day);

    /// Into the largest square in the middle of `rect`: the leaf, and the day in black bold digits half as high as the
    /// square. They stand at the top of a box of the square's size that is pushed down by 1/2.7 of its height, and in
    /// the middle of its width.
    void paint(QPainter* painter, const QRect& rect, QIcon::Mode mode, QIcon::State state) override;

    QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override;

    /// The sizes, in pixels, that desktops ask for.
    QList<QSize> availableSizes(QIcon::Mode mode, QIcon::State state) override;

    QIconEngine* clone() const override;

private:
    std::shared_ptr<QSvgRenderer> m_leaf;
    int m_day;
};
