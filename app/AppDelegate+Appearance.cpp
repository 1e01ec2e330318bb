// SPDX-License-Identifier: MIT
#include "app/AppDelegate.h"
#include "calendar/DockIcon.h"
#include "dates/DateUtilities.h"
#include "host/GlobalDefaults.h"
#include "look/Appearance.h"
#include "look/FirstPaint.h"
#include "look/StyleRules.h"
#include "look/TextSize.h"

#include <QApplication>
#include <QMainWindow>
#include <QTimer>

#include <chrono>

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

void AppDelegate::drawCurrMonthsDayOnAppIcon()
{
    const int day = DateUtilities::yearMonthDayFromDate(DateEnvironment::now()).day;
    const QIcon icon(new DockIcon(QStringLiteral(":/images/blank.svg"), day)); // the icon owns it
    // The desktop is handed every size at once, which takes a tenth of a start: the window's first picture goes before.
    // A window that starts minimised has none.
    auto* timer = new QTimer(&m_window);
    timer->setSingleShot(true);
    timer->callOnTimeout(timer, [icon, timer] {
        QApplication::setWindowIcon(icon);
        timer->deleteLater();
    });
    timer->start(std::chrono::seconds(1));
    connect(new FirstPaint(m_window), &FirstPaint::painted, timer, [timer] { timer->start(0); });
}
