// SPDX-License-Identifier: MIT
#include "app/AppDelegate.h"
#include "calendar/DayNumber.h"
#include "calendar/HiddenNotesLine.h"
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
#include "widgets/HiddenDatePicker.h"

#include <QMainWindow>

namespace {

/// Day 1 of the month that the page's hidden picker records.
Date firstOfMonth(const HiddenDatePicker& record)
{
    // It may hold a midnight of a zone that was in force before: a day away from the first here, never two.
    const Date inMonth = DateUtilities::dateByAddingDays(record.dateValue(), 2, 0, 0);
    const auto [year, month, day] = DateUtilities::yearMonthDayFromDate(inMonth);
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

void AppDelegate::setMonthlyViewDayNumbers(bool startOnSunday, QWidget& window, const std::optional<Table>& notes)
{
    const MonthGrid::YearMonth shown = MonthGrid::orCurrent(fromMiniCalGetYearMonth());
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
    const NoteQueries::DaysWithNotes count = NoteQueries::daysWithNotes(m_book.notes(), elementsOf(notes), days);
    m_ui.monthlyViewHiddenNotes->setCounts(localized("Notes of this month shown: %@ of %@"), count.listed, count.all);
}

void AppDelegate::colorTodayOnMonthlyView()
{
    const Date first = firstOfMonth(*m_ui.monthlyViewHiddenDatePicker);
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
    m_announcer.announceMonthOfPage();
}

/// Draws the month `months` away from the one shown; 0 draws that one anew.
void AppDelegate::redrawMonth(int months)
{
    const Date date = DateUtilities::dateByAddingDays(firstOfMonth(*m_ui.monthlyViewHiddenDatePicker), 0, months, 0);
    putDaysDatesTextOnMonthlyView(MonthGrid::dayOfWeekForDate(date), date, m_window, notesTVData, startOnSunday());
}
