// SPDX-License-Identifier: MIT
#include "widgets/ZTRSeparator.h"

#include <QPaintEvent>
#include <QPainter>

namespace {

constexpr QRgb lightGray = 0xffaaaaaa;
constexpr int bandHeight = 2;
constexpr int lineHeight = 1;

} // namespace

ZTRSeparator::ZTRSeparator(QWidget* parent) : QWidget(parent)
{
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
}

QSize ZTRSeparator::sizeHint() const
{
    return {bandHeight + lineHeight, bandHeight + lineHeight};
}

void ZTRSeparator::drawRect(QPainter& painter, const QRect& rect) const
{
    const int width = rect.width();
    painter.fillRect(0, height() - bandHeight - lineHeight, width, bandHeight, QColor::fromRgb(lightGray));
    painter.fillRect(0, height() - bandHeight, width, bandHeight, Qt::white);
}

void ZTRSeparator::paintEvent(QPaintEvent* event)
{
    QPainter painter(this);
    drawRect(painter, event->rect());
}
