// SPDX-License-Identifier: MIT
#include "look/AlphaValue.h"

#include <QGraphicsOpacityEffect>
#include <QWidget>

void setAlphaValue(QWidget& control, double alpha)
{
    if (alpha >= 1) {
        control.setGraphicsEffect(nullptr);
        return;
    }
    auto* effect = qobject_cast<QGraphicsOpacityEffect*>(control.graphicsEffect());
    if (!effect) {
        effect = new QGraphicsOpacityEffect(&control);
        control.setGraphicsEffect(effect);
    }
    effect->setOpacity(alpha);
}

double alphaValue(const QWidget& control)
{
    const auto* effect = qobject_cast<QGraphicsOpacityEffect*>(control.graphicsEffect());
    return effect ? effect->opacity() : 1.0;
}
