// SPDX-License-Identifier: MIT
#include "app/AppDelegate.h"
#include "app/Appearance.h"

#include <QMainWindow>

bool AppDelegate::isDarkMode() const
{
    return systemAppearance(m_host.processInfo, m_host.globalDefaults) == Appearance::Dark;
}

void AppDelegate::appearanceHasChanged()
{
    applyAppearance(isDarkMode() ? Appearance::Dark : Appearance::Light, m_window);
    // What was given colours of its own keeps them; the days of the week and the month are given none.
    redrawMiniCal();
    colorDatePickers();
}
