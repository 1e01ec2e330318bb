// SPDX-License-Identifier: MIT
#pragma once

#include "dates/DateFormatter.h"

#include <QCalendarWidget>
#include <QDate>

class QLabel;

/// The calendar that a date picker opens, in the first preferred language and the current locale's calendar.
///
/// Pages are months of the Gregorian or the Persian calendar. In a locale with another calendar, a page is a Gregorian
/// month, but the numbers of its days, and the months and years in its heading, are those of the locale's calendar.
class PopupCalendar : public QCalendarWidget {
    Q_OBJECT

public:
    explicit PopupCalendar(QWidget* parent);

protected:
    void paintCell(QPainter* painter, const QRect& rect, QDate day) const override;

private:
    void putHeadingInPlace();
    void showHeading();

    DateFormatter m_formatter;   ///< in the locale's calendar
    QLabel* m_heading = nullptr; ///< null where Qt's own heading is right
};
