// SPDX-License-Identifier: MIT
#include "app/AppDelegate.h"
#include "calendar/MiniCalendarGrid.h"
#include "calendar/SpokenDays.h"
#include "dates/DateUtilities.h"
#include "dates/MonthGrid.h"
#include "look/NamedColor.h"
#include "look/SpokenName.h"
#include "notes/NoteQueries.h"
#include "store/Record.h"
#include "text/IntegerValue.h"
#include "text/Localized.h"
#include "text/TextCutting.h"
#include "ui_MainWindow.h"

#include <QLabel>
#include <QMainWindow>

namespace {

constexpr const char* timerPriorDateKey = "timerPriorDateKey";

MiniCalendarGrid* gridIn(QWidget& window)
{
    return window.findChild<MiniCalendarGrid*>();
}

/// The first instant of the day of `shown` that `button` stands for; nothing for a blank cell, and for a day that the
/// zone left out.
std::optional<Date> dateOfDay(const DayButton& button, MonthGrid::YearMonth shown)
{
    const YearMonthDay day{shown.year, shown.month, integerValue(button.title())};
    if (button.title().isEmpty() || DateUtilities::isLeftOut(day)) {
        return std::nullopt;
    }
    return DateUtilities::dateFromYear(day.year, day.month, day.day);
}

/// Marks the button of a day, also for a screen reader.
void markDay(DayButton& button, DayButton::State state, const QString& spokenDay)
{
    button.setState(state);
    setSpokenName(button, state == DayButton::On ? filled(localized("%@, has a note"), {spokenDay}) : spokenDay);
    button.setToolTip(state == DayButton::On ? QString() : localized("Click and type a note of this day"));
}

} // namespace

MonthGrid::YearMonth AppDelegate::fromMiniCalGetYearMonth() const
{
    return MonthGrid::yearMonthFromTexts(m_ui.miniCalYear->text(), m_ui.miniCalMonthName->text());
}

void AppDelegate::formatCopyMiniCalTime()
{
    m_formatters.emplace();
}

void AppDelegate::showTodayOnMiniCal()
{
    const Date today = DateUtilities::today();
    const bool sundayFirst = startOnSunday();
    gridIn(m_window)->forgetChosenDay();
    setMiniCalMonthYearDate(today);
    setSingleCharDayNames(sundayFirst, m_window);
    enableMiniCalDatesWithNotes(today, notesTVData, sundayFirst, m_window);
    colorTodayOnMiniCal();
    m_announcer.announceMonthOfMiniCal();
}

void AppDelegate::redrawMiniCal()
{
    const bool sundayFirst = startOnSunday();
    const MonthGrid::YearMonth shown = fromMiniCalGetYearMonth();
    if (shown == MonthGrid::YearMonth()) {
        return;
    }
    const Date date = DateUtilities::dateFromYear(shown.year, shown.month, 1);
    setSingleCharDayNames(sundayFirst, m_window);
    enableMiniCalDatesWithNotes(date, allNotesTVData, sundayFirst, m_window);
    colorTodayOnMiniCal();
}

void AppDelegate::setMiniCalMonthYearDate(Date date)
{
    m_ui.miniCalYear->setText(DateUtilities::yearFromDate(date));
    m_ui.miniCalMonthName->setText(DateUtilities::monthNameFromDate(date));
}

void AppDelegate::setSingleCharDayNames(bool startOnSunday, QWidget& window)
{
    const MiniCalendarGrid* grid = gridIn(window);
    const QStringList shortNames = MonthGrid::weekdayHeaders(startOnSunday);
    const QStringList fullNames = DateUtilities::copyFormatterForLocaleDevice().standaloneWeekdaySymbols();
    for (int column = 0; column < MonthGrid::DaysPerWeek; ++column) {
        auto* header = grid->viewWithTag<QLabel>(MonthGrid::miniHeaderTag(column));
        const int weekday = MonthGrid::weekdayOfColumn(column, startOnSunday);
        // With Monday first, the Sunday at the end of the row keeps its whole short name.
        const bool whole = !startOnSunday && weekday == MonthGrid::Sunday;
        header->setText(whole ? shortNames.at(column) : firstSignOf(shortNames.at(column)).toString());
        setSpokenName(*header, fullNames.at(weekday));
    }
}

void AppDelegate::enableMiniCalDatesWithNotes(Date date, const std::optional<Table>& notes, bool startOnSunday,
                                              QWidget& window)
{
    const Table datesWithNotes = NoteQueries::copyArrayOfDatesHavingNotes(elementsOf(notes), date);
    setMiniCalDatesWithDate(date, datesWithNotes, startOnSunday, window);
}

void AppDelegate::setMiniCalDatesWithDate(Date date, const Table& datesWithNotes, bool startOnSunday, QWidget& window)
{
    m_formatters->style.setDateFormat(QStringLiteral("MM"));
    const int month = integerValue(DateUtilities::componentOfDate(date, m_formatters->style));
    m_formatters->style.setDateFormat(QStringLiteral("yyyy"));
    const int year = integerValue(DateUtilities::componentOfDate(date, m_formatters->style));

    const int weekdayOfFirst = MonthGrid::firstDayofMonth(month, year);
    const int dayCount = DateUtilities::daysInMonth(date);
    const SpokenDays spoken;
    int shownToday = 0;

    MiniCalendarGrid* cells = gridIn(window);
    for (int cell = MonthGrid::FirstCell; cell <= MonthGrid::LastCell; ++cell) {
        auto* button = cells->viewWithTag<DayButton>(MonthGrid::miniDayTag(cell));
        const int day = MonthGrid::dayOfCell(cell, weekdayOfFirst, startOnSunday, dayCount);
        const bool blank = day == 0;
        button->setTitle(blank ? QString() : QString::number(day));
        button->setTransparent(blank);
        if (blank) {
            button->setState(DayButton::Off);
            setSpokenName(*button, QString());
            button->setToolTip(QString());
            continue;
        }
        if (DateUtilities::isLeftOut({year, month, day})) {
            button->setState(DayButton::Off);
            setSpokenName(*button, button->title());
            button->setToolTip(QString());
            continue;
        }
        const Date dayDate = DateUtilities::dateFromYear(year, month, day);
        const bool hasNote = NoteQueries::doesTVDataHaveDate(datesWithNotes, dayDate) != DateUtilities::NotFound;
        markDay(*button, hasNote ? DayButton::On : DayButton::Off, spoken.of(dayDate));
        if (spoken.isToday(dayDate)) {
            shownToday = day;
        }
    }
    cells->daysDidChange({.year = year, .month = month}, shownToday);
}

void AppDelegate::colorTodayOnMiniCal()
{
    if (const int tag = findTagForTodaysDay(m_window); tag != 0) {
        buttonSetTitleColor(namedColor(u"SystemRedColor", m_window.palette()),
                            gridIn(m_window)->viewWithTag<DayButton>(tag));
    }
}

int AppDelegate::findTagForTodaysDay(QWidget& window) const
{
    const int currentMonth = integerValue(DateUtilities::currentMonth());
    if (m_ui.miniCalYear->text() != DateUtilities::currentYear() ||
        DateUtilities::monthNumberFromName(m_ui.miniCalMonthName->text()) != currentMonth) {
        return 0;
    }
    const int today = integerValue(DateUtilities::currentDay());
    const MiniCalendarGrid* cells = gridIn(window);
    for (int cell = MonthGrid::FirstCell; cell <= MonthGrid::LastCell; ++cell) {
        const int tag = MonthGrid::miniDayTag(cell);
        if (integerValue(cells->viewWithTag<DayButton>(tag)->title()) == today) {
            return tag;
        }
    }
    return MonthGrid::NoMiniDayTag;
}

void AppDelegate::buttonSetTitleColor(const QColor& color, DayButton* button)
{
    if (button) {
        button->setTitleColor(color);
    }
}

void AppDelegate::updateTimeOnUI()
{
    const Date now = DateEnvironment::now();
    m_ui.miniCalTime->setText(m_formatters->time.stringFromDate(now));
    // Nothing ever stores the prior day, so the calendar is redrawn every minute; that keeps today's mark right.
    if (DateUtilities::shortStyleFromDate(now) != m_window.property(timerPriorDateKey).toString()) {
        redrawMiniCal();
    }
}

void AppDelegate::minuteHasChanged()
{
    updateTimeOnUI();
    // What names today or marks it goes with the day; the pages shown stay as they are.
    nameSegments();
    colorTodayOnWeeklyView();
    colorTodayOnMonthlyView();
    const auto now = std::chrono::floor<std::chrono::seconds>(DateEnvironment::now());
    const auto secondOfMinute = now - std::chrono::floor<std::chrono::minutes>(now);
    m_minuteTimer.start(std::chrono::minutes(1) - secondOfMinute);
    m_store.retry();
    m_store.draftHasChanged(); // tried again too, where it was not written
    // The rows' red of today and the elapsed texts go with the time; the rows themselves stay.
    m_ui.notesTableView->viewport()->update();
    m_ui.importantDatesTableView->viewport()->update();
}

void AppDelegate::clockHasJumped()
{
    formatCopyMiniCalTime();
    minuteHasChanged();
    // The line's times are those of a zone, and its place may be the zone's city.
    if (m_zoneOfLocation != DateEnvironment::nameOfZoneInForce()) {
        askForLocationAgain();
    }
}

void AppDelegate::backForwardYearOrMonth(QAbstractButton& sender)
{
    const MonthGrid::YearMonth shown = fromMiniCalGetYearMonth();
    if (shown == MonthGrid::YearMonth()) {
        return;
    }
    const bool isMonthStep = &sender == m_ui.backOneMonthOnMiniCal || &sender == m_ui.forwardOneMonthOnMiniCal;
    const bool forward = &sender != m_ui.backOneYearOnMiniCal && &sender != m_ui.backOneMonthOnMiniCal;
    const Date date = isMonthStep ? MonthGrid::calcNewMonthYear(forward, shown.month, shown.year)
                                  : MonthGrid::calcNewYear(forward, shown.month, shown.year);
    setMiniCalMonthYearDate(date);
    enableMiniCalDatesWithNotes(date, allNotesTVData, startOnSunday(), m_window);
    colorTodayOnMiniCal();
    m_announcer.announceMonthOfMiniCal();
}

void AppDelegate::dayBtnAction(DayButton& sender)
{
    m_ui.notesTableView->endEditing(); // before the rows change under it
    if (const std::optional<Date> date = dateOfDay(sender, fromMiniCalGetYearMonth())) {
        showNoteOfDay(*date, sender);
    }
    showNotesCount(visibleRowsForTV(*m_ui.notesTableView));
}

void AppDelegate::showNoteOfDay(Date date, DayButton& button)
{
    using Rows = NoteBook::OpenedDay::Rows;
    const std::optional<NoteBook::OpenedDay> opened = m_book.openDay(date);
    if (!opened) {
        return; // the file could not be read: what is added to it is lost
    }
    if (opened->rows == Rows::Replaced) {
        showRows();
    } else if (opened->rows == Rows::OneMore) {
        m_ui.notesTableView->insertRow(opened->row);
    }
    if (opened->rows != Rows::AsTheyWere) {
        markDay(button, DayButton::On, SpokenDays().of(date));
    }
    m_ui.notesTableView->scrollRowToVisible(opened->row);
    m_ui.notesTableView->selectRow(opened->row);
}

/// A click on a day leads into its note, ready to be typed.
void AppDelegate::editSelectedNote(DayButton& day)
{
    if (dateOfDay(day, fromMiniCalGetYearMonth())) {
        const QString text = QString::fromLatin1(NoteDataKey.data(), static_cast<qsizetype>(NoteDataKey.size()));
        TableView& notes = *m_ui.notesTableView;
        notes.editColumn(notes.columnWithIdentifier(text), notes.selectedRow());
    }
}
