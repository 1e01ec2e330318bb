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
    constexpr const char* tokenVariable = "XDG_ACTIVATION_TOKEN"; // where Qt's platform plug-in looks for it
    qputenv(tokenVariable, activationToken.toUtf8());
    window.setWindowState(window.windowState() & ~Qt::WindowMinimized);
    window.show();
    // A sheet on the window has the keyboard focus; giving it to the window behind would lose it.
    QWidget* sheet = QApplication::activeModalWidget();
    QWidget& front = sheet ? *sheet : window;
    front.raise();
    front.activateWindow();
    qunsetenv(tokenVariable); // valid only once, and not for programs that this one starts
}
