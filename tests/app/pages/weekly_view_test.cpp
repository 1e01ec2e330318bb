// SPDX-License-Identifier: MIT
#include "app/PreferenceKeys.h"
#include "calendar/DayNumber.h"
#include "calendar/NoteField.h"
#include "calendar/WeeklyGrid.h"
#include "support/AppFixture.h"
#include "support/Pixels.h"

#include <QLabel>
#include <QLineEdit>
#include <QRadioButton>
#include <QScrollBar>
#include <QTest>

namespace {

/// The clock of the fixture stands at 15 March 2024, a Friday; weekdays are those of Python's calendar.
class WeeklyViewTest : public AppFixture {
protected:
    template <typename Cell> Cell& cell(int tag) { return *ui->weeklyGrid->viewWithTag<Cell>(tag); }

    /// The texts of one kind of cell from the first column to the last; tags 40, 41 and 42 begin the three kinds.
    template <typename Text> QStringList row(int firstTag, Text text)
    {
        QStringList texts;
        for (int tag = firstTag; tag <= firstTag + 18; tag += 3) {
            texts.append(text(tag));
        }
        return texts;
    }
    QString days()
    {
        return row(41, [this](int tag) { return cell<QLabel>(tag).text(); }).join(u' ');
    }
    QString notes()
    {
        return row(42, [this](int tag) { return cell<QPlainTextEdit>(tag).toPlainText(); }).join(u'|');
    }
    QString names()
    {
        return row(40, [this](int tag) { return cell<QLineEdit>(tag).placeholderText(); }).join(u' ');
    }
    QString redDays()
    {
        const QStringList marked = row(41, [this](int tag) {
            const QColor color = cell<DayNumber>(tag).textColor();
            return color == todayRed ? cell<QLabel>(tag).text() : QString();
        });
        return marked.join(QString());
    }
    QString firstDay() { return ui->weeklyViewStartingDate->text(); }

    void setWeekStart(int preference) { host.userDefaults.stored.insert(PreferenceKeys::weekStart, preference); }
    void open() { ui->weeklyViewPageAction->trigger(); }
    void startOpen()
    {
        start();
        open();
    }
};

TEST_F(WeeklyViewTest, OpensOnTheWeekThatHoldsTodayWhenTheMiniCalendarShowsTheCurrentMonth)
{
    setWeekStart(1);
    startOpen();
    EXPECT_EQ(ui->weeklyViewStartingDateMsg->text(), QStringLiteral("For week beginning:"));
    EXPECT_EQ(firstDay(), QStringLiteral("March 10, 2024"));
    EXPECT_EQ(days(), QStringLiteral("10 11 12 13 14 15 16"));
    EXPECT_EQ(redDays(), QStringLiteral("15"));
    EXPECT_EQ(names(), QStringLiteral("Sun Mon Tue Wed Thu Fri Sat"));
}

TEST_F(WeeklyViewTest, TheTickAfterMidnightMovesTheRedMarkAndNothingElse)
{
    setWeekStart(1);
    putNotes({note(2024, 3, 12, "Dentist\n" + std::string(2000, 'a'))});
    startOpen();
    window->activateWindow();
    auto& dentist = cell<NoteField>(48);
    dentist.setFocus();
    QTest::keyClick(&dentist, Qt::Key_Right, Qt::ShiftModifier);
    dentist.verticalScrollBar()->setValue(3);
    ASSERT_EQ(dentist.verticalScrollBar()->value(), 3);
    clock.set(utcDate(2024, 3, 15, 23)); // midnight in Berlin
    app->minuteHasChanged();
    EXPECT_EQ(redDays(), QStringLiteral("16"));
    clock.set(utcDate(2024, 3, 16, 23)); // the week that was opened stays
    app->minuteHasChanged();
    EXPECT_EQ(redDays(), QString());
    EXPECT_EQ(firstDay(), QStringLiteral("March 10, 2024"));
    EXPECT_TRUE(dentist.hasFocus());
    EXPECT_EQ(dentist.textCursor().selectedText(), QStringLiteral("D"));
    EXPECT_EQ(dentist.verticalScrollBar()->value(), 3);
    ui->weeklyViewForwardWeek->click();
    EXPECT_EQ(redDays(), QStringLiteral("17"));
}

TEST_F(WeeklyViewTest, AClockThatJumpsMovesTheRedMark)
{
    setWeekStart(1);
    startOpen();
    clock.set(utcDate(2024, 3, 13, 9));
    host.clockMonitor.jump();
    EXPECT_EQ(redDays(), QStringLiteral("13"));
    EXPECT_EQ(firstDay(), QStringLiteral("March 10, 2024"));
}

TEST_F(WeeklyViewTest, BeginsOnMondayWhenThePreferencesSaySo)
{
    setWeekStart(0);
    startOpen();
    EXPECT_EQ(firstDay(), QStringLiteral("March 11, 2024"));
    EXPECT_EQ(days(), QStringLiteral("11 12 13 14 15 16 17"));
    EXPECT_EQ(redDays(), QStringLiteral("15"));
    EXPECT_EQ(names(), QStringLiteral("Mon Tue Wed Thu Fri Sat Sun"));
}

TEST_F(WeeklyViewTest, ASundayUnderMondayFirstIsShownTheWeekThatBeginsTheDayAfter)
{
    setWeekStart(0);
    clock.set(utcDate(2024, 3, 17, 11));
    startOpen();
    EXPECT_EQ(firstDay(), QStringLiteral("March 18, 2024"));
    EXPECT_EQ(redDays(), QString());
}

TEST_F(WeeklyViewTest, OpensOnTheWeekOfTheFirstWhenTheMiniCalendarShowsAnotherMonth)
{
    setWeekStart(1);
    start();
    ui->forwardOneYearOnMiniCal->click(); // March 2025 begins on a Saturday
    open();
    EXPECT_EQ(firstDay(), QStringLiteral("February 23, 2025"));
    EXPECT_EQ(days(), QStringLiteral("23 24 25 26 27 28 1"));
    EXPECT_EQ(redDays(), QString());
}

TEST_F(WeeklyViewTest, OpensOnTodayWhenTheMiniCalendarNamesNoMonth)
{
    setWeekStart(1);
    for (const QString& name : {QString(), QStringLiteral("Brumaire")}) {
        start();
        ui->miniCalMonthName->setText(name);
        open();
        EXPECT_EQ(firstDay(), QStringLiteral("March 10, 2024")) << name.toStdString();
    }
}

TEST_F(WeeklyViewTest, OpensAnewOnEachEntry)
{
    setWeekStart(1);
    startOpen();
    ui->weeklyViewForwardWeek->click();
    ui->miniCalendarPageAction->trigger();
    open();
    EXPECT_EQ(firstDay(), QStringLiteral("March 10, 2024"));
}

TEST_F(WeeklyViewTest, TheArrowsMoveBySevenDays)
{
    setWeekStart(1);
    startOpen();
    ui->weeklyViewForwardWeek->click();
    EXPECT_EQ(firstDay(), QStringLiteral("March 17, 2024"));
    ui->weeklyViewBackWeek->click();
    ui->weeklyViewBackWeek->click();
    EXPECT_EQ(firstDay(), QStringLiteral("March 3, 2024"));
    EXPECT_EQ(days(), QStringLiteral("3 4 5 6 7 8 9"));
    EXPECT_EQ(redDays(), QString());
}

TEST_F(WeeklyViewTest, TheArrowsGoByTheLabelAlone)
{
    setWeekStart(1);
    startOpen();
    ui->weeklyViewStartingDate->setText(QStringLiteral("June 4, 1911")); // a Sunday
    ui->weeklyViewForwardWeek->click();
    EXPECT_EQ(firstDay(), QStringLiteral("June 11, 1911"));
    ui->weeklyViewStartingDate->setText(QStringLiteral("6/4/11")); // the short style reads two digits near today
    ui->weeklyViewForwardWeek->click();
    EXPECT_EQ(firstDay(), QStringLiteral("June 5, 2011")); // from a Saturday: the week of Saturday, 11 June
}

TEST_F(WeeklyViewTest, AWeekThatTheLabelDoesNotNameStaysAsItIs)
{
    setWeekStart(1);
    startOpen();
    for (const QString& text : {QString(), QStringLiteral("some week"), QStringLiteral("March 41, 2024")}) {
        ui->weeklyViewStartingDate->setText(text);
        ui->weeklyViewForwardWeek->click();
        ui->weeklyViewBackWeek->click();
        EXPECT_EQ(firstDay(), text);
        EXPECT_EQ(days(), QStringLiteral("10 11 12 13 14 15 16"));
    }
}

TEST_F(WeeklyViewTest, AWeekAcrossTheYearsEndShowsTheNotesOfBothYears)
{
    setWeekStart(1);
    putNotes({note(2024, 12, 31, "Fireworks"), note(2025, 1, 1, "Sleep"), note(2025, 12, 31, "another year's")});
    start();
    open();
    ui->weeklyViewStartingDate->setText(QStringLiteral("December 22, 2024"));
    ui->weeklyViewForwardWeek->click();
    EXPECT_EQ(days(), QStringLiteral("29 30 31 1 2 3 4"));
    EXPECT_EQ(notes(), QStringLiteral("||Fireworks|Sleep|||"));
}

TEST_F(WeeklyViewTest, ShowsTheNotesThatTheListHoldsAndNoOthers)
{
    setWeekStart(1);
    putNotes({note(2024, 3, 12, "Dentist"), note(2024, 3, 12, "of the same day"), note(2024, 3, 16, "Choir")});
    start();
    ui->hideShowSegBtn->press(0);
    open();
    EXPECT_EQ(notes(), QStringLiteral("||Dentist||||Choir"));
    ui->filterField->setText(QStringLiteral("choir"));
    ui->filterBtn->click();
    EXPECT_EQ(notes(), QStringLiteral("||Dentist||||Choir")) << "drawn on entry and by the arrows only";
    ui->weeklyViewForwardWeek->click();
    ui->weeklyViewBackWeek->click();
    EXPECT_EQ(notes(), QStringLiteral("||||||Choir"));
    app->notesTVData = std::nullopt; // the file could not be read
    ui->weeklyViewForwardWeek->click();
    ui->weeklyViewBackWeek->click();
    EXPECT_EQ(notes(), QStringLiteral("||||||"));
}

TEST_F(WeeklyViewTest, ShowsTheNoteThatWasBeingTypedWhenThePageWasLeft)
{
    setWeekStart(1);
    putNotes({note(2024, 3, 12, "Dent")});
    start();
    window->activateWindow();
    ui->notesTableView->editColumn(1, 0);
    QTest::keyClicks(window->focusWidget(), QStringLiteral("ist"));
    open();
    EXPECT_TRUE(notes().contains(QStringLiteral("ist"))) << notes().toStdString();
}

TEST_F(WeeklyViewTest, HeadersAreReadOnlyPlaceholders)
{
    startOpen();
    for (int tag = 40; tag <= 58; tag += 3) {
        const auto& header = cell<QLineEdit>(tag);
        EXPECT_TRUE(header.isReadOnly());
        EXPECT_FALSE(header.hasFrame());
        EXPECT_TRUE(header.text().isEmpty());
    }
}

TEST_F(WeeklyViewTest, HeadersSpeakTheFirstPreferredLanguageAndTheLabelTheCurrentLocale)
{
    const LocaleGuard german("en_GB", {"de-DE", "en"});
    setWeekStart(0);
    startOpen();
    EXPECT_EQ(names(), QStringLiteral("Mo Di Mi Do Fr Sa So"));
    EXPECT_EQ(firstDay(), QStringLiteral("11 March 2024"));
    EXPECT_EQ(cell<QLineEdit>(40).accessibleName(), QStringLiteral("Montag"));
}

TEST_F(WeeklyViewTest, EachDaySpeaksItsFullDate)
{
    setWeekStart(1);
    putNotes({note(2024, 3, 12, "Dentist")});
    startOpen();
    EXPECT_EQ(cell<NoteField>(48).accessibleName(), QStringLiteral("Tuesday, March 12, 2024"));
}

TEST_F(WeeklyViewTest, FollowsTheWeekStartWhenThePreferenceChanges)
{
    setWeekStart(1);
    startOpen();
    ui->preferencesAction->trigger();
    window->findChild<QRadioButton*>(QStringLiteral("mondayPref"))->click();
    EXPECT_EQ(firstDay(), QStringLiteral("March 11, 2024"));
    EXPECT_TRUE(names().startsWith(QStringLiteral("Mon")));
}

TEST_F(WeeklyViewTest, KeysStepByAWeekFromAnyPage)
{
    setWeekStart(1);
    start();
    ui->nextWeekAction->trigger();
    EXPECT_EQ(ui->myTabView->currentIndex(), 1);
    EXPECT_EQ(firstDay(), QStringLiteral("March 17, 2024"));
    ui->previousWeekAction->trigger();
    EXPECT_EQ(firstDay(), QStringLiteral("March 10, 2024"));
}

TEST_F(WeeklyViewTest, TwoHundredWeeksForwardAndBackEndWhereTheyBeganInEveryLocale)
{
    for (const char* locale : {"en_US", "en_GB", "de_DE", "fr_FR", "sv_SE", "pt_BR", "ru_RU", "ar_EG", "fa_IR", "th_TH",
                               "ja_JP", "zh_CN", "ko_KR", "he_IL", "hi_IN", "tr_TR"}) {
        const LocaleGuard current(locale, {"en-US"});
        for (const int weekStart : {0, 1}) {
            SCOPED_TRACE(std::string(locale) + (weekStart ? ", Sunday first" : ", Monday first"));
            setWeekStart(weekStart);
            startOpen();
            const QString label = firstDay();
            const QString shown = days();
            for (int step = 0; step < 200; ++step) {
                ui->weeklyViewForwardWeek->click();
            }
            EXPECT_NE(firstDay(), label);
            for (int step = 0; step < 200; ++step) {
                ui->weeklyViewBackWeek->click();
            }
            EXPECT_EQ(firstDay(), label);
            EXPECT_EQ(days(), shown);
        }
    }
}

} // namespace
