// SPDX-License-Identifier: MIT
// The days by keys and by their spoken names.
#include "app/pages/mini_calendar_fixture.h"

#include <QTest>
#include <gmock/gmock.h>

namespace {

using ::testing::ElementsAre;

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
