// SPDX-License-Identifier: MIT
// What a screen reader is told, at the interface by which it is told.
#include "calendar/DayNumber.h"
#include "calendar/MiniCalendarGrid.h"
#include "calendar/MonthlyGrid.h"
#include "calendar/NoteField.h"
#include "calendar/WeeklyGrid.h"
#include "support/AppFixture.h"
#include "support/HeardEvents.h"

#include <QTest>
#include <gmock/gmock.h>

namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

constexpr int weekPage = 1;
constexpr int monthPage = 2;

QAccessibleInterface& spoken(QObject& object)
{
    return *QAccessible::queryAccessibleInterface(&object);
}

QString nameOf(QObject& object)
{
    return spoken(object).text(QAccessible::Name);
}

/// The names of all that stands in it for a screen reader; the text of what has no name.
QStringList childrenOf(QObject& object)
{
    QStringList names;
    const QAccessibleInterface& parent = spoken(object);
    for (int index = 0; index < parent.childCount(); ++index) {
        const QAccessibleInterface* child = parent.child(index);
        EXPECT_EQ(parent.indexOfChild(child), index);
        names.append(child->text(QAccessible::Name));
    }
    return names;
}

/// The clock of the fixture stands at Friday, 15 March 2024.
class ScreenReaderTest : public AppFixture {
protected:
    void startWithNotes()
    {
        putNotes({note(2024, 3, 5, "Dentist"), note(2024, 3, 15, "Choir\nat seven"), note(2024, 4, 2, "Choir")});
        putEvents({event(1965, 12, 24, "Grandma born")});
        start();
    }

    QStringList announcedAfter(const std::function<void()>& action)
    {
        const HeardEvents heard;
        action();
        runQueued();
        return heard.announcements();
    }

    QStringList announcedAfterClick(QAbstractButton* button)
    {
        return announcedAfter([button] { button->click(); });
    }

    QAccessibleInterface& cell(TableView& table, int row, int column)
    {
        return *spoken(table).tableInterface()->cellAt(row, column);
    }

    QString nameOfEditor(TableView& table, int column, int row)
    {
        table.editColumn(column, row);
        QWidget* const editor = table.viewAt(column, row);
        EXPECT_NE(editor, nullptr);
        const QString name = editor ? nameOf(*editor) : QString();
        table.endEditing();
        return name;
    }
};

// Announcements

TEST_F(ScreenReaderTest, TheMonthThatTheMiniCalendarIsSteppedToIsAnnounced)
{
    startWithNotes();
    EXPECT_EQ(announcedAfterClick(ui->forwardOneMonthOnMiniCal), QStringList{QStringLiteral("April 2024")});
    EXPECT_EQ(announcedAfterClick(ui->backOneMonthOnMiniCal), QStringList{QStringLiteral("March 2024")});
    EXPECT_EQ(announcedAfterClick(ui->forwardOneYearOnMiniCal), QStringList{QStringLiteral("March 2025")});
    EXPECT_EQ(announcedAfterClick(ui->backOneYearOnMiniCal), QStringList{QStringLiteral("March 2024")});
    dayButton(15).setFocus();
    EXPECT_EQ(announcedAfter([this] { QTest::keyClick(&dayButton(15), Qt::Key_PageDown); }),
              QStringList{QStringLiteral("April 2024")});
    EXPECT_EQ(announcedAfterClick(ui->todayBtn), QStringList{QStringLiteral("March 2024")});
}

TEST_F(ScreenReaderTest, TheNumberOfNotesFoundIsAnnounced)
{
    startWithNotes();
    ui->filterField->setText(QStringLiteral("choir"));
    EXPECT_EQ(announcedAfterClick(ui->filterBtn), QStringList{QStringLiteral("Notes found: 2")});
}

TEST_F(ScreenReaderTest, WhatTheListShowsNowIsAnnounced)
{
    startWithNotes();
    const auto press = [this](int segment) {
        return announcedAfter([this, segment] { ui->hideShowSegBtn->press(segment); });
    };
    EXPECT_EQ(press(3), QStringList{QStringLiteral("2024 Notes. Notes in the list: 3")});
    EXPECT_EQ(press(0), QStringList{QStringLiteral("March Notes. Notes in the list: 2")});
    EXPECT_EQ(press(1), QStringList{QStringLiteral("Show All. Notes in the list: 3")});
    EXPECT_EQ(press(1), QStringList{QStringLiteral("Hide All. Notes in the list: 0")});
    EXPECT_EQ(announcedAfterClick(ui->noteEntryNextNotesBtn),
              QStringList{QStringLiteral("Apr 2024. Notes in the list: 1")});
}

TEST_F(ScreenReaderTest, APageSaysItsWeekOrMonthWhenItOpensAndAtEachStep)
{
    startWithNotes();
    const auto open = [this](int page) {
        return announcedAfter([this, page] { ui->myTabView->setCurrentIndex(page); });
    };
    EXPECT_EQ(open(weekPage), QStringList{QStringLiteral("For week beginning: March 10, 2024")});
    EXPECT_EQ(announcedAfterClick(ui->weeklyViewForwardWeek),
              QStringList{QStringLiteral("For week beginning: March 17, 2024")});
    EXPECT_EQ(open(monthPage), QStringList{QStringLiteral("March 2024")});
    EXPECT_EQ(announcedAfterClick(ui->monthlyViewBackBtn), QStringList{QStringLiteral("February 2024")});
}

// Names

TEST_F(ScreenReaderTest, TheWindowHasItsNameThoughItsTitleIsEmpty)
{
    startWithNotes();
    for (const int page : {weekPage, monthPage, 0}) {
        ui->myTabView->setCurrentIndex(page);
        EXPECT_EQ(window->windowTitle(), QString());
        EXPECT_EQ(nameOf(*window), QStringLiteral("Velumora"));
    }
}

TEST_F(ScreenReaderTest, TodayIsSaidToBeTodayOnEveryPage)
{
    startWithNotes();
    EXPECT_EQ(nameOf(dayButton(15)), QStringLiteral("Friday, March 15, 2024, today, has a note"));
    EXPECT_EQ(nameOf(dayButton(14)), QStringLiteral("Thursday, March 14, 2024"));
    EXPECT_EQ(cell(*ui->notesTableView, 1, 0).text(QAccessible::Name),
              QStringLiteral("Date: Fri, Mar 15, 2024, today"));
    EXPECT_EQ(cell(*ui->notesTableView, 0, 0).text(QAccessible::Name), QStringLiteral("Date: Tue, Mar 5, 2024"));
    EXPECT_EQ(cell(*ui->notesTableView, 1, 0).text(QAccessible::Value), QStringLiteral("Fri, Mar 15, 2024"));

    ui->myTabView->setCurrentIndex(weekPage);
    EXPECT_TRUE(childrenOf(*ui->weeklyGrid).contains(QStringLiteral("15, today")));
    EXPECT_TRUE(childrenOf(*ui->weeklyGrid).contains(QStringLiteral("Friday, March 15, 2024, today")));
    EXPECT_TRUE(childrenOf(*ui->weeklyGrid).contains(QStringLiteral("14")));

    ui->myTabView->setCurrentIndex(monthPage);
    EXPECT_EQ(nameOf(ui->monthlyGrid->dayNumber(20)), QStringLiteral("15, today"));
    EXPECT_EQ(nameOf(ui->monthlyGrid->noteField(20)), QStringLiteral("Friday, March 15, 2024, today"));
    EXPECT_EQ(nameOf(ui->monthlyGrid->dayNumber(19)), QStringLiteral("14"));

    clock.set(utcDate(2024, 3, 16, 8, 30));
    app->minuteHasChanged();
    EXPECT_EQ(nameOf(dayButton(15)), QStringLiteral("Friday, March 15, 2024, has a note"));
    EXPECT_EQ(nameOf(dayButton(16)), QStringLiteral("Saturday, March 16, 2024, today"));
}

TEST_F(ScreenReaderTest, ADayThatGetsItsNoteIsStillToday)
{
    start();
    dayButton(15).click();
    EXPECT_EQ(nameOf(dayButton(15)), QStringLiteral("Friday, March 15, 2024, today, has a note"));
}

TEST_F(ScreenReaderTest, AnEditorSaysWhatItEdits)
{
    startWithNotes();
    EXPECT_EQ(nameOfEditor(*ui->notesTableView, textColumn, 0), QStringLiteral("Note of Tuesday, March 5, 2024"));
    EXPECT_EQ(nameOfEditor(*ui->notesTableView, textColumn, 1),
              QStringLiteral("Note of Friday, March 15, 2024, today"));
    TableView& dates = *ui->importantDatesTableView;
    EXPECT_EQ(nameOfEditor(dates, textColumn, 0), QStringLiteral("Description of Friday, December 24, 1965"));
    EXPECT_EQ(nameOfEditor(dates, 0, 0), QStringLiteral("Date of Grandma born"));
    app->addRowToImportDates();
    EXPECT_EQ(nameOfEditor(dates, 0, 1), QStringLiteral("Date")) << "it has no description yet";
}

// Blank cells

TEST_F(ScreenReaderTest, TheMiniCalendarHasNoBlankDays)
{
    startWithNotes();
    QStringList children = childrenOf(*ui->miniCalendarGrid);
    ASSERT_EQ(children.size(), 7 + 31);
    EXPECT_EQ(children.first(), QStringLiteral("Sunday"));
    EXPECT_EQ(children.at(7), QStringLiteral("Friday, March 1, 2024"));
    EXPECT_EQ(children.last(), QStringLiteral("Sunday, March 31, 2024"));
    ui->backOneMonthOnMiniCal->click();
    children = childrenOf(*ui->miniCalendarGrid);
    ASSERT_EQ(children.size(), 7 + 29);
    EXPECT_EQ(children.last(), QStringLiteral("Thursday, February 29, 2024"));
    EXPECT_EQ(spoken(*ui->miniCalendarGrid).child(7 + 29), nullptr);
}

TEST_F(ScreenReaderTest, TheMonthPageHasNoBlankDays)
{
    startWithNotes();
    ui->myTabView->setCurrentIndex(monthPage);
    QStringList children = childrenOf(*ui->monthlyGrid);
    ASSERT_EQ(children.size(), 7 + 2 * 31);
    EXPECT_EQ(children.at(7), QStringLiteral("1"));
    EXPECT_EQ(children.last(), QStringLiteral("Sunday, March 31, 2024"));
    ui->monthlyViewBackBtn->click();
    EXPECT_EQ(childrenOf(*ui->monthlyGrid).size(), 7 + 2 * 29);
}

// Silence

TEST_F(ScreenReaderTest, AMinuteTellsOfTheTimeAndOfNothingElse)
{
    startWithNotes();
    const HeardEvents heard;
    app->minuteHasChanged();
    runQueued();
    EXPECT_THAT(heard.all(), IsEmpty());
    clock.advance(std::chrono::minutes(1));
    app->minuteHasChanged();
    runQueued();
    for (const HeardEvents::Heard& each : heard.all()) {
        EXPECT_EQ(each.object, ui->miniCalTime) << each.name.toStdString();
    }
    EXPECT_EQ(heard.all().size(), 1);
}

TEST_F(ScreenReaderTest, OnTheWayToAnotherWeekOnlyThatOneIsAnnounced)
{
    startWithNotes();
    const HeardEvents heard;
    ui->nextWeekAction->trigger(); // on the first page
    runQueued();
    EXPECT_EQ(heard.announcements(), QStringList{QStringLiteral("For week beginning: March 17, 2024")});
}

TEST_F(ScreenReaderTest, ThePagesDrawnAgainTellNothing)
{
    startWithNotes();
    for (const int page : {weekPage, monthPage, 0}) {
        ui->myTabView->setCurrentIndex(page);
        runQueued();
        const HeardEvents heard;
        app->didSelectTabViewItem(*ui->myTabView->currentWidget());
        EXPECT_THAT(heard.ofType(QAccessible::NameChanged), IsEmpty()) << page;
        EXPECT_THAT(heard.ofType(QAccessible::DescriptionChanged), IsEmpty()) << page;
    }
}

} // namespace
