// SPDX-License-Identifier: MIT
#pragma once

#include <QIconEngine>

#include <memory>

class QSvgRenderer;

/// Draws the application's icon, a calendar leaf with the number of a day, at any size. It caches nothing, since
/// desktops ask for each size once.
class DockIcon : public QIconEngine {
public:
    /// `leaf` is the path of a square SVG picture. If that cannot be read, only the digits are drawn.
    DockIcon(const QString& leaf, int day);

    /// Paints the leaf into the largest square in the middle of `rect`, and on it the day in bold black digits half as
    /// high as the square. The digits are centred at the top of a box of the square's size that is moved down by 1/2.7
    /// of its height.
    void paint(QPainter* painter, const QRect& rect, QIcon::Mode mode, QIcon::State state) override;

    QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override;

    /// The sizes, in pixels, that desktops ask for.
    QList<QSize> availableSizes(QIcon::Mode mode, QIcon::State state) override;

    QIconEngine* clone() const override;

private:
    std::shared_ptr<QSvgRenderer> m_leaf;
    int m_day;
};
