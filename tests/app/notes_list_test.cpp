// SPDX-License-Identifier: MIT
#include "app/PreferenceKeys.h"
#include "look/NamedColor.h"
#include "support/AppFixture.h"
#include "table/TableRowView.h"
#include "widgets/SearchField.h"

#include <QAccessible>
#include <QImage>
#include <QTest>

#include <cstdlib>
#include <fstream>

namespace {

constexpr int dateColumn = 0;
constexpr int noteColumn = 1;
constexpr int elapsedColumn = 2;

QString text(const char* utf8)
{
    return QString::fromUtf8(utf8);
}

/// The clock of the fixture stands at 15 March 2024, 09:30. The list starts with all notes, unless a test says
/// otherwise.
class NotesListTest : public AppFixture {
protected:
    QString segment(int index) { return ui->hideShowSegBtn->labelForSegment(index); }
    void press(int index) { ui->hideShowSegBtn->press(index); }

    /// The texts of the notes shown, in their order.
    QStringList shownTexts()
    {
        QStringList texts;
        for (const QString& row : shownRows()) {
            texts.append(row.section(text(" | "), 1));
        }
        return texts;
    }

    QString pagingLabels() { return ui->prevMonthYearDesc->text() + text(" / ") + ui->nextMonthYearDesc->text(); }

    void filter(const QString& search)
    {
        ui->filterField->setText(search);
        app->filterNotes();
    }

    /// Out of order, as a file can be: two notes of March, one of February, one of another year.
    void startWithFourNotes()
    {
        putNotes({note(2024, 3, 20, "march late"), note(2023, 7, 1, "other year"), note(2024, 3, 5, "march early"),
                  note(2024, 2, 29, "february")});
        start();
    }
};

// Segments

TEST_F(NotesListTest, TheSegmentsAreNamedAfterWhatTheyShow)
{
    startWithFourNotes();
    EXPECT_EQ(ui->hideShowSegBtn->labels(),
              QStringList({text("March Notes"), text("Hide All"), text("Mini Calendar's Month"), text("2024 Notes")}));
}

TEST_F(NotesListTest, TheSegmentsOfTodayFollowTheMonthAndTheYear)
{
    clock.set(utcDate(2024, 12, 31, 22, 59));
    start();
    ASSERT_EQ(segment(0), text("December Notes"));
    const QString all = segment(1);
    clock.set(utcDate(2024, 12, 31, 23)); // midnight in Berlin
    app->minuteHasChanged();
    EXPECT_EQ(segment(0), text("January Notes"));
    EXPECT_EQ(segment(3), text("2025 Notes"));
    EXPECT_EQ(segment(1), all);
    clock.set(utcDate(2024, 11, 3, 9));
    host.clockMonitor.jump();
    EXPECT_EQ(segment(0), text("November Notes"));
    EXPECT_EQ(segment(3), text("2024 Notes"));
}

TEST_F(NotesListTest, TheFirstSegmentShowsThisMonthByDate)
{
    startWithFourNotes();
    ui->noteEntryNextNotesBtn->click();
    press(0);
    EXPECT_EQ(shownTexts(), QStringList({text("march early"), text("march late")}));
    EXPECT_EQ(countLine(), text("Displaying 2 notes"));
    EXPECT_EQ(segment(1), text("Show All"));
    EXPECT_EQ(pagingLabels(), text("Feb 2024 / Apr 2024"));
}

TEST_F(NotesListTest, TheSecondSegmentHidesAndShowsAllInFileOrder)
{
    startWithFourNotes();
    ui->noteEntryPrevNotesBtn->click();
    ASSERT_EQ(segment(1), text("Show All"));
    press(1);
    EXPECT_EQ(shownTexts(),
              QStringList({text("march late"), text("other year"), text("march early"), text("february")}));
    EXPECT_EQ(segment(1), text("Hide All"));
    EXPECT_EQ(countLine(), text("Displaying 4 notes"));
    EXPECT_EQ(pagingLabels(), text("Feb 2024 / Apr 2024"));

    press(1);
    EXPECT_EQ(shownTexts(), QStringList());
    EXPECT_EQ(segment(1), text("Show All"));
    EXPECT_EQ(countLine(), text("Displaying 4 notes")) << "hiding leaves the count line";
    EXPECT_EQ(app->allNotesTVData->size(), 4);
}

TEST_F(NotesListTest, TheThirdSegmentShowsTheMonthOfTheMiniCalendar)
{
    startWithFourNotes();
    ui->backOneMonthOnMiniCal->click();
    press(2);
    EXPECT_EQ(shownTexts(), QStringList{text("february")});
    EXPECT_EQ(countLine(), text("Displaying 1 notes")) << "the plural word stands for one note too";
    EXPECT_EQ(segment(1), text("Show All"));
    EXPECT_EQ(pagingLabels(), text("Jan 2024 / Mar 2024"));
}

TEST_F(NotesListTest, TheFourthSegmentShowsThisYearInFileOrder)
{
    startWithFourNotes();
    press(3);
    EXPECT_EQ(shownTexts(), QStringList({text("march late"), text("march early"), text("february")}));
    EXPECT_EQ(countLine(), text("Displaying 3 notes"));
    EXPECT_EQ(segment(1), text("Show All"));
    EXPECT_EQ(pagingLabels(), text("Dec 2023 / Feb 2024"));
}

TEST_F(NotesListTest, AfterAnySegmentNoRowIsSelected)
{
    startWithFourNotes();
    for (const int index : {0, 2, 3, 1}) {
        press(0);
        ui->notesTableView->chooseRow(0);
        ASSERT_TRUE(ui->deleteRowFromListBtn->isEnabled());
        press(index);
        EXPECT_EQ(ui->notesTableView->selectedRow(), -1) << index;
        EXPECT_FALSE(ui->deleteRowFromListBtn->isEnabled()) << index;
    }
}

TEST_F(NotesListTest, AnEmptyMonthAndAnEmptyYearLeaveTheCountLine)
{
    putNotes({note(2023, 7, 1, "other year")});
    start();
    for (const int index : {0, 2, 3}) {
        press(index);
        EXPECT_EQ(shownTexts(), QStringList());
        EXPECT_EQ(countLine(), text("Displaying 1 notes"));
    }
}

TEST_F(NotesListTest, AMonthHoldsTheNotesOfItsFirstAndItsLastDay)
{
    putNotes(
        {note(2024, 4, 1, "after"), note(2024, 3, 31, "last"), note(2024, 3, 1, "first"), note(2024, 2, 29, "before")});
    start();
    press(0);
    EXPECT_EQ(shownTexts(), QStringList({text("first"), text("last")}));
}

TEST_F(NotesListTest, AYearHoldsTheNotesOfItsFirstAndItsLastDay)
{
    putNotes({note(2025, 1, 1, "after"), note(2024, 12, 31, "last"), note(2024, 1, 1, "first"),
              note(2023, 12, 31, "before")});
    start();
    press(3);
    EXPECT_EQ(shownTexts(), QStringList({text("last"), text("first")}));
}

TEST_F(NotesListTest, TheCommandsOfTheMenuKeepWhatIsBeingTyped)
{
    for (const char* action : {"currentMonthNotesAction", "allNotesAction", "shownMonthNotesAction",
                               "currentYearNotesAction", "previousNotesAction"}) {
        putNotes({note(2024, 3, 5, "early"), note(2024, 3, 20, "late")});
        start();
        ui->notesTableView->editColumn(noteColumn, 0);
        QTest::keyClicks(ui->notesTableView->viewAt(noteColumn, 0), text(" bird"));
        window->findChild<QAction*>(text(action))->trigger();
        EXPECT_EQ(notesOnDisk(), Table({note(2024, 3, 5, "early bird"), note(2024, 3, 20, "late")})) << action;
        EXPECT_EQ(ui->notesTableView->editedRow(), -1) << action;
    }
}

// Filter

TEST_F(NotesListTest, TheFilterShowsFreshCopiesInFileOrder)
{
    Table notes = {note(2024, 3, 20, "an abc"), note(2024, 3, 7, "nothing"), note(2024, 3, 5, "ABC first")};
    Dictionary foreign = *notes.at(0).dictionary();
    foreign.set("Colour", Value("blue"));
    notes[0] = Value(foreign);
    host.userDefaults.stored.insert(PreferenceKeys::notesCleaned, 1);
    putNotes(notes);
    start();
    filter(text("aBc"));
    EXPECT_EQ(app->notesTVData, Table({note(2024, 3, 20, "an abc"), note(2024, 3, 5, "ABC first")}));
    EXPECT_EQ(app->allNotesTVData, notes);
    EXPECT_EQ(segment(1), text("Show All"));
    EXPECT_EQ(countLine(), text("Displaying 3 notes")) << "the filter leaves the count line";
}

TEST_F(NotesListTest, AFilterThatFindsNothingChangesNothing)
{
    startWithFourNotes();
    for (const char* search : {"", "no such text", "2024", "Mar"}) {
        press(3);
        press(1);
        filter(text(search));
        const bool finds = text("march").contains(text(search), Qt::CaseInsensitive) && *search != '\0';
        EXPECT_EQ(shownTexts().size(), finds ? 2 : 4) << search;
        EXPECT_EQ(segment(1), finds ? text("Show All") : text("Hide All")) << search;
        EXPECT_FALSE(alert());
    }
}

TEST_F(NotesListTest, TheFilterLooksAtAllNotesNotAtThoseShown)
{
    startWithFourNotes();
    press(0);
    filter(text("february"));
    EXPECT_EQ(shownTexts(), QStringList{text("february")});
}

TEST_F(NotesListTest, ReturnInTheSearchFieldFilters)
{
    startWithFourNotes();
    QTest::keyClicks(ui->filterField, text("early"));
    QTest::keyClick(ui->filterField, Qt::Key_Return);
    EXPECT_EQ(shownTexts(), QStringList{text("march early")});
}

TEST_F(NotesListTest, ASearchThatFindsNothingMarksItsFieldUntilTheTextChanges)
{
    startWithFourNotes();
    SearchField& field = *ui->filterField;
    const auto picture = [&field] { return field.grab().toImage(); };
    const auto description = [&field] {
        return QAccessible::queryAccessibleInterface(&field)->text(QAccessible::Description);
    };
    const auto searchFor = [&](const char* needle) {
        field.setText(text(needle));
        ui->filterBtn->click();
    };
    field.setFocus();
    field.setText(text("no such text"));
    const QImage unmarked = picture();
    ui->filterBtn->setFocus();
    const QString plainDescription = description();
    ui->filterBtn->click();
    EXPECT_EQ(description(), text("No note contains “no such text”"));
    EXPECT_EQ(window->focusWidget(), &field) << "where the next search begins, and a screen reader hears it";
    EXPECT_FALSE(alert());

    // A sign in the end of the field that is there without its colours too.
    const QImage marked = picture().convertToFormat(QImage::Format_Grayscale8);
    const QImage plain = unmarked.convertToFormat(QImage::Format_Grayscale8);
    int differing = 0;
    for (int y = 6; y < marked.height() - 6; ++y) {
        for (int x = marked.width() - 32; x < marked.width() - 6; ++x) {
            differing += std::abs(qGray(marked.pixel(x, y)) - qGray(plain.pixel(x, y))) > 60 ? 1 : 0;
        }
    }
    EXPECT_GT(differing, 60);

    QTest::keyClick(&field, Qt::Key_Backspace);
    EXPECT_EQ(description(), plainDescription);
    field.setText(text("no such text"));
    EXPECT_EQ(picture(), unmarked) << "the mark is gone";

    searchFor("nowhere");
    ASSERT_TRUE(field.foundNothing());
    app->allNotesTVData->append(note(2024, 3, 9, "nowhere"));
    ui->filterBtn->click();
    EXPECT_FALSE(field.foundNothing()) << "the same text is found now";
    field.clear();
    app->filterNotes();
    EXPECT_FALSE(field.foundNothing()) << "nothing was searched for";
}

TEST_F(NotesListTest, EscapeEmptiesTheSearchField)
{
    startWithFourNotes();
    QTest::keyClicks(ui->filterField, text("early"));
    QTest::keyClick(ui->filterField, Qt::Key_Return);
    QTest::keyClick(ui->filterField, Qt::Key_Escape);
    EXPECT_EQ(ui->filterField->text(), QString());
    EXPECT_FALSE(ui->filterBtn->isEnabled());
    EXPECT_EQ(shownTexts(), QStringList{text("march early")}) << "the list stays";
    ui->filterField->undo();
    EXPECT_EQ(ui->filterField->text(), text("early"));
}

// The start

TEST_F(NotesListTest, TheNoteNearestToTodayIsInViewAtTheStart)
{
    struct Row {
        int firstOffset; ///< days from today of the first note; one each day
        int nearest;     ///< its row
    };
    constexpr int count = 200;
    for (const Row& row : {Row{-100, 100}, Row{-300, count - 1}, Row{5, 0}, Row{-150, 150}}) {
        Table notes;
        for (int i = 0; i < count; ++i) {
            notes.append(note(2024, 3, 15 + row.firstOffset + i, "a\nb"));
        }
        putNotes(notes);
        start();
        const TableView& table = *ui->notesTableView;
        EXPECT_TRUE(table.viewport()->rect().contains(table.rectOfRow(row.nearest))) << row.firstOffset;
        EXPECT_EQ(table.selectedRow(), -1);
        quit();
    }
}

// Paging

TEST_F(NotesListTest, PagingGoesMonthByMonthAcrossTheYear)
{
    clock.set(utcDate(2024, 1, 15, 12));
    putNotes({note(2023, 12, 24, "december"), note(2024, 1, 2, "january")});
    start();
    ui->noteEntryPrevNotesBtn->click();
    EXPECT_EQ(shownTexts(), QStringList{text("december")});
    EXPECT_EQ(pagingLabels(), text("Nov 2023 / Jan 2024"));
    EXPECT_EQ(segment(1), text("Show All"));
    EXPECT_EQ(countLine(), text("Displaying 1 notes"));
    ui->noteEntryNextNotesBtn->click();
    EXPECT_EQ(shownTexts(), QStringList{text("january")});
    EXPECT_EQ(pagingLabels(), text("Dec 2023 / Feb 2024"));
    ui->noteEntryNextNotesBtn->click();
    EXPECT_EQ(shownTexts(), QStringList());
}

TEST_F(NotesListTest, PagingFollowsTheMonthThatTheMiniCalendarGave)
{
    startWithFourNotes();
    ui->backOneYearOnMiniCal->click();
    press(2);
    ui->noteEntryNextNotesBtn->click();
    EXPECT_EQ(pagingLabels(), text("Mar 2023 / May 2023"));
    app->resetPagingBtns();
    EXPECT_EQ(pagingLabels(), text("Feb 2024 / Apr 2024"));
}

TEST_F(NotesListTest, PagingGoesOnByMonthsInAnotherTimeZone)
{
    clock.set(utcDate(2024, 3, 1, 8, 30)); // today's midnight in Berlin is still February in New York
    start();
    press(0);
    const TimeZoneGuard newYork("America/New_York");
    host.clockMonitor.jump();
    ui->noteEntryNextNotesBtn->click();
    EXPECT_EQ(pagingLabels(), text("Mar 2024 / May 2024"));
    clock.set(utcDate(2024, 4, 1, 3, 30)); // the evening of 31 March in New York, 1 April in Tokyo
    app->resetPagingBtns();
    const TimeZoneGuard tokyo("Asia/Tokyo");
    host.clockMonitor.jump();
    ui->noteEntryPrevNotesBtn->click();
    EXPECT_EQ(pagingLabels(), text("Jan 2024 / Mar 2024"));
}

// Columns, rows and heights

TEST_F(NotesListTest, TheHeadersSortByDateAndByText)
{
    startWithFourNotes();
    TableView& table = *ui->notesTableView;
    ui->countOfNotesInTV->setText(text("stale"));
    table.sortByColumn(dateColumn);
    EXPECT_EQ(shownTexts(),
              QStringList({text("other year"), text("february"), text("march early"), text("march late")}));
    EXPECT_EQ(countLine(), text("Displaying 4 notes"));
    table.sortByColumn(dateColumn);
    EXPECT_EQ(shownTexts().first(), text("march late"));
    table.sortByColumn(noteColumn);
    EXPECT_EQ(shownTexts(),
              QStringList({text("february"), text("march early"), text("march late"), text("other year")}));
    EXPECT_EQ(app->allNotesTVData->at(0), note(2024, 3, 20, "march late")) << "the file keeps its order";
}

TEST_F(NotesListTest, TheHeadersOfTheImportantDatesSortThem)
{
    putEvents({event(2024, 5, 1, "b"), event(2023, 5, 1, "a")});
    start();
    TableView& table = *ui->importantDatesTableView;
    const QString count = countLine();
    table.sortByColumn(dateColumn);
    EXPECT_EQ(app->eventsTVData, Table({event(2023, 5, 1, "a"), event(2024, 5, 1, "b")}));
    table.sortByColumn(dateColumn);
    EXPECT_EQ(app->eventsTVData, Table({event(2024, 5, 1, "b"), event(2023, 5, 1, "a")}));
    EXPECT_EQ(table.cellView(noteColumn, 0).text, text("b"));
    EXPECT_EQ(countLine(), count);
}

struct HeightRow {
    const char* text;
    int pieces;
};

TEST_F(NotesListTest, ARowIsAsHighAsItsTextHasLines)
{
    for (const HeightRow& row : {HeightRow{"", 1}, HeightRow{"one", 1}, HeightRow{"one\ntwo\nthree", 3},
                                 HeightRow{"one\r\ntwo", 3}, HeightRow{"one\rtwo", 2}, HeightRow{"\n", 2},
                                 HeightRow{"one\xE2\x80\xA8two\xE2\x80\xA9three\xC2\x85"
                                           "four",
                                           4}}) {
        make();
        app->notesTVData = Table{note(2024, 3, 1, row.text)};
        app->eventsTVData = Table{event(2024, 3, 1, row.text)};
        EXPECT_EQ(app->heightOfRow(*ui->notesTableView, 0), row.pieces * 17.0) << row.text;
        EXPECT_EQ(app->heightOfRow(*ui->importantDatesTableView, 0), row.pieces * 20.0) << row.text;
    }
}

TEST_F(NotesListTest, TheTablesUseTheHeights)
{
    putNotes({note(2024, 3, 1, "one\ntwo\nthree"), note(2024, 3, 2, "one")});
    putEvents({event(2024, 3, 1, "one\ntwo")});
    start();
    EXPECT_EQ(ui->notesTableView->rectOfRow(0).height(), 51);
    EXPECT_EQ(ui->notesTableView->rectOfRow(1).height(), 17);
    EXPECT_EQ(ui->importantDatesTableView->rectOfRow(0).height(), 40);
}

TEST_F(NotesListTest, AMissingTextIsToldInACriticalSheetOnceForAllRows)
{
    struct Row {
        TableView* table;
        const char* headline;
    };
    start();
    const Value noText = Value(Dictionary{{"NoteDateKey", Value(day(2024, 3, 1))}});
    TableView unknown;
    for (const Row& row : {Row{ui->notesTableView, "Notes TableView"},
                           Row{ui->importantDatesTableView, "Important Dates TableView"}, Row{&unknown, ""}}) {
        app->notesTVData = Table{noText, noText};
        app->eventsTVData = Table{noText, noText};
        EXPECT_EQ(app->heightOfRow(*row.table, 0), 0.0);
        EXPECT_EQ(app->heightOfRow(*row.table, 1), 0.0);
        Alert* sheet = alert();
        ASSERT_TRUE(sheet);
        EXPECT_EQ(sheet->alertStyle(), Alert::Style::Critical);
        EXPECT_EQ(sheet->messageText(), text(row.headline));
        EXPECT_EQ(sheet->informativeText(), text("tableView:heightOfRow failure"));
        ASSERT_EQ(sheet->buttons().size(), 3); // the last one is out of sight
        EXPECT_EQ(sheet->buttons().at(0)->text(), text("OK"));
        EXPECT_EQ(sheet->buttons().at(1)->text(), text(" "));
        answer(Alert::firstButtonReturn);
        EXPECT_FALSE(alert());
    }
}

TEST_F(NotesListTest, TodaysNoteHasARedDate)
{
    putNotes({note(2024, 3, 15, "today"), note(2024, 3, 14, "yesterday")});
    start();
    const TableView& table = *ui->notesTableView;
    EXPECT_EQ(table.cellView(dateColumn, 0).textColor, namedColor(u"SystemRedColor", window->palette()));
    EXPECT_FALSE(table.cellView(dateColumn, 1).textColor.isValid()); // the usual one
    EXPECT_FALSE(table.cellView(noteColumn, 0).textColor.isValid());
    clock.advance(std::chrono::hours(24));
    EXPECT_FALSE(table.cellView(dateColumn, 0).textColor.isValid());
}

TEST_F(NotesListTest, DatesAreInTheFirstPreferredLanguage)
{
    const LocaleGuard guard("en_US", {"de-DE", "en-US"});
    putNotes({note(2024, 3, 5, "a")});
    start();
    EXPECT_EQ(shownRows(), QStringList{text("Di., März 5, 2024 | a")});
}

TEST_F(NotesListTest, ImportantDatesShowDateDescriptionAndElapsedTime)
{
    struct Row {
        Value event;
        const char* elapsed;
    };
    // Worked by hand from 15 March 2024, 09:30.
    const std::vector<Row> rows = {{event(2021, 1, 10, "a"), "3 Years 2 Months 5 Days"},
                                   {event(2023, 3, 14, "b"), "1 Year  1 Day"},
                                   {event(2024, 3, 15, "c"), "0 Years, 0 Months, 0 Days "},
                                   {event(2024, 3, 16, "d"), "0 Years, 0 Months, 0 Days "},
                                   {event(2024, 1, 15, "e"), " 2 Months "},
                                   {event(2024, 3, 13, "f"), "  2 Days"}};
    Table events;
    for (const Row& row : rows) {
        events.append(row.event);
    }
    putEvents(events);
    start();
    const TableView& table = *ui->importantDatesTableView;
    for (int row = 0; row < table.numberOfRows(); ++row) {
        EXPECT_EQ(table.cellView(elapsedColumn, row).text, text(rows.at(static_cast<size_t>(row)).elapsed)) << row;
    }
    EXPECT_EQ(table.cellView(noteColumn, 1).text, text("b"));
}

TEST_F(NotesListTest, ASelectedRowEnablesItsDeleteButton)
{
    putNotes({note(2024, 3, 15, "a")});
    putEvents({event(2024, 3, 15, "a")});
    start();
    struct Row {
        TableView* table;
        QPushButton* button;
        QPushButton* other;
    };
    for (const Row& row :
         {Row{ui->notesTableView, ui->deleteRowFromListBtn, ui->deleteRowFromImpDateListBtn},
          Row{ui->importantDatesTableView, ui->deleteRowFromImpDateListBtn, ui->deleteRowFromListBtn}}) {
        row.table->selectRow(0);
        EXPECT_TRUE(row.button->isEnabled());
        EXPECT_FALSE(row.other->isEnabled());
        row.table->selectRow(-1);
        EXPECT_FALSE(row.button->isEnabled());
        app->tableViewSelectionIsChanging(*row.table);
        EXPECT_TRUE(row.button->isEnabled());
        row.button->setEnabled(false);
    }
}

TEST_F(NotesListTest, HiddenRowsAreNotCounted)
{
    startWithFourNotes();
    ui->notesTableView->hideRow(1);
    EXPECT_EQ(app->visibleRowsForTV(*ui->notesTableView), 3);
    EXPECT_EQ(app->visibleRowsForTV(*ui->importantDatesTableView), 0);
    const TableView other;
    EXPECT_EQ(app->visibleRowsForTV(other), 0);
    EXPECT_TRUE(app->rowViewForRow(*ui->notesTableView, 0));
}

// Tables that are not there, and very many notes

class AnyTableTest : public NotesListTest {
protected:
    /// Everything that a person can do to list and calendar, and every question of the tables.
    void callEveryHandler()
    {
        for (int index = 0; index < 4; ++index) {
            press(index);
        }
        press(1);
        filter(text("a"));
        app->showTodayOnMiniCal();
        app->redrawMiniCal();
        app->minuteHasChanged();
        app->notesForMonthShowing();
        for (QAbstractButton* button :
             {ui->backOneMonthOnMiniCal, ui->forwardOneMonthOnMiniCal, ui->backOneYearOnMiniCal,
              ui->forwardOneYearOnMiniCal, ui->noteEntryPrevNotesBtn, ui->noteEntryNextNotesBtn}) {
            button->click();
        }
        for (TableView* table : {ui->notesTableView, ui->importantDatesTableView}) {
            app->numberOfRowsInTableView(*table);
            for (const TableColumn& column : table->tableColumns()) {
                app->viewForTableColumn(*table, column, 0);
                app->viewForTableColumn(*table, column, -1);
            }
            table->sortByColumn(dateColumn);
            app->sortDescriptorsDidChange(*table);
            app->tableViewSelectionIsChanging(*table);
            app->tableViewSelectionDidChange(*table);
            app->controlTextDidChange(*table);
            app->controlTextDidEndEditing(*table);
        }
        for (QPushButton* button : {ui->noteEntryListSaveBtn, ui->importantDateSaveBtn}) {
            app->controlTextDidChange(*button);
            app->controlTextDidEndEditing(*button);
        }
        app->respondToDeleteRowFromList(*ui->deleteRowFromImpDateListBtn);
        app->showNotesCount(app->visibleRowsForTV(*ui->notesTableView));
    }
};

TEST_F(AnyTableTest, WhatIsAddedWhileTheFilesAreUnreadableIsShownButNotKept)
{
    for (const auto& file : {notesFile(), eventsFile()}) {
        std::ofstream(file) << "no property list";
    }
    start();
    ASSERT_FALSE(app->allNotesTVData);
    ASSERT_FALSE(app->eventsTVData);
    callEveryHandler();
    dayButton(3).click();
    EXPECT_EQ(shownRows(), QStringList(text("Sun, Mar 3, 2024 | ")));
    EXPECT_EQ(countLine(), text("Displaying 1 notes"));
    EXPECT_FALSE(app->allNotesTVData);
    EXPECT_FALSE(alert());
    app->respondToDeleteRowFromList(*ui->deleteRowFromListBtn);
    ASSERT_TRUE(alert());
    answer(Alert::firstButtonReturn);
    EXPECT_TRUE(std::filesystem::exists(notesFile()));
}

TEST_F(AnyTableTest, EmptyTablesAnswerEverything)
{
    start();
    callEveryHandler();
    EXPECT_EQ(shownRows(), QStringList());
    EXPECT_EQ(countLine(), text("Displaying 0 notes"));
    EXPECT_FALSE(alert());
    EXPECT_FALSE(std::filesystem::exists(notesFile()));
}

TEST_F(AnyTableTest, NotesOfAHundredYearsAnswerEverything)
{
    constexpr int days = 36525;
    Table notes;
    for (int i = 0; i < days; ++i) {
        notes.append(note(1930, 1, 1 + i, "a\nb")); // the calendar carries days into months and years
    }
    putNotes(notes);
    start();
    EXPECT_EQ(countLine(), text("Displaying 36525 notes"));
    callEveryHandler();
    ui->todayBtn->click();
    press(0);
    EXPECT_EQ(shownTexts().size(), 31);
    typeNote(0, text("typed"));
    EXPECT_EQ(notesOnDisk()->size(), days);
    EXPECT_FALSE(alert());
}

} // namespace
