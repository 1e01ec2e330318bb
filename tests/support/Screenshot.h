// SPDX-License-Identifier: MIT
#pragma once

#include "look/Appearance.h"

#include <QImage>
#include <QPalette>
#include <QString>

class QWidget;

/// Gives the program the colours of one appearance for its lifetime.
class AppearanceGuard {
public:
    explicit AppearanceGuard(Appearance appearance);
    AppearanceGuard(const AppearanceGuard&) = delete;
    AppearanceGuard& operator=(const AppearanceGuard&) = delete;
    ~AppearanceGuard();

private:
    QPalette m_former;
};

/// A picture of the widget and all that stands in it, `devicePixelRatio` pixels a point (1 or 2).
QImage grabbed(QWidget& widget, int devicePixelRatio = 1);

/// Puts the picture into `screenshots` of the build folder for people to look at, as
/// "<test suite>.<test name>[-<variant>].png". Returns its path; empty when it could not be written.
QString saveScreenshot(const QImage& picture, const QString& variant = {});
