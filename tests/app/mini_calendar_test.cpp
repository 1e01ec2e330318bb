// SPDX-License-Identifier: MIT
#include "app/PreferenceKeys.h"
#include "calendar/MiniCalendarGrid.h"
#include "support/AppFixture.h"
#include "table/CellEditor.h"

#include <QTest>
#include <gmock/gmock.h>

namespace {

using ::testing::ElementsAre;

/// The clock of the fixture stands at 15 March 2024, a Friday. March 2024 begins on a Friday, February 2024 on a
/// Thursday, September 2024 on a Sunday, June 2024 on a Saturday, February 2015 on a Sunday (Python's calendar).
class MiniCalendarTest : public AppFixture {
protected:
    DayButton& cell(int number) { return *ui->miniCalendarGrid->dayButtons().at(number - 1); }

    QStringList titles()
    {
        QStringList all;
        for (const DayButton* button : ui->miniCalendarGrid->dayButtons()) {
            all.append(button->title());
        }
        return all;
    }

    std::vector<int> daysInState(DayButton::State state)
    {
        std::vector<int> days;
        for (const DayButton* button : ui->miniCalendarGrid->dayButtons()) {
            if (button->state() == state && !button->title().isEmpty()) {
                days.push_back(button->title().toInt());
            }
        }
        return days;
    }

    std::vector<int> redDays()
    {
        std::vector<int> days;
        for (const DayButton* button : ui->miniCalendarGrid->dayButtons()) {
            if (button->titleColor().isValid()) {
                EXPECT_GT(button->titleColor().red(), 2 * button->titleColor().green());
                days.push_back(button->title().toInt());
            }
        }
        return days;
    }

    QStringList headers()
    {
        QStringList texts;
        for (int tag = 70; tag <= 76; ++tag) {
            texts.append(ui->miniCalendarGrid->viewWithTag<QLabel>(tag)->text());
        }
        return texts;
    }

    QString shownMonth() { return ui->miniCalMonthName->text() + u' ' + ui->miniCalYear->text(); }

    void setWeekStart(int preference) { host.userDefaults.stored.insert(PreferenceKeys::weekStart, preference); }

    /// Steps by the arrow buttons until that month of the Gregorian calendar shows.
    void showMonth(int year, int month)
    {
        const auto press = [](QAbstractButton* back, QAbstractButton* forward, int steps) {
            for (; steps < 0; ++steps) {
                back->click();
            }
            for (; steps > 0; --steps) {
                forward->click();
            }
        };
        const MonthGrid::YearMonth shown = app->fromMiniCalGetYearMonth();
        press(ui->backOneYearOnMiniCal, ui->forwardOneYearOnMiniCal, year - shown.year);
        press(ui->backOneMonthOnMiniCal, ui->forwardOneMonthOnMiniCal, month - shown.month);
    }

    void pressDay(int dayOfMonth) { app->dayBtnAction(dayButton(dayOfMonth)); }
};

struct GridRow {
    const char* name;
    int year;
    int month;
    int weekStart; ///< 1: Sunday first
    int firstCell;
    int days;
};

void PrintTo(const GridRow& row, std::ostream* stream)
{
    *stream << row.name;
}

class MiniCalendarGridTest : public MiniCalendarTest, public ::testing::WithParamInterface<GridRow> {};

TEST_P(MiniCalendarGridTest, ShowsTheDaysFromTheCellOfTheFirst)
{
    const GridRow& row = GetParam();
    setWeekStart(row.weekStart);
    start();
    showMonth(row.year, row.month);
    for (int number = 1; number <= 37; ++number) {
        const int dayOfMonth = number - row.firstCell + 1;
        const bool blank = dayOfMonth < 1 || dayOfMonth > row.days;
        EXPECT_EQ(cell(number).title(), blank ? QString() : QString::number(dayOfMonth)) << number;
        EXPECT_EQ(cell(number).isTransparent(), blank) << number;
        EXPECT_EQ(cell(number).property("tag").toInt(), number);
        EXPECT_EQ(cell(number).accessibleName().isEmpty(), blank) << number;
    }
}

INSTANTIATE_TEST_SUITE_P(Months, MiniCalendarGridTest,
                         ::testing::Values(GridRow{"SundayFirstOfAMonthBeginningOnSunday", 2024, 9, 1, 1, 30},
                                           GridRow{"MondayFirstOfAMonthBeginningOnSunday", 2024, 9, 0, 7, 30},
                                           GridRow{"SundayFirstOfAMonthBeginningOnSaturday", 2024, 6, 1, 7, 30},
                                           GridRow{"ThirtyOneDaysUpToTheLastCell", 2025, 3, 1, 7, 31},
                                           GridRow{"TwentyEightDaysFromTheFirstCell", 2015, 2, 1, 1, 28},
                                           GridRow{"LeapFebruary", 2024, 2, 0, 4, 29},
                                           GridRow{"DecemberOfTheYearBefore", 2023, 12, 1, 6, 31}),
                         [](const auto& row) { return std::string(row.param.name); });

TEST_F(MiniCalendarTest, WithSundayFirstEveryHeaderIsOneCharacter)
{
    setWeekStart(1);
    start();
    EXPECT_EQ(headers(), QStringLiteral("S M T W T F S").split(u' '));
}

TEST_F(MiniCalendarTest, WithMondayFirstTheSundayAtTheEndKeepsItsShortName)
{
    setWeekStart(0);
    start();
    EXPECT_EQ(headers(), QStringLiteral("M T W T F S Sun").split(u' '));
}

TEST_F(MiniCalendarTest, TheTimeIsTheShortOneOfTheLocale)
{
    start();
    EXPECT_EQ(ui->miniCalTime->text().simplified(), QStringLiteral("9:30 AM")); // the blank is a narrow one
    clock.advance(std::chrono::minutes(61));
    app->updateTimeOnUI();
    EXPECT_EQ(ui->miniCalTime->text().simplified(), QStringLiteral("10:31 AM"));
}

TEST_F(MiniCalendarTest, TodayIsRedInItsMonthOnly)
{
    start();
    EXPECT_THAT(redDays(), ElementsAre(15));
    ui->backOneMonthOnMiniCal->click();
    EXPECT_THAT(redDays(), ElementsAre());
    ui->forwardOneMonthOnMiniCal->click();
    EXPECT_THAT(redDays(), ElementsAre(15));
    ui->forwardOneYearOnMiniCal->click();
    EXPECT_EQ(shownMonth(), QStringLiteral("March 2025"));
    EXPECT_THAT(redDays(), ElementsAre());
    EXPECT_EQ(app->findTagForTodaysDay(*window), 0);
    ui->todayBtn->click();
    EXPECT_EQ(shownMonth(), QStringLiteral("March 2024"));
    EXPECT_THAT(redDays(), ElementsAre(15));
}

TEST_F(MiniCalendarTest, ADayThatNoButtonShowsIsColouredNowhere)
{
    start();
    for (DayButton* button : ui->miniCalendarGrid->dayButtons()) {
        button->setTitle(QString());
    }
    EXPECT_EQ(app->findTagForTodaysDay(*window), 38);
    app->colorTodayOnMiniCal();
    AppDelegate::buttonSetTitleColor(Qt::red, nullptr);
    EXPECT_THAT(redDays(), ElementsAre());
}

TEST_F(MiniCalendarTest, TheTickAfterMidnightMovesTheRedMark)
{
    start();
    clock.set(utcDate(2024, 3, 15, 22, 59, 59));
    app->minuteHasChanged();
    EXPECT_THAT(redDays(), ElementsAre(15));
    clock.set(utcDate(2024, 3, 15, 23, 0, 0)); // midnight in Berlin
    app->minuteHasChanged();
    EXPECT_THAT(redDays(), ElementsAre(16));
}

TEST_F(MiniCalendarTest, EveryTickRedrawsTheDays)
{
    start();
    cell(6).setTitle(QStringLiteral("x"));
    app->updateTimeOnUI();
    EXPECT_FALSE(titles().contains(QStringLiteral("x")));
}

TEST_F(MiniCalendarTest, MonthsStepAcrossTheYearsEnd)
{
    start();
    showMonth(2024, 1);
    ui->backOneMonthOnMiniCal->click();
    EXPECT_EQ(shownMonth(), QStringLiteral("December 2023"));
    ui->forwardOneMonthOnMiniCal->click();
    EXPECT_EQ(shownMonth(), QStringLiteral("January 2024"));
}

TEST_F(MiniCalendarTest, YearsStepWithinTheMonth)
{
    start();
    showMonth(2024, 2);
    ui->forwardOneYearOnMiniCal->click();
    EXPECT_EQ(shownMonth(), QStringLiteral("February 2025"));
    EXPECT_FALSE(titles().contains(QStringLiteral("29")));
    ui->backOneYearOnMiniCal->click();
    EXPECT_EQ(shownMonth(), QStringLiteral("February 2024"));
    EXPECT_TRUE(titles().contains(QStringLiteral("29")));
}

TEST_F(MiniCalendarTest, ArrowsDoNothingWhileNoMonthIsShown)
{
    make();
    app->formatCopyMiniCalTime();
    for (QAbstractButton* arrow : {ui->backOneMonthOnMiniCal, ui->forwardOneYearOnMiniCal}) {
        app->backForwardYearOrMonth(*arrow);
    }
    app->redrawMiniCal();
    EXPECT_EQ(ui->miniCalYear->text(), QString());
    EXPECT_EQ(app->fromMiniCalGetYearMonth(), MonthGrid::YearMonth());
}

TEST_F(MiniCalendarTest, ADayIsOnWhenItHasANote)
{
    putNotes(
        {note(2024, 3, 1, "first"), note(2024, 3, 31, "last"), note(2024, 4, 1, "after"), note(2024, 2, 29, "before")});
    start();
    EXPECT_THAT(daysInState(DayButton::On), ElementsAre(1, 31));
    ui->backOneMonthOnMiniCal->click();
    EXPECT_THAT(daysInState(DayButton::On), ElementsAre(29));
}

TEST_F(MiniCalendarTest, GoingToTodayMarksTheNotesOfTheListWhileArrowsAndTicksMarkAll)
{
    putNotes({note(2024, 3, 1, "kept"), note(2024, 3, 20, "hidden by the filter")});
    start();
    ui->filterField->setText(QStringLiteral("kept"));
    ui->filterBtn->click();
    ui->todayBtn->click();
    EXPECT_THAT(daysInState(DayButton::On), ElementsAre(1));
    app->redrawMiniCal();
    EXPECT_THAT(daysInState(DayButton::On), ElementsAre(1, 20));
    ui->todayBtn->click();
    EXPECT_THAT(daysInState(DayButton::On), ElementsAre(1));
    ui->forwardOneMonthOnMiniCal->click();
    ui->backOneMonthOnMiniCal->click();
    EXPECT_THAT(daysInState(DayButton::On), ElementsAre(1, 20));
}

TEST_F(MiniCalendarTest, ABlankCellChangesOnlyTheCount)
{
    putNotes({note(2024, 3, 5, "a"), note(2024, 3, 6, "b")});
    start();
    ui->countOfNotesInTV->setText(QStringLiteral("stale"));
    ui->notesTableView->selectRow(1);
    const QStringList before = shownRows();
    DayButton& blank = cell(37);
    ASSERT_EQ(blank.title(), QString());
    blank.click();
    EXPECT_EQ(countLine(), QStringLiteral("Displaying 2 notes"));
    EXPECT_EQ(shownRows(), before);
    EXPECT_EQ(ui->notesTableView->selectedRow(), 1);
    EXPECT_EQ(ui->notesTableView->editedRow(), -1);
    EXPECT_EQ(blank.state(), DayButton::Off);
}

TEST_F(MiniCalendarTest, ADayShownInTheListIsSelectedThere)
{
    putNotes({note(2024, 3, 5, "a"), note(2024, 2, 6, "b"), note(2024, 3, 7, "c")});
    start();
    pressDay(7);
    EXPECT_EQ(ui->notesTableView->selectedRow(), 2);
    EXPECT_EQ(shownRows().size(), 3);
    EXPECT_TRUE(ui->deleteRowFromListBtn->isEnabled());
}

TEST_F(MiniCalendarTest, ADayHiddenByTheListBringsItsMonthSortedByDate)
{
    putNotes({note(2024, 3, 20, "late"), note(2024, 4, 2, "other month"), note(2024, 3, 5, "early")});
    start();
    ui->filterField->setText(QStringLiteral("other"));
    ui->filterBtn->click();
    ui->todayBtn->click();
    ASSERT_EQ(dayButton(20).state(), DayButton::Off);
    pressDay(20);
    EXPECT_EQ(shownRows(),
              QStringList({QStringLiteral("Tue, Mar 5, 2024 | early"), QStringLiteral("Wed, Mar 20, 2024 | late")}));
    EXPECT_EQ(ui->notesTableView->selectedRow(), 1);
    EXPECT_EQ(dayButton(20).state(), DayButton::On);
    EXPECT_EQ(countLine(), QStringLiteral("Displaying 2 notes"));
}

TEST_F(MiniCalendarTest, ADayWithoutANoteGetsAnEmptyRowAtTheEndThatIsNotSaved)
{
    const Table notes = {note(2024, 3, 20, "late")};
    putNotes(notes);
    start();
    pressDay(3);
    EXPECT_EQ(shownRows(),
              QStringList({QStringLiteral("Wed, Mar 20, 2024 | late"), QStringLiteral("Sun, Mar 3, 2024 | ")}));
    EXPECT_EQ(ui->notesTableView->selectedRow(), 1);
    EXPECT_EQ(ui->notesTableView->numberOfRows(), 2);
    EXPECT_EQ(dayButton(3).state(), DayButton::On);
    EXPECT_EQ(countLine(), QStringLiteral("Displaying 2 notes"));
    EXPECT_EQ(app->allNotesTVData, notes);
    EXPECT_EQ(notesOnDisk(), notes);

    ui->notesTableView->selectRow(0);
    pressDay(3); // the row is there now
    EXPECT_EQ(ui->notesTableView->selectedRow(), 1);
    EXPECT_EQ(shownRows().size(), 2);
}

TEST_F(MiniCalendarTest, APressedDayIsReadyToBeTypedIntoAndLeavesNothingWhenItIsNot)
{
    const Table notes = {note(2024, 3, 20, "late")};
    putNotes(notes);
    start();
    dayButton(3).click();
    EXPECT_EQ(ui->notesTableView->editedRow(), 1);
    ui->notesTableView->endEditing();
    EXPECT_EQ(app->allNotesTVData, notes);
    EXPECT_EQ(notesOnDisk(), notes);
}

TEST_F(MiniCalendarTest, ADayPressedDuringAnEditKeepsWhatWasTyped)
{
    putNotes({note(2024, 3, 5, "early"), note(2024, 3, 20, "late")});
    start();
    ui->filterField->setText(QStringLiteral("early"));
    ui->filterBtn->click();
    ui->notesTableView->editColumn(1, 0);
    QTest::keyClicks(ui->notesTableView->viewAt(1, 0), QStringLiteral(" bird"));
    dayButton(20).click(); // as a screen reader presses it: the focus stays in the editor until then
    EXPECT_EQ(notesOnDisk(), Table({note(2024, 3, 5, "early bird"), note(2024, 3, 20, "late")}));
    EXPECT_EQ(shownRows().first(), QStringLiteral("Tue, Mar 5, 2024 | early bird"));
    EXPECT_EQ(ui->notesTableView->editedRow(), 1);
}

// Under each locale the month shown is read back from its two labels. Worked by hand: the Persian year 1403 began on
// 20 March 2024, so 15 March was 25 Esfand 1402; the year of the Buddhist era is the Gregorian one and 543.
struct LocaleRow {
    const char* locale;
    const char* language;
    const char* month;
    const char* year;
    const char* dayOfMonth;
    const char* yearOfNextMonth;
};

void PrintTo(const LocaleRow& row, std::ostream* stream)
{
    *stream << row.locale << " in " << row.language;
}

class MiniCalendarLocaleTest : public MiniCalendarTest, public ::testing::WithParamInterface<LocaleRow> {};

TEST_P(MiniCalendarLocaleTest, TheMonthShownSurvivesStepsAndRedraws)
{
    const LocaleRow& row = GetParam();
    const LocaleGuard guard(row.locale, {row.language});
    start();
    const QString shown = shownMonth();
    EXPECT_EQ(shown, QString::fromUtf8(row.month) + u' ' + QString::fromUtf8(row.year));
    EXPECT_THAT(redDays(), ElementsAre(QString::fromUtf8(row.dayOfMonth).toInt()));
    const QStringList days = titles();
    app->minuteHasChanged();
    EXPECT_EQ(shownMonth(), shown);
    EXPECT_EQ(titles(), days);

    ui->forwardOneMonthOnMiniCal->click();
    EXPECT_EQ(ui->miniCalYear->text(), QString::fromUtf8(row.yearOfNextMonth));
    EXPECT_NE(shownMonth(), shown);
    EXPECT_THAT(redDays(), ElementsAre());
    ui->backOneYearOnMiniCal->click();
    ui->backOneMonthOnMiniCal->click();
    ui->forwardOneYearOnMiniCal->click();
    EXPECT_EQ(shownMonth(), shown);
    EXPECT_EQ(titles(), days);

    pressDay(4);
    typeNote(0, QStringLiteral("note"));
    ui->todayBtn->click();
    EXPECT_THAT(daysInState(DayButton::On), ElementsAre(4));
}

INSTANTIATE_TEST_SUITE_P(Locales, MiniCalendarLocaleTest,
                         ::testing::Values(LocaleRow{"de_DE", "de-DE", "März", "2024", "15", "2024"},
                                           LocaleRow{"de_DE", "en-US", "March", "2024", "15", "2024"},
                                           LocaleRow{"th_TH", "th-TH", "มีนาคม", "2567", "15", "2567"},
                                           LocaleRow{"th_TH", "en-US", "March", "2567", "15", "2567"},
                                           LocaleRow{"fa_IR", "fa-IR", "اسفند", "۱۴۰۲", "25", "۱۴۰۳"},
                                           LocaleRow{"ar_EG", "ar-EG", "مارس", "٢٠٢٤", "15", "٢٠٢٤"}));

class MiniCalendarZoneTest : public MiniCalendarTest, public ::testing::WithParamInterface<const char*> {};

TEST_P(MiniCalendarZoneTest, ANoteMarksItsDayAndNoOther)
{
    const TimeZoneGuard guard(GetParam());
    putNotes({note(2024, 3, 10, "a"), note(2024, 3, 31, "b"), note(2024, 9, 8, "c"), note(2024, 10, 27, "d")});
    start();
    EXPECT_THAT(daysInState(DayButton::On), ElementsAre(10, 31));
    showMonth(2024, 9);
    EXPECT_THAT(daysInState(DayButton::On), ElementsAre(8)); // has no midnight in Santiago
    showMonth(2024, 10);
    EXPECT_THAT(daysInState(DayButton::On), ElementsAre(27));
}

INSTANTIATE_TEST_SUITE_P(Zones, MiniCalendarZoneTest,
                         ::testing::Values("America/Santiago", "America/New_York", "Pacific/Kiritimati",
                                           "Pacific/Pago_Pago", "Asia/Kathmandu", "Europe/London"));

TEST_F(MiniCalendarTest, TheDayWithoutAMidnightIsToday)
{
    const TimeZoneGuard guard("America/Santiago");
    clock.set(utcDate(2024, 9, 8, 15)); // noon in Santiago, whose clocks went from 24:00 to 1:00 that night
    putNotes({note(2024, 9, 8, "today")});
    start();
    EXPECT_EQ(shownMonth(), QStringLiteral("September 2024"));
    EXPECT_THAT(redDays(), ElementsAre(8));
    EXPECT_THAT(daysInState(DayButton::On), ElementsAre(8));
}

// Keys and spoken names

class MiniCalendarKeysTest : public MiniCalendarTest {
protected:
    void press(int key, int from)
    {
        dayButton(from).setFocus();
        QTest::keyClick(&dayButton(from), static_cast<Qt::Key>(key));
    }

    QString focusedDay()
    {
        const auto* button = qobject_cast<const DayButton*>(window->focusWidget());
        return button ? button->title() : QString();
    }

    /// The days at which the tab key stops.
    std::vector<int> tabStops()
    {
        std::vector<int> days;
        for (const DayButton* button : ui->miniCalendarGrid->dayButtons()) {
            if ((button->focusPolicy() & Qt::TabFocus) != 0) {
                days.push_back(button->title().toInt());
            }
        }
        return days;
    }
};

struct KeyRow {
    const char* name;
    int key;
    int from;
    const char* month;
    const char* day;
};

void PrintTo(const KeyRow& row, std::ostream* stream)
{
    *stream << row.name;
}

class MiniCalendarKeyTest : public MiniCalendarKeysTest, public ::testing::WithParamInterface<KeyRow> {};

TEST_P(MiniCalendarKeyTest, MovesTheFocus)
{
    const KeyRow& row = GetParam();
    start();
    press(row.key, row.from);
    EXPECT_EQ(shownMonth(), QString::fromUtf8(row.month));
    EXPECT_EQ(focusedDay(), QString::fromUtf8(row.day));
}

INSTANTIATE_TEST_SUITE_P(Keys, MiniCalendarKeyTest,
                         ::testing::Values(KeyRow{"Right", Qt::Key_Right, 15, "March 2024", "16"},
                                           KeyRow{"Left", Qt::Key_Left, 15, "March 2024", "14"},
                                           KeyRow{"Down", Qt::Key_Down, 15, "March 2024", "22"},
                                           KeyRow{"Up", Qt::Key_Up, 15, "March 2024", "8"},
                                           KeyRow{"RightPastTheEnd", Qt::Key_Right, 31, "April 2024", "1"},
                                           KeyRow{"LeftPastTheStart", Qt::Key_Left, 1, "February 2024", "29"},
                                           KeyRow{"DownPastTheEnd", Qt::Key_Down, 28, "April 2024", "4"},
                                           KeyRow{"UpPastTheStart", Qt::Key_Up, 3, "February 2024", "25"},
                                           KeyRow{"PageDown", Qt::Key_PageDown, 15, "April 2024", "15"},
                                           KeyRow{"PageDownToAShorterMonth", Qt::Key_PageDown, 31, "April 2024", "30"},
                                           KeyRow{"PageUp", Qt::Key_PageUp, 15, "February 2024", "15"},
                                           KeyRow{"PageUpToAShorterMonth", Qt::Key_PageUp, 31, "February 2024", "29"}),
                         [](const auto& row) { return std::string(row.param.name); });

TEST_F(MiniCalendarKeysTest, ReturnDoesWhatAClickDoes)
{
    putNotes({note(2024, 3, 5, "a")});
    start();
    for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Enter, Qt::Key_Space}) {
        ui->notesTableView->endEditing();
        ui->notesTableView->selectRow(-1);
        press(key, 5);
        EXPECT_EQ(ui->notesTableView->selectedRow(), 0) << key;
        EXPECT_EQ(ui->notesTableView->editedRow(), 0) << key;
    }
}

TEST_F(MiniCalendarKeysTest, TheTabKeyStopsAtOneDay)
{
    start();
    EXPECT_THAT(tabStops(), ElementsAre(15)) << "today";
    dayButton(20).setFocus();
    EXPECT_THAT(tabStops(), ElementsAre(20));
    EXPECT_EQ(dayButton(20).focusPolicy(), Qt::StrongFocus);
}

TEST_F(MiniCalendarKeysTest, TheTabKeyFollowsTodayUntilADayIsChosen)
{
    start();
    clock.set(utcDate(2024, 3, 16, 8, 30));
    app->minuteHasChanged();
    EXPECT_THAT(tabStops(), ElementsAre(16));
    dayButton(5).setFocus();
    ui->filterField->setFocus();
    clock.set(utcDate(2024, 3, 17, 8, 30));
    app->minuteHasChanged();
    EXPECT_THAT(tabStops(), ElementsAre(5));
}

TEST_F(MiniCalendarKeysTest, TheDayChosenLastIsRememberedInItsMonthOnly)
{
    start();
    dayButton(20).setFocus();
    ui->filterField->setFocus();
    ui->forwardOneMonthOnMiniCal->click();
    EXPECT_THAT(tabStops(), ElementsAre(1)) << "a month without today and without a chosen day";
    ui->backOneMonthOnMiniCal->click();
    EXPECT_THAT(tabStops(), ElementsAre(20));
    ui->todayBtn->click();
    EXPECT_THAT(tabStops(), ElementsAre(15)) << "it leads back to today";
}

TEST_F(MiniCalendarKeysTest, TheTodayButtonTakesTheFocusAlong)
{
    start();
    dayButton(5).setFocus();
    ui->todayAction->trigger();
    EXPECT_EQ(focusedDay(), QStringLiteral("15"));
    EXPECT_THAT(tabStops(), ElementsAre(15));
    showMonth(2024, 6);
    dayButton(5).setFocus();
    ui->todayAction->trigger();
    EXPECT_EQ(focusedDay(), QStringLiteral("15"));
}

TEST_F(MiniCalendarKeysTest, PassingByTodayChoosesNoDay)
{
    start();
    dayButton(15).setFocus(Qt::TabFocusReason);
    ui->filterField->setFocus();
    clock.set(utcDate(2024, 3, 16, 8, 30));
    app->minuteHasChanged();
    EXPECT_THAT(tabStops(), ElementsAre(16));
    dayButton(16).setFocus(Qt::TabFocusReason);
    clock.set(utcDate(2024, 3, 17, 8, 30));
    app->minuteHasChanged();
    EXPECT_EQ(focusedDay(), QStringLiteral("16")) << "nobody's focus is moved at midnight";
    ui->filterField->setFocus();
    app->redrawMiniCal();
    EXPECT_THAT(tabStops(), ElementsAre(17));
}

TEST_F(MiniCalendarKeysTest, TheTabKeyLeadsFirstToToday)
{
    start();
    ui->forwardOneYearOnMiniCal->setFocus();
    QTest::keyClick(ui->forwardOneYearOnMiniCal, Qt::Key_Tab);
    EXPECT_EQ(focusedDay(), QStringLiteral("15"));
}

TEST_F(MiniCalendarKeysTest, AStepToAMonthWithoutTheFocusedCellKeepsTheFocusOnADay)
{
    start();
    dayButton(31).setFocus(); // its cell is blank in February
    ui->backOneMonthOnMiniCal->click();
    EXPECT_EQ(focusedDay(), QStringLiteral("29"));
    ui->forwardOneMonthOnMiniCal->click();
    dayButton(1).setFocus(); // the Friday of the first week; April begins on a Monday, June on a Saturday
    showMonth(2024, 6);
    EXPECT_EQ(focusedDay(), QStringLiteral("1"));
}

TEST_F(MiniCalendarKeysTest, ADaySpeaksItsDateAndWhetherItHasANote)
{
    putNotes({note(2024, 3, 5, "a")});
    start();
    EXPECT_EQ(dayButton(4).accessibleName(), QStringLiteral("Monday, March 4, 2024"));
    EXPECT_EQ(dayButton(5).accessibleName(), QStringLiteral("Tuesday, March 5, 2024, has a note"));
    pressDay(4);
    EXPECT_EQ(dayButton(4).accessibleName(), QStringLiteral("Monday, March 4, 2024, has a note"));
}

} // namespace
