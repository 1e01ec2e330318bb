// SPDX-License-Identifier: MIT
#pragma once

#include "dates/Date.h"
#include "dates/DayText.h"

#include <QAbstractSpinBox>
#include <QDate>

class QCalendarWidget;
class QToolButton;

/// Shows the day of a date and lets the user choose another: by typing, with the arrow keys (which change the number at
/// the caret), or in a calendar (F4 or Alt+Down). The time of day is kept.
///
/// Days are those of the process's time zone, written in the first preferred language and by the current calendar, with
/// the full year. A day takes effect as soon as its text is complete; text that is incomplete or not a day is dropped
/// when the focus leaves.
class DatePicker : public QAbstractSpinBox {
    Q_OBJECT

public:
    explicit DatePicker(QWidget* parent = nullptr);

    /// Whether `date` lies in the years 1 to 9999; others cannot be shown.
    static bool canShow(Date date);

    /// The date that was set, moved by the days that the user chose, with its time of day.
    Date dateValue() const;

    /// `canShow(date)` must hold.
    void setDateValue(Date date);

    QDate day() const { return m_day; }

    /// Acts as the user's choice of a day: from 1800 on, or from the day that was set if that is earlier, to 9999;
    /// others are ignored.
    void chooseDay(QDate day);

    /// Selected text is drawn with the colours swapped.
    void setColors(const QColor& text, const QColor& behind);
    QColor textColor() const;

    void setFirstDayOfWeek(Qt::DayOfWeek day) { m_firstDayOfWeek = day; }

    void stepBy(int steps) override;

Q_SIGNALS:
    void dateValueChanged();

protected:
    StepEnabled stepEnabled() const override { return StepUpEnabled | StepDownEnabled; }
    void contextMenuEvent(QContextMenuEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;

private:
    bool take(QDate day);
    void takeTyped(const QString& text);
    void showText();
    void openCalendar();
    QCalendarWidget* makeCalendar();

    DayText m_dayText;
    Date m_first{};   ///< the date that was set
    QDate m_firstDay; ///< the day of m_first
    QDate m_day;
    QToolButton* m_arrow;
    Qt::DayOfWeek m_firstDayOfWeek = Qt::Sunday;
};
