// SPDX-License-Identifier: MIT
#include "app/AppDelegate.h"
#include "host/GlobalDefaults.h"
#include "look/Appearance.h"

#include <QMainWindow>

bool AppDelegate::isDarkMode() const
{
    return systemAppearance(m_host.processInfo, m_host.globalDefaults) == Appearance::Dark;
}

void AppDelegate::appearanceHasChanged()
{
    applyTextSize(m_host.globalDefaults.text());
    applyPalette(systemPalette(m_host.processInfo, m_host.globalDefaults), m_window);
    // What was given colours of its own keeps them; the days of the week and the month are given none.
    redrawMiniCal();
    colorDatePickers();
}
