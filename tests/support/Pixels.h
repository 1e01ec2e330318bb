// SPDX-License-Identifier: MIT
#pragma once

#include <QColor>
#include <QImage>
#include <QRect>

#include <algorithm>

/// The smallest rectangle of `picture` that holds every pixel of which `holds(QColor)` is true; empty when none is.
template <typename Holds> QRect placeOf(const QImage& picture, Holds holds)
{
    QRect place;
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x) {
            if (holds(picture.pixelColor(x, y))) {
                place |= QRect(x, y, 1, 1);
            }
        }
    }
    return place;
}

/// The red of today in the light appearance.
inline constexpr QColor todayRed(0xba, 0x00, 0x19);

/// The red of today, also where a letter's edge mixes it with the ground.
inline bool isRed(const QColor& color)
{
    return color.alpha() > 100 && color.red() - std::max(color.green(), color.blue()) > 60;
}

/// A letter on a light ground.
inline bool isInk(const QColor& color)
{
    return color.alpha() > 100 && color.lightness() < 110;
}
