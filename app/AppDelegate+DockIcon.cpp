// SPDX-License-Identifier: MIT
#include "app/AppDelegate.h"
#include "calendar/DockIcon.h"
#include "dates/DateUtilities.h"

#include <QApplication>
#include <QEvent>
#include <QMainWindow>

#include <chrono>

void AppDelegate::drawCurrMonthsDayOnAppIcon()
{
    const int day = DateUtilities::yearMonthDayFromDate(DateEnvironment::now()).day;
    const QIcon icon(new DockIcon(QStringLiteral(":/images/blank.svg"), day)); // the icon owns it
    // The desktop is handed every size at once, which takes a tenth of a start: the window's first picture goes before.
    // A window that starts minimised has none.
    m_iconTimer.setSingleShot(true);
    m_iconTimer.callOnTimeout(this, [icon] { QApplication::setWindowIcon(icon); });
    m_iconTimer.start(std::chrono::seconds(1));
    m_window.installEventFilter(this);
}

bool AppDelegate::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == &m_window && event->type() == QEvent::Paint) {
        m_window.removeEventFilter(this);
        m_iconTimer.start(0);
        QMetaObject::invokeMethod(this, &AppDelegate::offerDraft, Qt::QueuedConnection);
    }
    return QObject::eventFilter(watched, event);
}
