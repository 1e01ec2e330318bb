// SPDX-License-Identifier: MIT
#include "app/PreferenceKeys.h"
#include "calendar/DayNumber.h"
#include "calendar/MonthlyGrid.h"
#include "calendar/NoteField.h"
#include "store/Record.h"
#include "support/AppFixture.h"
#include "support/Pixels.h"
#include "widgets/HiddenDatePicker.h"

#include <QLabel>
#include <QScrollBar>
#include <QTest>

namespace {

/// The clock of the fixture stands at 15 March 2024, a Friday; weekdays are those of Python's calendar.
class MonthlyViewTest : public AppFixture {
protected:
    QLabel& number(int cell) { return *ui->monthlyGrid->viewWithTag<QLabel>(88 + 2 * cell); }
    NoteField& field(int cell) { return *ui->monthlyGrid->viewWithTag<NoteField>(89 + 2 * cell); }

    QString title() { return ui->monthlyViewMonthYear->text(); }

    QString names()
    {
        QStringList texts;
        for (int tag = 80; tag <= 86; ++tag) {
            texts.append(ui->monthlyGrid->viewWithTag<QLabel>(tag)->text());
        }
        return texts.join(u' ');
    }

    /// "day note" of each cell that shows a note.
    QString notes()
    {
        QStringList texts;
        for (int cell = 1; cell <= 37; ++cell) {
            if (!field(cell).toPlainText().isEmpty()) {
                texts.append(number(cell).text() + u' ' + field(cell).toPlainText());
            }
        }
        return texts.join(u'|');
    }

    QString redDays()
    {
        QStringList marked;
        for (int cell = 1; cell <= 37; ++cell) {
            if (ui->monthlyGrid->dayNumber(cell).textColor() == todayRed) {
                marked.append(number(cell).text());
            }
        }
        return marked.join(u' ');
    }

    void expectDays(int firstCell, int days)
    {
        for (int cell = 1; cell <= 37; ++cell) {
            const int day = cell - firstCell + 1;
            const bool blank = day < 1 || day > days;
            EXPECT_EQ(number(cell).text(), blank ? QString() : QString::number(day)) << cell;
            EXPECT_EQ(number(cell).isVisible(), !blank) << cell;
            EXPECT_EQ(field(cell).isVisible(), !blank) << cell;
        }
    }

    void setWeekStart(int preference) { host.userDefaults.stored.insert(PreferenceKeys::weekStart, preference); }
    void open() { ui->monthlyViewPageAction->trigger(); }
    void startOpen()
    {
        start();
        open();
    }
};

TEST_F(MonthlyViewTest, OpensOnTheMonthOfTheMiniCalendar)
{
    setWeekStart(1);
    startOpen();
    EXPECT_EQ(title(), QStringLiteral("March 2024"));
    EXPECT_EQ(names(), QStringLiteral("Sun Mon Tue Wed Thu Fri Sat"));
    expectDays(6, 31);
    EXPECT_EQ(redDays(), QStringLiteral("15"));
}

TEST_F(MonthlyViewTest, TheTickAfterMidnightMovesTheRedMarkAndNothingElse)
{
    setWeekStart(1);
    putNotes({note(2024, 3, 30, "Packing\n" + std::string(2000, 'a'))});
    clock.set(utcDate(2024, 3, 30, 12));
    startOpen();
    window->activateWindow();
    NoteField& packing = field(35);
    packing.setFocus();
    QTest::keyClick(&packing, Qt::Key_Right, Qt::ShiftModifier);
    packing.verticalScrollBar()->setValue(3);
    ASSERT_EQ(packing.verticalScrollBar()->value(), 3);
    clock.set(utcDate(2024, 3, 30, 23)); // midnight in Berlin
    app->minuteHasChanged();
    EXPECT_EQ(redDays(), QStringLiteral("31"));
    clock.set(utcDate(2024, 3, 31, 22)); // the next one, in summer time
    app->minuteHasChanged();
    EXPECT_EQ(redDays(), QString());
    EXPECT_EQ(title(), QStringLiteral("March 2024")) << "the page that was opened stays";
    EXPECT_TRUE(packing.hasFocus());
    EXPECT_EQ(packing.textCursor().selectedText(), QStringLiteral("P"));
    EXPECT_EQ(packing.verticalScrollBar()->value(), 3);
    ui->monthlyViewForwardBtn->click();
    EXPECT_EQ(redDays(), QStringLiteral("1"));
}

TEST_F(MonthlyViewTest, AClockOrAZoneThatJumpsMovesTheRedMark)
{
    startOpen();
    clock.set(utcDate(2024, 3, 1, 2));
    host.clockMonitor.jump();
    EXPECT_EQ(redDays(), QStringLiteral("1"));
    const TimeZoneGuard newYork("America/New_York"); // where it is February still
    host.clockMonitor.jump();
    EXPECT_EQ(redDays(), QString());
    clock.set(utcDate(2024, 3, 1, 5)); // midnight there
    app->minuteHasChanged();
    EXPECT_EQ(redDays(), QStringLiteral("1"));
    EXPECT_EQ(title(), QStringLiteral("March 2024"));
}

TEST_F(MonthlyViewTest, BeginsOnMondayWhenThePreferencesSaySo)
{
    setWeekStart(0);
    startOpen();
    EXPECT_EQ(names(), QStringLiteral("Mon Tue Wed Thu Fri Sat Sun"));
    expectDays(5, 31);
}

TEST_F(MonthlyViewTest, TheLastCellHoldsTheLastDayOfALongMonthThatBeginsLate)
{
    setWeekStart(1);
    startOpen();
    for (int month = 3; month < 6; ++month) {
        ui->monthlyViewForwardBtn->click();
    }
    EXPECT_EQ(title(), QStringLiteral("June 2024")); // begins on a Saturday
    expectDays(7, 30);
    ui->monthlyViewHiddenDatePicker->setDateValue(day(2023, 6, 1));
    ui->monthlyViewForwardBtn->click();
    EXPECT_EQ(title(), QStringLiteral("July 2023")); // begins on a Saturday
    expectDays(7, 31);
}

TEST_F(MonthlyViewTest, OpensOnTheCurrentMonthWhenTheMiniCalendarNamesNone)
{
    for (const QString& name : {QString(), QStringLiteral("Brumaire")}) {
        start();
        ui->miniCalYear->setText(QStringLiteral("1999"));
        ui->miniCalMonthName->setText(name);
        open();
        EXPECT_EQ(title(), QStringLiteral("March 2024")) << name.toStdString();
    }
}

TEST_F(MonthlyViewTest, TheArrowsLeaveTheMiniCalendarAlone)
{
    start();
    for (int year = 2024; year < 2030; ++year) {
        ui->forwardOneYearOnMiniCal->click();
    }
    open();
    EXPECT_EQ(title(), QStringLiteral("March 2030"));
    EXPECT_EQ(redDays(), QString());
    ui->monthlyViewForwardBtn->click();
    EXPECT_EQ(title(), QStringLiteral("April 2030"));
    EXPECT_EQ(ui->miniCalMonthName->text(), QStringLiteral("March"));
    ui->miniCalendarPageAction->trigger();
    open();
    EXPECT_EQ(title(), QStringLiteral("March 2030")) << "entered from the mini calendar again";
}

TEST_F(MonthlyViewTest, TheArrowsGoByTheHiddenDateAcrossTheYearsEnd)
{
    startOpen();
    EXPECT_EQ(ui->monthlyViewHiddenDatePicker->dateValue(), day(2024, 3, 1));
    EXPECT_FALSE(ui->monthlyViewHiddenDatePicker->isVisible());
    ui->monthlyViewHiddenDatePicker->setDateValue(day(1919, 12, 1));
    ui->monthlyViewForwardBtn->click();
    EXPECT_EQ(title(), QStringLiteral("January 1920"));
    ui->monthlyViewBackBtn->click();
    ui->monthlyViewBackBtn->click();
    EXPECT_EQ(title(), QStringLiteral("November 1919"));
}

TEST_F(MonthlyViewTest, TheArrowsGoOnByMonthsInAnotherTimeZone)
{
    startOpen();
    ui->monthlyViewForwardBtn->click(); // April in Berlin, whose midnight is still March in New York
    const TimeZoneGuard newYork("America/New_York");
    host.clockMonitor.jump();
    ui->monthlyViewForwardBtn->click();
    EXPECT_EQ(title(), QStringLiteral("May 2024"));
    EXPECT_EQ(number(4).text(), QStringLiteral("1")) << "a Wednesday";
    const TimeZoneGuard tokyo("Asia/Tokyo");
    host.clockMonitor.jump();
    ui->monthlyViewBackBtn->click();
    EXPECT_EQ(title(), QStringLiteral("April 2024"));
}

TEST_F(MonthlyViewTest, HoldsTheMonthsOfFarYears)
{
    start();
    ui->miniCalYear->setText(QStringLiteral("12345"));
    open();
    EXPECT_EQ(title(), QStringLiteral("March 12345"));
    ui->monthlyViewBackBtn->click();
    EXPECT_EQ(title(), QStringLiteral("February 12345"));
}

TEST_F(MonthlyViewTest, ShowsTheNotesThatTheListHoldsAndNoOthers)
{
    putNotes({note(2024, 3, 1, "First"), note(2024, 3, 31, "Summer time"), note(2024, 3, 31, "of the same day"),
              note(2024, 4, 1, "April"), note(2023, 3, 1, "another year's")});
    start();
    ui->hideShowSegBtn->press(0);
    open();
    EXPECT_EQ(notes(), QStringLiteral("1 First|31 Summer time"));
    ui->monthlyViewForwardBtn->click();
    EXPECT_EQ(notes(), QString()) << "the list holds March alone";
    ui->filterField->setText(QStringLiteral("summer"));
    ui->filterBtn->click();
    ui->monthlyViewBackBtn->click();
    EXPECT_EQ(notes(), QStringLiteral("31 Summer time"));
    app->notesTVData = std::nullopt; // the file could not be read
    open();
    ui->monthlyViewForwardBtn->click();
    ui->monthlyViewBackBtn->click();
    EXPECT_EQ(notes(), QString());
}

TEST_F(MonthlyViewTest, ShowsTheNoteOfADayWithoutAMidnight)
{
    const TimeZoneGuard saoPaulo("America/Sao_Paulo"); // 21 October 2012 began at one
    putNotes({makeNoteRecord(utcDate(2012, 10, 21, 3), "Early"), makeNoteRecord(utcDate(2012, 10, 22, 2), "Next")});
    clock.set(utcDate(2012, 10, 15, 12));
    start();
    open();
    EXPECT_EQ(notes(), QStringLiteral("21 Early|22 Next"));
}

TEST_F(MonthlyViewTest, ShowsANotesMarkupToTheLetter)
{
    putNotes({note(2024, 3, 15, "<b>Call</b> Sam & Kim")});
    startOpen();
    EXPECT_EQ(notes(), QStringLiteral("15 <b>Call</b> Sam & Kim"));
}

TEST_F(MonthlyViewTest, TheRowsThatAMonthNeedsShareTheHeight)
{
    setWeekStart(1);
    startOpen();
    runQueued();
    const int height = ui->monthlyGrid->height();
    EXPECT_NEAR(field(36).geometry().bottom(), height, 8); // March 2024 needs six rows
    ui->monthlyViewBackBtn->click();                       // February 2024 needs five
    EXPECT_NEAR(field(33).geometry().bottom(), height, 8);
}

TEST_F(MonthlyViewTest, StandsMirroredInALanguageFromTheRight)
{
    setWeekStart(1);
    startOpen();
    runQueued();
    const auto right = [this](QWidget& widget) { return ui->monthlyGrid->width() - widget.geometry().right() - 1; };
    const int left = number(6).x();
    const int headerLeft = ui->monthlyGrid->header(5).x();
    window->setLayoutDirection(Qt::RightToLeft);
    EXPECT_NEAR(right(number(6)), left, 2);
    EXPECT_NEAR(right(ui->monthlyGrid->header(5)), headerLeft, 2);
}

TEST_F(MonthlyViewTest, EachDaySpeaksItsFullDate)
{
    setWeekStart(1);
    startOpen();
    EXPECT_EQ(field(20).accessibleName(), QStringLiteral("Friday, March 15, 2024, today"));
    EXPECT_EQ(field(1).accessibleName(), QString());
    EXPECT_EQ(ui->monthlyGrid->header(0).accessibleName(), QStringLiteral("Sunday"));
}

TEST_F(MonthlyViewTest, TheTabKeyLeadsFromNoteToNote)
{
    setWeekStart(1);
    putNotes({note(2024, 3, 4, "one"), note(2024, 3, 20, "two")});
    startOpen();
    window->activateWindow();
    ui->monthlyViewPrintBtn->setFocus();
    QStringList reached;
    for (int step = 0; step < 2; ++step) {
        QTest::keyClick(window->focusWidget(), Qt::Key_Tab);
        const auto* note = qobject_cast<NoteField*>(window->focusWidget());
        reached.append(note ? note->note() : QString());
    }
    EXPECT_EQ(reached.join(u' '), QStringLiteral("one two"));
}

TEST_F(MonthlyViewTest, TheMenusMonthKeysMoveThePageThatIsShown)
{
    startOpen();
    ui->nextMonthAction->trigger();
    EXPECT_EQ(ui->myTabView->currentIndex(), 2);
    EXPECT_EQ(title(), QStringLiteral("April 2024"));
    EXPECT_EQ(ui->miniCalMonthName->text(), QStringLiteral("March"));
    ui->miniCalendarPageAction->trigger();
    ui->previousMonthAction->trigger();
    EXPECT_EQ(ui->myTabView->currentIndex(), 0);
    EXPECT_EQ(ui->miniCalMonthName->text(), QStringLiteral("February"));
}

TEST_F(MonthlyViewTest, AnotherAppearanceOfTheDesktopLeavesTheMonthAndRecoloursToday)
{
    startOpen();
    ui->monthlyViewForwardBtn->click();
    host.globalDefaults.setInterfaceStyle(QStringLiteral("Dark"));
    EXPECT_EQ(title(), QStringLiteral("April 2024"));
    ui->monthlyViewBackBtn->click();
    EXPECT_EQ(redDays(), QString()) << "the red of the light appearance";
    EXPECT_GT(ui->monthlyGrid->dayNumber(20).textColor().lightness(), 150);
    host.globalDefaults.setInterfaceStyle(std::nullopt);
    EXPECT_EQ(redDays(), QStringLiteral("15"));
}

TEST_F(MonthlyViewTest, CountsDaysAsTheCalendarOfTheLocaleDoes)
{
    const LocaleGuard persian("fa_IR", {"fa"}); // 15 March 2024 is 25 Esfand 1402, a month of 29 days from a Tuesday on
    setWeekStart(1);
    putNotes({makeNoteRecord(utcDate(2024, 3, 14, 23), "today's"), makeNoteRecord(utcDate(2024, 2, 19, 23), "first")});
    startOpen();
    expectDays(3, 29);
    EXPECT_EQ(redDays(), QStringLiteral("25"));
    EXPECT_EQ(notes(), QStringLiteral("1 first|25 today's"));
}

} // namespace
