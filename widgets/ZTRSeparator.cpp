// SPDX-License-Identifier: MIT
#include "widgets/ZTRSeparator.h"

#include "look/Colors.h"

#include <QPaintEvent>
#include <QPainter>

namespace {

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
    painter.fillRect(0, height() - bandHeight - lineHeight, width, bandHeight, QColor::fromRgb(Colors::engraving));
    painter.fillRect(0, height() - bandHeight, width, bandHeight, QColor::fromRgb(Colors::white));
}

void ZTRSeparator::paintEvent(QPaintEvent* event)
{
    QPainter painter(this);
    drawRect(painter, event->rect());
}
