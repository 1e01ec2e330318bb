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
    redrawMiniCal(); // its buttons keep the colours that they were given; the other pages' days do not
    colorDatePickers();
}
