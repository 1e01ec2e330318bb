// SPDX-License-Identifier: MIT
#include "app/AppDelegate.h"
#include "app/Appearance.h"
#include "ui_MainWindow.h"

#include <QMainWindow>

bool AppDelegate::isDarkMode() const
{
    return systemAppearance(m_host.processInfo, m_host.globalDefaults) == Appearance::Dark;
}

void AppDelegate::appearanceHasChanged()
{
    applyAppearance(isDarkMode() ? Appearance::Dark : Appearance::Light, m_window);
    redrawPage(*m_ui.myTabView->currentWidget()); // cells keep the colours that they were given
}
