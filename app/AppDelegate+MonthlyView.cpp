// SPDX-License-Identifier: MIT
#include "app/AppDelegate.h"
#include "calendar/DayNumber.h"
#include "calendar/MonthlyGrid.h"
#include "calendar/NoteField.h"
#include "calendar/SpokenDays.h"
#include "dates/DateUtilities.h"
#include "dates/MonthGrid.h"
#include "look/SpokenName.h"
#include "notes/NoteQueries.h"
#include "text/IntegerValue.h"
#include "text/Localized.h"
#include "ui_MainWindow.h"

#include <QMainWindow>

namespace {

Date firstOfMonth(Date date)
{
    const auto [year, month, day] = DateUtilities::yearMonthDayFromDate(date);
    return DateUtilities::dateFromYear(year, month, 1);
}

} // namespace

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

    const YearMonthDay month = DateUtilities::yearMonthDayFromDate(date);
    const std::vector<Date> days = MonthGrid::daysOfMonth(date);
    const std::vector<std::string> texts = NoteQueries::textsOfDates(elementsOf(notes), days);

    auto* grid = view.findChild<MonthlyGrid*>();
    for (int cell = MonthGrid::FirstCell; cell <= MonthGrid::LastCell; ++cell) {
        DayNumber& number = grid->dayNumber(cell);
        NoteField& note = grid->noteField(cell);
        const int day = MonthGrid::dayOfCell(cell, weekdayOfFirst, startOnSunday, static_cast<int>(days.size()));
        if (day == 0) {
            number.setText({});
            note.setNote({});
            continue;
        }
        const auto index = static_cast<std::size_t>(day - 1);
        number.setText(QString::number(day));
        if (DateUtilities::isLeftOut({month.year, month.month, day})) {
            note.setNote({});
            continue;
        }
        note.setNote(QString::fromStdString(texts.at(index)));
    }
    colorTodayOnMonthlyView();
    grid->daysDidChange();
    tellHiddenNotes(*m_ui.monthlyViewHiddenNotes, localized("Notes of this month shown: %@ of %@"), days, notes);
}

/// Day 1 of the month that the page shows.
Date AppDelegate::firstOfMonthlyView() const
{
    // The picker may hold a midnight of a zone that was in force before: a day away from the first here, never two.
    return firstOfMonth(DateUtilities::dateByAddingDays(m_ui.monthlyViewHiddenDatePicker->dateValue(), 2, 0, 0));
}

void AppDelegate::colorTodayOnMonthlyView()
{
    const Date first = firstOfMonthlyView();
    const std::vector<Date> days = MonthGrid::daysOfMonth(first);
    auto [year, month, day] = DateUtilities::yearMonthDayFromDate(first);
    const SpokenDays spoken;
    for (int cell = MonthGrid::FirstCell; cell <= MonthGrid::LastCell; ++cell) {
        DayNumber& number = m_ui.monthlyGrid->dayNumber(cell);
        day = integerValue(number.text());
        const bool isShown = day > 0 && !DateUtilities::isLeftOut({year, month, day});
        const Date date = isShown ? days.at(static_cast<std::size_t>(day - 1)) : Date();
        number.setToday(isShown && spoken.isToday(date));
        setSpokenName(m_ui.monthlyGrid->noteField(cell), isShown ? spoken.of(date) : QString());
    }
}

void AppDelegate::backForwardMonthlyView(QAbstractButton& sender)
{
    redrawMonth(&sender == m_ui.monthlyViewBackBtn ? -1 : 1);
    announceMonthOfPage();
}

/// Draws the month `months` away from the one shown; 0 draws that one anew.
void AppDelegate::redrawMonth(int months)
{
    const Date date = DateUtilities::dateByAddingDays(firstOfMonthlyView(), 0, months, 0);
    putDaysDatesTextOnMonthlyView(MonthGrid::dayOfWeekForDate(date), date, m_window, notesTVData, startOnSunday());
}
