// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

class QWidget;

/// What the desktop gave this start so that its window may take the keyboard; may be empty. The application object
/// takes it from the environment, so this comes before.
QString startActivationToken();

/// Shows the window above the others and gives it, or the sheet that stands on it, the keyboard, as far as the desktop
/// lets it. The token is what the desktop gave for that; it may be empty.
void bringForward(QWidget& window, const QString& activationToken);
