// SPDX-License-Identifier: MIT
#include "app/AppDelegate.h"
#include "calendar/DockIcon.h"
#include "dates/DateUtilities.h"

#include <QApplication>

void AppDelegate::drawCurrMonthsDayOnAppIcon()
{
    const int day = DateUtilities::yearMonthDayFromDate(DateEnvironment::now()).day;
    const QIcon icon(new DockIcon(QStringLiteral(":/images/blank.svg"), day)); // the icon owns it
    // The desktop is handed every size at once, for which the window's first picture is not to wait.
    m_iconTimer.setSingleShot(true);
    m_iconTimer.callOnTimeout(this, [icon] { QApplication::setWindowIcon(icon); });
    m_iconTimer.start(0);
}
