// SPDX-License-Identifier: MIT
#include "app/AppDelegate.h"
#include "app/Localized.h"
#include "app/SpokenName.h"
#include "calendar/DayNumber.h"
#include "calendar/MonthGrid.h"
#include "calendar/MonthlyGrid.h"
#include "calendar/NoteField.h"
#include "calendar/SpokenDays.h"
#include "dates/DateUtilities.h"
#include "dates/IntegerValue.h"
#include "notes/NoteQueries.h"
#include "ui_MainWindow.h"

#include <QMainWindow>

void AppDelegate::setMonthlyViewThreeCharDayNames(bool startOnSunday, QWidget& window)
{
    const auto* grid = window.findChild<MonthlyGrid*>();
    const QStringList shortNames = MonthGrid::weekdayHeaders(startOnSunday);
    const QStringList fullNames = DateUtilities::copyFormatterForLocaleDevice().standaloneWeekdaySymbols();
    for (int column = 0; column < MonthGrid::DaysPerWeek; ++column) {
        grid->header(column).setText(shortNames.at(column));
        setSpokenName(grid->header(column), fullNames.at(MonthGrid::weekdayOfColumn(column, startOnSunday)));
    }
}

MonthGrid::YearMonth AppDelegate::shownOrCurrentMonth() const
{
    const MonthGrid::YearMonth shown = fromMiniCalGetYearMonth();
    return shown.year == 0 || shown.month == 0 ? MonthGrid::currentYearMonth() : shown;
}

void AppDelegate::setMonthlyViewDayNumbers(bool startOnSunday, QWidget& window, const std::optional<Table>& notes)
{
    const MonthGrid::YearMonth shown = shownOrCurrentMonth();
    const Date date = DateUtilities::dateFromYear(shown.year, shown.month, 1);
    putDaysDatesTextOnMonthlyView(MonthGrid::dayOfWeekForDate(date), date, window, notes, startOnSunday);
}

void AppDelegate::putDaysDatesTextOnMonthlyView(int weekdayOfFirst, Date date, QWidget& view,
                                                const std::optional<Table>& notes, bool startOnSunday)
{
    m_ui.monthlyViewHiddenDatePicker->setDateValue(date);
    m_ui.monthlyViewMonthYear->setText(
        filled(QStringLiteral("%@ %@"), {DateUtilities::monthNameFromDate(date), DateUtilities::yearFromDate(date)}));

    const std::vector<Date> days = MonthGrid::daysOfMonth(date);
    const std::vector<std::string> texts = NoteQueries::textsOfDates(notes.value_or(Table()), days);
    const SpokenDays spoken;

    auto* grid = view.findChild<MonthlyGrid*>();
    for (int cell = MonthGrid::FirstCell; cell <= MonthGrid::LastCell; ++cell) {
        DayNumber& number = grid->dayNumber(cell);
        NoteField& note = grid->noteField(cell);
        const int day = MonthGrid::dayOfCell(cell, weekdayOfFirst, startOnSunday, static_cast<int>(days.size()));
        if (day == 0) {
            number.setText({});
            number.setToday(false);
            note.setNote({});
            setSpokenName(note, {});
            continue;
        }
        const auto index = static_cast<std::size_t>(day - 1);
        number.setText(QString::number(day));
        number.setToday(spoken.isToday(days.at(index)));
        note.setNote(QString::fromStdString(texts.at(index)));
        setSpokenName(note, spoken.of(days.at(index)));
    }
    grid->daysDidChange();
}

void AppDelegate::backForwardMonthlyView(QAbstractButton& sender)
{
    const int step = &sender == m_ui.monthlyViewBackBtn ? -1 : 1;
    // The picker may hold a midnight of a zone that was in force before: a day away from the first here, never two.
    const auto [year, month, day] = DateUtilities::yearMonthDayFromDate(
        DateUtilities::dateByAddingDays(m_ui.monthlyViewHiddenDatePicker->dateValue(), 2, 0, 0));
    const Date date = DateUtilities::dateByAddingDays(DateUtilities::dateFromYear(year, month, 1), 0, step, 0);
    putDaysDatesTextOnMonthlyView(MonthGrid::dayOfWeekForDate(date), date, m_window, notesTVData, startOnSunday());
    announceMonthOfPage();
}
