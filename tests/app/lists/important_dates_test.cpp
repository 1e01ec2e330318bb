// SPDX-License-Identifier: MIT
#include "dates/DateUtilities.h"
#include "look/NamedColor.h"
#include "store/Record.h"
#include "support/AppFixture.h"
#include "table/CellEditor.h"
#include "widgets/DatePicker.h"

#include <QAction>
#include <QTest>

namespace {

const std::string placeholder = "** put new date Description here **";

class ImportantDatesTest : public AppFixture {
protected:
    TableView& table() { return *ui->importantDatesTableView; }

    DatePicker& pick(int row)
    {
        table().editColumn(dateColumn, row);
        auto* picker = qobject_cast<DatePicker*>(table().viewAt(dateColumn, row));
        if (!picker) {
            qFatal("no date picker stands in row %d", row);
        }
        return *picker;
    }

    QString shown(int column, int row) { return table().cellView(column, row).text; }
};

TEST_F(ImportantDatesTest, ANewRowCarriesThePresentInstantAndAsksForItsDescription)
{
    putEvents({event(1990, 5, 20, "Ann")});
    start();
    app->addRowToImportDates();
    clock.advance(std::chrono::minutes(1));
    app->addRowToImportDates();
    const Date morning = utcDate(2024, 3, 15, 8, 30);
    EXPECT_EQ(app->eventsTVData, (Table{event(1990, 5, 20, "Ann"), makeEventRecord(morning, placeholder),
                                        makeEventRecord(morning + std::chrono::minutes(1), placeholder)}));
    EXPECT_EQ(table().numberOfRows(), 3);
    EXPECT_TRUE(ui->importantDateSaveBtn->isEnabled());
    EXPECT_EQ(eventsOnDisk(), Table{event(1990, 5, 20, "Ann")}) << "nothing is written until it is saved";
    ui->importantDateSaveBtn->click();
    EXPECT_EQ(eventsOnDisk(), app->eventsTVData);
    EXPECT_FALSE(ui->importantDateSaveBtn->isEnabled());
}

TEST_F(ImportantDatesTest, ANewRowComesIntoView)
{
    Table many;
    for (int i = 0; i < 200; ++i) {
        many.append(event(2000, 1, 1 + i % 28, "day"));
    }
    putEvents(many);
    start();
    ASSERT_FALSE(table().viewport()->rect().contains(table().rectOfRow(199)));
    app->addRowToImportDates();
    EXPECT_TRUE(table().viewport()->rect().contains(table().rectOfRow(200)));
}

TEST_F(ImportantDatesTest, TheButtonLeadsThroughDateAndDescriptionByKeysAlone)
{
    start();
    ui->addImportantDateBtn->click();
    EXPECT_EQ(table().selectedRow(), 0);
    auto* picker = qobject_cast<DatePicker*>(table().viewAt(dateColumn, 0));
    ASSERT_TRUE(picker);
    EXPECT_EQ(picker->text(), QStringLiteral("3/15/2024"));
    QTest::keyClicks(picker, QStringLiteral("12/24/1965"));
    QTest::keyClick(picker, Qt::Key_Tab);
    auto* description = qobject_cast<CellEditor*>(table().viewAt(textColumn, 0));
    ASSERT_TRUE(description);
    QTest::keyClicks(description, QStringLiteral("Grandma born")); // in place of the selected placeholder
    QTest::keyClick(description, Qt::Key_Return);
    QTest::keyClicks(description, QStringLiteral("in the snow"));
    QTest::keyClick(description, Qt::Key_Tab);
    EXPECT_EQ(table().editedRow(), -1);
    ui->saveAction->trigger();
    // 24 December 1965, 09:30 in Berlin, which was an hour ahead of Greenwich.
    EXPECT_EQ(eventsOnDisk(), (Table{makeEventRecord(utcDate(1965, 12, 24, 8, 30), "Grandma born\nin the snow")}));
    EXPECT_EQ(table().rectOfRow(0).height(), 40);
    EXPECT_EQ(shown(elapsedColumn, 0), QStringLiteral("58 Years 2 Months 20 Days")); // counted by hand
}

TEST_F(ImportantDatesTest, BackTabGoesFromTheDescriptionToTheDate)
{
    putEvents({event(1990, 5, 20, "Ann")});
    start();
    table().setFocus();
    table().selectRow(0);
    QTest::keyClick(&table(), Qt::Key_Return);
    QWidget* description = table().viewAt(textColumn, 0);
    ASSERT_TRUE(description) << "Return edits the description";
    QTest::keyClick(description, Qt::Key_Backtab);
    QWidget* picker = table().viewAt(dateColumn, 0);
    ASSERT_TRUE(picker);
    QTest::keyClick(picker, Qt::Key_Backtab);
    EXPECT_EQ(table().editedRow(), -1) << "there is nothing before the date";
}

TEST_F(ImportantDatesTest, AnotherDayKeepsTheTimeOfDayAndTheOtherKeys)
{
    const Date instant = utcDate(2024, 1, 10, 17, 45, 12); // 18:45:12 in Berlin
    const Value foreign(
        Dictionary{{"Colour", Value("green")}, {"EventDateKey", Value(instant)}, {"EventNameKey", Value("Premiere")}});
    putEvents({foreign, event(2024, 2, 2, "b")});
    start();
    pick(0).chooseDay(QDate(2024, 7, 1)); // summer time
    const Value moved(Dictionary{{"Colour", Value("green")},
                                 {"EventDateKey", Value(utcDate(2024, 7, 1, 16, 45, 12))},
                                 {"EventNameKey", Value("Premiere")}});
    EXPECT_EQ(app->eventsTVData, (Table{moved, event(2024, 2, 2, "b")}));
    EXPECT_TRUE(ui->importantDateSaveBtn->isEnabled());
    EXPECT_EQ(eventsOnDisk(), (Table{foreign, event(2024, 2, 2, "b")})) << "nothing is written until it is saved";
    EXPECT_EQ(shown(elapsedColumn, 1), QStringLiteral(" 1 Month 13 Days")) << "the other row is as it was";
}

TEST_F(ImportantDatesTest, BackOnItsFirstDayADateIsTheVeryInstantItWas)
{
    const Date instant = utcDate(2024, 3, 31, 0, 30) + Date::duration(0.25); // 01:30, the hour before the skipped one
    start();
    app->eventsTVData = Table{makeEventRecord(instant, "a")};
    table().reloadData();
    DatePicker& picker = pick(0);
    picker.chooseDay(QDate(1999, 1, 1));
    EXPECT_EQ(app->eventsTVData->at(0), makeEventRecord(utcDate(1999, 1, 1, 0, 30) + Date::duration(0.25), "a"));
    picker.chooseDay(QDate(2024, 3, 31));
    EXPECT_EQ(app->eventsTVData->at(0), makeEventRecord(instant, "a"));
}

TEST_F(ImportantDatesTest, ThePickerIsWhiteOnTheSelectedRow)
{
    putEvents({event(1990, 5, 20, "Ann"), event(1992, 6, 21, "Ben")});
    start();
    DatePicker& picker = pick(0);
    EXPECT_EQ(table().selectedRow(), 0);
    EXPECT_EQ(picker.textColor(), QColor(Qt::white));
    table().chooseRow(1);
    EXPECT_EQ(picker.textColor(), namedColor(u"ControlTextColor", window->palette()));
    table().chooseRow(0);
    EXPECT_EQ(picker.textColor(), QColor(Qt::white));
    EXPECT_TRUE(ui->deleteRowFromImpDateListBtn->isEnabled());
}

TEST_F(ImportantDatesTest, ARecordWithoutADateCannotBePicked)
{
    putEvents({Value(Dictionary{{"EventNameKey", Value("someday")}})});
    start();
    table().editColumn(dateColumn, 0);
    EXPECT_EQ(table().editedRow(), -1);
    EXPECT_EQ(shown(dateColumn, 0), QString());
}

TEST_F(ImportantDatesTest, QuittingSavesAnEditThatWasNotSaved)
{
    putEvents({event(1990, 5, 20, "Ann")});
    start();
    pick(0).chooseDay(QDate(1991, 5, 20));
    table().editColumn(textColumn, 0);
    QTest::keyClicks(table().viewAt(textColumn, 0), QStringLiteral("ie"));
    app->applicationWillTerminate();
    EXPECT_EQ(eventsOnDisk(), Table{event(1991, 5, 20, "Annie")});
}

TEST_F(ImportantDatesTest, WhatIsAddedToAnUnreadableFileIsLost)
{
    std::filesystem::remove(eventsFile());
    std::filesystem::create_directory(eventsFile()); // exists and cannot be read
    start();
    ASSERT_FALSE(app->eventsTVData);
    ui->addImportantDateBtn->click();
    EXPECT_FALSE(app->eventsTVData);
    EXPECT_EQ(table().numberOfRows(), 0);
}

TEST_F(ImportantDatesTest, ALeapDayAndADateBefore1900AreShownAndMoved)
{
    putEvents({event(2024, 2, 29, "leap"), event(1815, 6, 18, "long ago")});
    start();
    EXPECT_EQ(shown(dateColumn, 0), QStringLiteral("Thu, Feb 29, 2024"));
    EXPECT_EQ(shown(dateColumn, 1), QStringLiteral("Sun, Jun 18, 1815"));
    EXPECT_EQ(shown(elapsedColumn, 1), QStringLiteral("208 Years 8 Months 26 Days")); // counted by hand
    pick(1).chooseDay(QDate(1800, 1, 1));
    EXPECT_EQ(app->eventsTVData->at(1), event(1800, 1, 1, "long ago"));
    pick(0).chooseDay(QDate(2023, 2, 28));
    EXPECT_EQ(app->eventsTVData->at(0), event(2023, 2, 28, "leap"));
}

TEST_F(ImportantDatesTest, QuittingLeavesTheFileOfAnEmptyTableAsItIs)
{
    putEvents({event(1990, 5, 20, "Ann")});
    start();
    app->eventsTVData->clear();
    app->applicationWillTerminate();
    EXPECT_EQ(eventsOnDisk(), Table{event(1990, 5, 20, "Ann")});
}

TEST_F(ImportantDatesTest, TheSelectedDateStaysSelectedWhenTheRowsAreSorted)
{
    putEvents({event(2001, 1, 1, "c"), event(2002, 1, 1, "a"), event(2003, 1, 1, "b")});
    start();
    table().selectRow(0);
    table().sortByColumn(textColumn);
    EXPECT_EQ(shown(textColumn, 0), QStringLiteral("a"));
    EXPECT_EQ(table().selectedRow(), 2);
    ui->deleteRowFromImpDateListBtn->click();
    answer(Alert::firstButtonReturn);
    EXPECT_EQ(eventsOnDisk(), (Table{event(2002, 1, 1, "a"), event(2003, 1, 1, "b")}));
}

TEST_F(ImportantDatesTest, TheMenuAddsADateFromAnyPage)
{
    start();
    ui->myTabView->setCurrentIndex(1);
    ui->addDateAction->trigger();
    EXPECT_EQ(ui->myTabView->currentIndex(), 0);
    EXPECT_EQ(app->eventsTVData->size(), 1);
}

} // namespace
