// SPDX-License-Identifier: MIT
#pragma once

#include "dates/Date.h"

#include <QDateEdit>

/// Shows one date as its day and lets the user choose another by keys or in a calendar (F4 or Alt+Down). The time of
/// day stays as it is.
///
/// Days are those of the process's time zone. They are written with a year of four digits, in the first preferred
/// language, and in the Persian calendar where that language's is the Persian, else in the Gregorian one.
class DatePicker : public QDateEdit {
    Q_OBJECT

public:
    explicit DatePicker(QWidget* parent = nullptr);

    /// Years 100 to 9999; any other date cannot be shown.
    static bool canShow(Date date);

    /// What is shown, the time of day included: the date that was set, moved by the days that the user chose.
    Date dateValue() const;

    /// `date` must be one that can be shown.
    void setDateValue(Date date);

    /// The chosen part of the date is drawn the other way round.
    void setColors(const QColor& text, const QColor& behind);
    QColor textColor() const;

    void setFirstDayOfWeek(Qt::DayOfWeek day);

Q_SIGNALS:
    void dateValueChanged();

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;

private:
    QCalendarWidget* makeCalendar();
    QRect arrowRect() const;
    void openCalendar();

    Date m_value{};
    QDate m_day; ///< of m_value
};
