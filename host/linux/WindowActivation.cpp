// SPDX-License-Identifier: MIT
#include "host/linux/WindowActivation.h"

#include <QApplication>
#include <QWidget>

QString startActivationToken()
{
    const QString token = qEnvironmentVariable("XDG_ACTIVATION_TOKEN");
    return token.isEmpty() ? qEnvironmentVariable("DESKTOP_STARTUP_ID") : token;
}

void bringForward(QWidget& window, const QString& activationToken)
{
    constexpr const char* tokenVariable = "XDG_ACTIVATION_TOKEN"; // where the window system's plug-in looks for it
    qputenv(tokenVariable, activationToken.toUtf8());
    window.setWindowState(window.windowState() & ~Qt::WindowMinimized);
    window.show();
    // A sheet on the window takes the keyboard; given to the window behind it, it would be nobody's.
    QWidget* sheet = QApplication::activeModalWidget();
    QWidget& front = sheet ? *sheet : window;
    front.raise();
    front.activateWindow();
    qunsetenv(tokenVariable); // good for once, and not for the programs that this one starts
}
