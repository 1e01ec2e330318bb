// SPDX-License-Identifier: MIT
#include "notes/CellFocusRing.h"

#include "notes/NamedColor.h"

#include <QPainter>

CellFocusRing::CellFocusRing(QWidget* parent) : QWidget(parent)
{
    setAttribute(Qt::WA_TransparentForMouseEvents);
    setFocusPolicy(Qt::NoFocus);
    hide();
}

void CellFocusRing::paintEvent(QPaintEvent* /*event*/)
{
    QPainter painter(this);
    drawFocusRing(painter, rect(), palette());
}

void drawFocusRing(QPainter& painter, const QRectF& around, const QPalette& palette)
{
    constexpr double thickness = 1.5;
    constexpr double inset = thickness / 2;
    painter.setPen(
        QPen(namedColor(u"FocusRingColor", palette), thickness, Qt::SolidLine, Qt::SquareCap, Qt::MiterJoin));
    painter.setBrush(Qt::NoBrush);
    painter.drawRect(around.adjusted(inset, inset, -inset, -inset));
}
