// SPDX-License-Identifier: MIT
// The rows, in the order of their headers.
#include "app/lists/notes_list_fixture.h"
#include "look/NamedColor.h"

#include <fstream>

namespace {

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
    table.sortByColumn(textColumn);
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
    EXPECT_EQ(table.cellView(textColumn, 0).text, text("b"));
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
    EXPECT_FALSE(table.cellView(textColumn, 0).textColor.isValid());
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
        EXPECT_EQ(table.cellView(elapsedColumn, row).text, text(rows.at(static_cast<std::size_t>(row)).elapsed)) << row;
    }
    EXPECT_EQ(table.cellView(textColumn, 1).text, text("b"));
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
