// SPDX-License-Identifier: MIT
#include "look/FocusRing.h"

#include "look/NamedColor.h"

#include <QPainter>

FocusRing::FocusRing(QWidget* parent) : QWidget(parent)
{
    setAttribute(Qt::WA_TransparentForMouseEvents);
    setFocusPolicy(Qt::NoFocus);
    hide();
}

void FocusRing::paintEvent(QPaintEvent* /*event*/)
{
    constexpr double thickness = 1.5;
    constexpr double inset = thickness / 2;
    QPainter painter(this);
    painter.setPen(
        QPen(namedColor(u"FocusRingColor", palette()), thickness, Qt::SolidLine, Qt::SquareCap, Qt::MiterJoin));
    painter.drawRect(QRectF(rect()).adjusted(inset, inset, -inset, -inset));
}
