// SPDX-License-Identifier: MIT
#include "calendar/DockIcon.h"

#include "look/Colors.h"

#include <QFile>
#include <QFont>
#include <QFontMetricsF>
#include <QPainter>
#include <QSvgRenderer>

#include <algorithm>
#include <cmath>

namespace {

constexpr double fontShare = 0.5;  ///< of the icon's width
constexpr double boxDivisor = 2.7; ///< the digits' box is pushed down by the icon's height divided by this

/// Ascent of Arial, in font sizes. A substitute font's may differ enough to push the digits off the leaf.
constexpr double ascent = 0.905;

QFont digitsFont(int side)
{
    QFont font(QStringLiteral("Arial"));
    font.setBold(true);
    font.setPixelSize(std::max(1, static_cast<int>(side * fontShare)));
    return font;
}

} // namespace

DockIcon::DockIcon(const QString& leaf, int day) : m_leaf(std::make_shared<QSvgRenderer>()), m_day(day)
{
    if (QFile::exists(leaf)) {
        m_leaf->load(leaf);
    }
}

void DockIcon::paint(QPainter* painter, const QRect& rect, QIcon::Mode /*mode*/, QIcon::State /*state*/)
{
    const int side = std::min(rect.width(), rect.height());
    QRect square(0, 0, side, side);
    square.moveCenter(rect.center());
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    if (m_leaf->isValid()) {
        m_leaf->render(painter, square);
    }
    const QString digits = QString::number(m_day);
    const QFont font = digitsFont(side);
    const double left = (side - QFontMetricsF(font).horizontalAdvance(digits)) / 2;
    const double baseline = side / boxDivisor + ascent * fontShare * side;
    painter->setFont(font);
    painter->setPen(QColor::fromRgb(Colors::iconDigits));
    // At whole pixels, so that small digits stay sharp.
    painter->drawText(square.topLeft() + QPoint(qRound(left), qRound(baseline)), digits);
    painter->restore();
}

QPixmap DockIcon::pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state)
{
    QPixmap picture(size);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    paint(&painter, picture.rect(), mode, state);
    return picture;
}

QList<QSize> DockIcon::availableSizes(QIcon::Mode /*mode*/, QIcon::State /*state*/)
{
    QList<QSize> sizes;
    for (const int side : {16, 22, 24, 32, 48, 64, 128, 256, 512}) {
        sizes.append({side, side});
    }
    return sizes;
}

QIconEngine* DockIcon::clone() const
{
    return new DockIcon(*this);
}
