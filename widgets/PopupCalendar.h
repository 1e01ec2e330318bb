// SPDX-License-Identifier: MIT
#pragma once

#include "dates/DateFormatter.h"

#include <QCalendarWidget>
#include <QDate>

class QLabel;

/// The calendar that a date picker opens, in the first preferred language and by the calendar of the current locale.
///
/// Qt counts by the Gregorian and the Persian calendar. By any other, a page is a Gregorian month still, but its days
/// have the numbers, and its heading the months and years, of the locale's calendar.
class PopupCalendar : public QCalendarWidget {
    Q_OBJECT

public:
    explicit PopupCalendar(QWidget* parent);

protected:
    void paintCell(QPainter* painter, const QRect& rect, QDate day) const override;

private:
    void putHeadingInPlace();
    void showHeading();

    DateFormatter m_formatter;   ///< of the calendar that Qt does not know
    QLabel* m_heading = nullptr; ///< null where Qt's own will do
};
