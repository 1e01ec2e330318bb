// SPDX-License-Identifier: MIT
#include "look/FirstPaint.h"

#include <QEvent>
#include <QWidget>

FirstPaint::FirstPaint(QWidget& window) : QObject(&window)
{
    window.installEventFilter(this);
}

bool FirstPaint::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::Paint) {
        watched->removeEventFilter(this);
        Q_EMIT painted();
        deleteLater();
    }
    return QObject::eventFilter(watched, event);
}
