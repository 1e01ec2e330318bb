// SPDX-License-Identifier: MIT
#include "widgets/ZTRButtonHover.h"

#include <QEnterEvent>
#include <QPainter>

ZTRButtonHover::ZTRButtonHover(QWidget* parent) : QToolButton(parent)
{
    updateTrackingAreas();
}

void ZTRButtonHover::updateTrackingAreas()
{
    m_trackingArea = TrackingArea{rect(), MouseEnteredAndExited | CursorUpdate | ActiveInKeyWindow};
}

void ZTRButtonHover::mouseEntered()
{
    highlight(true);
}

void ZTRButtonHover::mouseExited()
{
    highlight(false);
}

void ZTRButtonHover::cursorUpdate()
{
    if (isEnabled()) {
        setCursor(Qt::PointingHandCursor);
    } else {
        unsetCursor();
    }
}

void ZTRButtonHover::highlight(bool flag)
{
    m_highlighted = flag;
    update();
}

void ZTRButtonHover::enterEvent(QEnterEvent* event)
{
    QToolButton::enterEvent(event);
    if (isActiveWindow() && m_trackingArea && m_trackingArea->rect.contains(event->position().toPoint())) {
        mouseEntered();
        cursorUpdate();
    }
}

void ZTRButtonHover::leaveEvent(QEvent* event)
{
    QToolButton::leaveEvent(event);
    mouseExited();
}

void ZTRButtonHover::changeEvent(QEvent* event)
{
    QToolButton::changeEvent(event);
    if (event->type() == QEvent::EnabledChange) {
        cursorUpdate();
    } else if (event->type() == QEvent::ActivationChange && !isActiveWindow()) {
        mouseExited();
    }
}

void ZTRButtonHover::resizeEvent(QResizeEvent* event)
{
    QToolButton::resizeEvent(event);
    updateTrackingAreas();
}

void ZTRButtonHover::paintEvent(QPaintEvent* event)
{
    QToolButton::paintEvent(event);
    if (!m_highlighted) {
        return;
    }
    QColor veil = palette().color(QPalette::ButtonText);
    veil.setAlphaF(0.12F);
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(veil);
    painter.drawRoundedRect(rect(), 4, 4);
}
