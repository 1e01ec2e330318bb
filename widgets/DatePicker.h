// SPDX-License-Identifier: MIT
#pragma once

#include "dates/Date.h"
#include "dates/DayText.h"

#include <QAbstractSpinBox>
#include <QDate>

class QCalendarWidget;
class QToolButton;

/// Shows one date as its day and lets the user choose another: typed, by the arrow keys (the number at the caret), or
/// in a calendar (F4 or Alt+Down). The time of day stays as it is.
///
/// Days are those of the process's time zone, written in the first preferred language and by the current calendar with
/// the whole year. A day takes effect as soon as its text is complete; what is not complete, or no day, is dropped at
/// the end.
class DatePicker : public QAbstractSpinBox {
    Q_OBJECT

public:
    explicit DatePicker(QWidget* parent = nullptr);

    /// Years 1 to 9999; any other date cannot be shown.
    static bool canShow(Date date);

    /// What is shown, the time of day included: the date that was set, moved by the days that the user chose.
    Date dateValue() const;

    /// `date` must be one that can be shown.
    void setDateValue(Date date);

    QDate day() const { return m_day; }

    /// The user's choice of a day from 1800 on, or from the day on that was set where that is earlier; others are
    /// ignored.
    void chooseDay(QDate day);

    /// The chosen part of the text is drawn the other way round.
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
    Date m_first{};   ///< as it was set
    QDate m_firstDay; ///< of m_first
    QDate m_day;
    QToolButton* m_arrow;
    Qt::DayOfWeek m_firstDayOfWeek = Qt::Sunday;
};
