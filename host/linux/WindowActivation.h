// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

class QWidget;

/// The desktop's token that lets this start's window take the keyboard focus; may be empty. Must be called before the
/// application object exists, which removes it from the environment.
QString startActivationToken();

/// Shows the window above the others and gives it, or the sheet on it, the keyboard focus, as far as the desktop
/// allows. `activationToken` is the desktop's token for that, or empty.
void bringForward(QWidget& window, const QString& activationToken);
