// SPDX-License-Identifier: MIT
#include "widgets/ZTRSeparator.h"

#include "look/NamedColor.h"

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
    painter.fillRect(0, height() - bandHeight - lineHeight, width, bandHeight,
                     namedColor(u"EngravingColor", palette()));
    painter.fillRect(0, height() - bandHeight, width, bandHeight, namedColor(u"EngravingLipColor", palette()));
}

// Whole, whatever part has to be painted: what is drawn of a part would begin at the left edge.
void ZTRSeparator::paintEvent(QPaintEvent* /*event*/)
{
    QPainter painter(this);
    drawRect(painter, rect());
}
