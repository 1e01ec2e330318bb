// SPDX-License-Identifier: MIT
#include "app/AppDelegate.h"
#include "app/Appearance.h"
#include "ui_MainWindow.h"

#include <QApplication>

bool AppDelegate::isDarkMode() const
{
    return systemAppearance(m_host.processInfo, m_host.globalDefaults) == Appearance::Dark;
}

void AppDelegate::appearanceHasChanged()
{
    QApplication::setPalette(calmPalette(isDarkMode() ? Appearance::Dark : Appearance::Light));
    redrawPage(*m_ui.myTabView->currentWidget()); // cells keep the colours that they were given
}
