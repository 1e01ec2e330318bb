// SPDX-License-Identifier: MIT
#include "app/FadingButton.h"

#include <QGraphicsOpacityEffect>

FadingButton::FadingButton(QWidget* parent) : QPushButton(parent)
{
    setGraphicsEffect(new QGraphicsOpacityEffect(this));
    setAlpha(0);
}

void FadingButton::setAlpha(double alpha)
{
    static_cast<QGraphicsOpacityEffect*>(graphicsEffect())->setOpacity(alpha);
}

double FadingButton::alpha() const
{
    return static_cast<QGraphicsOpacityEffect*>(graphicsEffect())->opacity();
}
