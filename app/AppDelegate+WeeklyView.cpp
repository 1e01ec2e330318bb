// SPDX-License-Identifier: MIT
#include "app/AppDelegate.h"
#include "calendar/DayNumber.h"
#include "calendar/HiddenNotesLine.h"
#include "calendar/NoteField.h"
#include "calendar/SpokenDays.h"
#include "calendar/WeeklyGrid.h"
#include "dates/DateUtilities.h"
#include "dates/MonthGrid.h"
#include "dates/Week.h"
#include "look/SpokenName.h"
#include "notes/NoteQueries.h"
#include "text/IntegerValue.h"
#include "text/Localized.h"
#include "ui_MainWindow.h"

#include <QMainWindow>

#include <algorithm>
#include <array>

namespace {

/// What goes with the day that it is now: the red number and the spoken names.
void markToday(const WeeklyGrid& grid, const std::array<Week::Day, MonthGrid::DaysPerWeek>& days)
{
    const SpokenDays spoken;
    for (int column = 0; column < MonthGrid::DaysPerWeek; ++column) {
        const Week::Day& day = days.at(static_cast<std::size_t>(column));
        grid.viewWithTag<DayNumber>(MonthGrid::weeklyDayTag(column))
            ->setToday(!day.isLeftOut && spoken.isToday(day.begin));
        setSpokenName(*grid.viewWithTag<NoteField>(MonthGrid::weeklyNoteTag(column)),
                      day.isLeftOut ? QString() : spoken.of(day.begin));
    }
}

} // namespace

void AppDelegate::setWeeklyViewThreeCharDayNames(bool startOnSunday, QWidget& window)
{
    const auto* grid = window.findChild<WeeklyGrid*>();
    const QStringList shortNames = MonthGrid::weekdayHeaders(startOnSunday);
    const QStringList fullNames = DateUtilities::copyFormatterForLocaleDevice().standaloneWeekdaySymbols();
    for (int column = 0; column < MonthGrid::DaysPerWeek; ++column) {
        auto* header = grid->viewWithTag<QLineEdit>(MonthGrid::weeklyHeaderTag(column));
        header->setPlaceholderText(shortNames.at(column));
        setSpokenName(*header, fullNames.at(MonthGrid::weekdayOfColumn(column, startOnSunday)));
    }
}

void AppDelegate::setStringForWeeklyViewStartingDateMsg(Date date)
{
    m_ui.weeklyViewStartingDateMsg->setText(localized("For week beginning:"));
    m_ui.weeklyViewStartingDate->setText(m_formatters->longStyleFromDate(date));
}

void AppDelegate::setWeeklyViewDayNumbers(bool startOnSunday, QWidget& window, const std::optional<Table>& notes)
{
    const MonthGrid::YearMonth shown = MonthGrid::orCurrent(fromMiniCalGetYearMonth());
    const int day = shown == MonthGrid::currentYearMonth() ? integerValue(DateUtilities::currentDay()) : 1;
    const Date date = DateUtilities::dateFromYear(shown.year, shown.month, day);
    putDaysDatesTextOnWeeklyView(MonthGrid::weekStartOffset(MonthGrid::dayOfWeekForDate(date), startOnSunday), date,
                                 window, notes);
}

void AppDelegate::putDaysDatesTextOnWeeklyView(int daysToAdd, Date date, QWidget& view,
                                               const std::optional<Table>& notes)
{
    const auto days = Week::daysFrom(date, daysToAdd);
    std::array<Date, days.size()> dates;
    std::ranges::transform(days, dates.begin(), &Week::Day::begin);
    const std::vector<std::string> texts = NoteQueries::textsOfDates(elementsOf(notes), dates);
    setStringForWeeklyViewStartingDateMsg(dates.front());

    const auto* grid = view.findChild<WeeklyGrid*>();
    for (int column = 0; column < MonthGrid::DaysPerWeek; ++column) {
        const auto index = static_cast<std::size_t>(column);
        auto* number = grid->viewWithTag<DayNumber>(MonthGrid::weeklyDayTag(column));
        auto* note = grid->viewWithTag<NoteField>(MonthGrid::weeklyNoteTag(column));
        if (days.at(index).isLeftOut) {
            number->setText(QString::number(days.at(index).number.day));
            note->setNote({});
            continue;
        }
        number->setText(DateUtilities::dayFromDate(dates.at(index)));
        note->setNote(QString::fromStdString(texts.at(index)));
    }
    markToday(*grid, days);
    const NoteQueries::DaysWithNotes count = NoteQueries::daysWithNotes(m_book.notes(), elementsOf(notes), dates);
    m_ui.weeklyViewHiddenNotes->setCounts(localized("Notes of this week shown: %@ of %@"), count.listed, count.all);
}

void AppDelegate::colorTodayOnWeeklyView()
{
    const std::optional<Date> start = Week::firstDayFromText(m_ui.weeklyViewStartingDate->text(), m_formatters->style);
    if (start) {
        markToday(*m_ui.weeklyGrid, Week::daysFrom(*start));
    }
}

void AppDelegate::backForwardWeek(QAbstractButton& sender)
{
    redrawWeek(&sender == m_ui.weeklyViewBackWeek ? -MonthGrid::DaysPerWeek : MonthGrid::DaysPerWeek);
    m_announcer.announceWeek();
}

/// Draws the week `days` away from the one shown; 0 draws that one anew.
void AppDelegate::redrawWeek(int days)
{
    const std::optional<Date> start = Week::firstDayFromText(m_ui.weeklyViewStartingDate->text(), m_formatters->style);
    if (!start) {
        return; // the label is the week's only record: where it names none, the page stays as it is
    }
    const Date date = DateUtilities::dateByAddingDays(*start, days, 0, 0);
    const int offset = MonthGrid::weekStartOffset(MonthGrid::dayOfWeekForDate(date), startOnSunday());
    putDaysDatesTextOnWeeklyView(offset, date, m_window, notesTVData);
}
