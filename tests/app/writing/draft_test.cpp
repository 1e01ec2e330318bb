// SPDX-License-Identifier: MIT
#include "app/PreferenceKeys.h"
#include "store/DraftFile.h"
#include "support/AppFixture.h"
#include "support/StandInInputMethod.h"
#include "table/CellEditor.h"

#include <QTest>

#include <filesystem>
#include <fstream>
#include <iterator>

namespace {

constexpr int patience = 20'000; // milliseconds

/// The program with a state folder. A test stands for a crash by leaving the delegate without ending it: what is on the
/// disk then is what the next start finds.
class DraftTest : public AppFixture {
protected:
    DraftTest()
    {
        host.stateFolder = state();
        host.userDefaults.stored.insert(PreferenceKeys::notesCleaned, 1);
    }

    std::filesystem::path state() const { return std::filesystem::path(home.path().toStdString()) / "state"; }

    void typeInto(TableView& table, int row, const QString& text)
    {
        table.editColumn(textColumn, row);
        auto* editor = qobject_cast<CellEditor*>(table.viewAt(textColumn, row));
        ASSERT_TRUE(editor);
        QTest::keyClick(editor, Qt::Key_End);
        QTest::keyClicks(editor, text);
    }

    Draft draftOnDisk()
    {
        app->waitForSaves();
        return DraftFile(state()).read();
    }

    /// What the draft holds of notes and dates that are to be, as "text" of each.
    std::vector<std::string> draftTexts()
    {
        std::vector<std::string> texts;
        for (const DraftChange& change : draftOnDisk()) {
            texts.push_back(change.unsaved ? change.unsaved->text : "deleted: " + change.saved->text);
        }
        return texts;
    }

    void waitForTexts(const std::vector<std::string>& texts)
    {
        ASSERT_TRUE(QTest::qWaitFor([&] { return draftTexts() == texts; }, patience))
            << testing::PrintToString(draftTexts());
    }

    /// The delegate goes without having been told that the program ends.
    void crash()
    {
        app.reset();
        window.reset();
    }

    bool draftIsWritten() { return !draftOnDisk().empty(); }

    using Texts = std::vector<std::string>;
    const Table march{note(2024, 3, 2, "dentist"), note(2024, 3, 20, "spring")};
    const Table dates{event(1990, 5, 4, "Ada")};
};

TEST_F(DraftTest, HoldsWhatIsBeingTypedAndAfterACrashItCanBeKept)
{
    putNotes(march);
    start();
    typeInto(*ui->notesTableView, 0, QStringLiteral(" at nine"));
    waitForTexts({"dentist at nine"});
    crash();

    start();
    ASSERT_TRUE(alert());
    EXPECT_EQ(alert()->messageText(), QStringLiteral("Velumora ended before this was saved"));
    EXPECT_EQ(alert()->informativeText(), QStringLiteral("Mar 2, 2024: dentist at nine"));
    EXPECT_EQ(alert()->buttons().at(0)->text(), QStringLiteral("Keep"));
    answer(Alert::firstButtonReturn);
    EXPECT_EQ(notesOnDisk(), (Table{note(2024, 3, 2, "dentist at nine"), march.at(1)}));
    EXPECT_EQ(shownRows().at(0), QStringLiteral("Sat, Mar 2, 2024 | dentist at nine"));
    runQueued();
    EXPECT_EQ(draftTexts(), Texts());
}

/// A reminder's row stands for its note; the kept note takes its place instead of standing beside it.
TEST_F(DraftTest, WhatIsKeptIsShownOnceAsItIsSaved)
{
    putNotes(march);
    start();
    typeInto(*ui->notesTableView, 0, QStringLiteral(" at nine"));
    waitForTexts({"dentist at nine"});
    crash();

    start();
    app->notesTVData = Table{Value(Array{march.at(0)})};
    answer(Alert::firstButtonReturn);
    EXPECT_EQ(shownRows(), QStringList{QStringLiteral("Sat, Mar 2, 2024 | dentist at nine")});
    EXPECT_EQ(*app->notesTVData, Table{note(2024, 3, 2, "dentist at nine")});
}

TEST_F(DraftTest, IsWrittenDuringContinuousTyping)
{
    putNotes(march);
    start();
    typeInto(*ui->notesTableView, 0, QString());
    auto* editor = qobject_cast<CellEditor*>(ui->notesTableView->viewAt(textColumn, 0));
    ASSERT_TRUE(editor);
    // Hardly a moment without a key, which would put a timer off that each key starts anew.
    ASSERT_TRUE(QTest::qWaitFor(
        [&] {
            QTest::keyClicks(editor, QStringLiteral("x"));
            return draftIsWritten();
        },
        patience));
}

TEST_F(DraftTest, IsGoneOnceEverythingIsSaved)
{
    putNotes(march);
    start();
    typeInto(*ui->notesTableView, 0, QStringLiteral("!"));
    waitForTexts({"dentist!"});
    ui->notesTableView->endEditing();
    app->waitForSaves();
    runQueued();
    EXPECT_EQ(draftTexts(), Texts());
    EXPECT_TRUE(std::filesystem::is_empty(state()));
    start();
    EXPECT_FALSE(alert());
}

TEST_F(DraftTest, HoldsImportantDatesUntilTheyAreSaved)
{
    putEvents(dates);
    start();
    typeInto(*ui->importantDatesTableView, 0, QStringLiteral(" Lovelace"));
    ui->importantDatesTableView->endEditing();
    app->addRowToImportDates();
    waitForTexts({"Ada Lovelace", "** put new date Description here **"});
    crash();

    start();
    ASSERT_TRUE(alert());
    answer(Alert::firstButtonReturn);
    const Table kept{event(1990, 5, 4, "Ada Lovelace"),
                     makeEventRecord(utcDate(2024, 3, 15, 8, 30), "** put new date Description here **")};
    EXPECT_EQ(eventsOnDisk(), kept);
    EXPECT_EQ(app->eventsTVData, kept);
    EXPECT_EQ(ui->importantDatesTableView->numberOfRows(), 2);
    runQueued();
    EXPECT_EQ(draftTexts(), Texts());
}

TEST_F(DraftTest, HoldsLinesThatWereAddedFromImportantDatesAlsoOverAnOrdinaryEnd)
{
    putNotes({note(1990, 5, 4, "rain")});
    putEvents(dates);
    start();
    TableView& table = *ui->importantDatesTableView;
    QTest::mouseClick(table.viewport(), Qt::LeftButton, {}, table.rectOfRow(0).center());
    QContextMenuEvent click(QContextMenuEvent::Mouse, table.rectOfRow(0).center(),
                            table.viewport()->mapToGlobal(table.rectOfRow(0).center()));
    QCoreApplication::sendEvent(table.viewport(), &click);
    auto* menu = window->findChild<QMenu*>(QStringLiteral("importantDatesContextMenu"));
    ASSERT_TRUE(menu);
    menu->actions().at(1)->trigger();
    menu->close();
    waitForTexts({"rain\rAda"});
    quit();
    EXPECT_EQ(DraftFile(state()).read().size(), 1U);
    start();
    ASSERT_TRUE(alert());
    answer(Alert::firstButtonReturn);
    EXPECT_EQ(notesOnDisk(), (Table{note(1990, 5, 4, "rain\rAda")}));
}

TEST_F(DraftTest, DiscardRemovesItAndNothingElse)
{
    putNotes(march);
    start();
    typeInto(*ui->notesTableView, 0, QStringLiteral("!"));
    waitForTexts({"dentist!"});
    crash();
    start();
    ASSERT_TRUE(alert());
    EXPECT_EQ(alert()->buttons().at(2)->text(), QStringLiteral("Discard"));
    answer(Alert::thirdButtonReturn);
    EXPECT_EQ(draftTexts(), Texts());
    EXPECT_EQ(notesOnDisk(), march);
    start();
    EXPECT_FALSE(alert());
}

TEST_F(DraftTest, EscapeKeepsItForTheNextStartTogetherWithWhatIsTypedMeanwhile)
{
    putNotes(march);
    start();
    typeInto(*ui->notesTableView, 0, QStringLiteral("!"));
    waitForTexts({"dentist!"});
    crash();
    start();
    ASSERT_TRUE(alert());
    QTest::keyClick(alert(), Qt::Key_Escape);
    EXPECT_FALSE(alert());
    typeInto(*ui->notesTableView, 1, QStringLiteral(" is here"));
    waitForTexts({"dentist!", "spring is here"});
    quit();
    EXPECT_EQ(DraftFile(state()).read().size(), 1U) << "what was typed meanwhile is saved";
    start();
    ASSERT_TRUE(alert());
    EXPECT_EQ(alert()->informativeText(), QStringLiteral("Mar 2, 2024: dentist!"));
}

TEST_F(DraftTest, OfANoteThatIsAnotherByNowKeepsBothTexts)
{
    putNotes(march);
    start();
    typeInto(*ui->notesTableView, 0, QStringLiteral(" at nine"));
    waitForTexts({"dentist at nine"});
    crash();
    putNotes({note(2024, 3, 2, "from elsewhere"), march.at(1)});
    start();
    answer(Alert::firstButtonReturn);
    EXPECT_EQ(notesOnDisk(), (Table{note(2024, 3, 2, "from elsewhere\n\ndentist at nine"), march.at(1)}));
}

/// As on a full disk: neither the list nor the draft can be written where it belongs.
TEST_F(DraftTest, AQuitWhileTheHomeTakesNothingLosesNothing)
{
    const std::filesystem::path aside = dataFolder().native() + " aside";
    host.temporaryFolder = std::filesystem::path(home.path().toStdString()) / "run";
    putNotes(march);
    start();
    std::filesystem::rename(dataFolder(), aside);
    std::ofstream(dataFolder()) << "no folder";
    std::ofstream(state()) << "no folder";
    typeNote(0, QStringLiteral("dentist at nine"));
    quit();

    std::filesystem::remove(state());
    std::filesystem::remove(dataFolder());
    std::filesystem::rename(aside, dataFolder());
    start();
    ASSERT_TRUE(alert());
    EXPECT_EQ(alert()->informativeText(), QStringLiteral("Mar 2, 2024: dentist at nine"));
    answer(Alert::firstButtonReturn);
    EXPECT_EQ(notesOnDisk(), (Table{note(2024, 3, 2, "dentist at nine"), march.at(1)}));
}

TEST_F(DraftTest, IsNotOfferedWhenAllOfItHadBeenSaved)
{
    putNotes(march);
    start();
    typeInto(*ui->notesTableView, 0, QStringLiteral("!"));
    waitForTexts({"dentist!"});
    crash();
    putNotes({note(2024, 3, 2, "dentist!"), march.at(1)});
    start();
    EXPECT_FALSE(alert());
    EXPECT_EQ(draftTexts(), Texts());
}

TEST_F(DraftTest, OfANewDayIsShownInTheListOfTheStartOnlyWhereThatListHoldsIt)
{
    for (const bool thisMonthOnly : {false, true}) {
        std::filesystem::remove(notesFile());
        host.userDefaults.stored.insert(PreferenceKeys::startList, thisMonthOnly ? 0 : 1);
        {
            DraftFile file(state());
            file.write([] {
                return Draft{{DraftChange::Kind::Note, std::nullopt, DatedText{day(2024, 3, 9), "this month"}},
                             {DraftChange::Kind::Note, std::nullopt, DatedText{day(2024, 4, 9), "the next"}}};
            });
        }
        start();
        answer(Alert::firstButtonReturn);
        EXPECT_EQ(notesOnDisk(), (Table{note(2024, 3, 9, "this month"), note(2024, 4, 9, "the next")}));
        EXPECT_EQ(shownRows().size(), thisMonthOnly ? 1 : 2);
        EXPECT_EQ(dayButton(9).state(), DayButton::On);
    }
}

TEST_F(DraftTest, WithoutAReadableFileToKeepItInItWaits)
{
    putNotes(march);
    start();
    typeInto(*ui->notesTableView, 0, QStringLiteral("!"));
    waitForTexts({"dentist!"});
    crash();
    std::ofstream(notesFile(), std::ios::binary) << "no property list";
    start();
    EXPECT_FALSE(alert());
    quit();
    putNotes(march);
    start();
    ASSERT_TRUE(alert());
    answer(Alert::firstButtonReturn);
    EXPECT_EQ(notesOnDisk(), (Table{note(2024, 3, 2, "dentist!"), march.at(1)}));
}

TEST_F(DraftTest, HoldsNotesWhoseSaveFailed)
{
    start();
    std::filesystem::remove(dataFolder());
    std::ofstream(dataFolder()) << "a file where the folder should be";
    app->dayBtnAction(dayButton(3));
    typeInto(*ui->notesTableView, 0, QStringLiteral("precious"));
    ui->notesTableView->endEditing();
    app->waitForSaves();
    runQueued();
    EXPECT_EQ(draftTexts(), Texts{"precious"});
    quit();
    EXPECT_EQ(DraftFile(state()).read().size(), 1U);

    std::filesystem::remove(dataFolder());
    start();
    ASSERT_TRUE(alert());
    answer(Alert::firstButtonReturn);
    EXPECT_EQ(notesOnDisk(), (Table{note(2024, 3, 3, "precious")}));
}

TEST_F(DraftTest, ADayThatWasOnlyLookedAtLeavesNone)
{
    start();
    app->dayBtnAction(dayButton(3));
    ui->notesTableView->editColumn(textColumn, 0);
    app->machineWillShutDown();
    EXPECT_EQ(draftTexts(), Texts());
    EXPECT_EQ(notesOnDisk(), std::nullopt);
}

TEST_F(DraftTest, ANewDayOfWhichAllIsErasedAgainIsInNone)
{
    start();
    app->dayBtnAction(dayButton(3));
    typeInto(*ui->notesTableView, 0, QStringLiteral("x"));
    waitForTexts({"x"});
    QTest::keyClick(ui->notesTableView->viewAt(textColumn, 0), Qt::Key_Backspace);
    waitForTexts({});
}

TEST_F(DraftTest, HoldsWhatAnInputMethodComposes)
{
    StandInInputMethod inputMethod;
    putNotes(march);
    start();
    ui->notesTableView->editColumn(textColumn, 0);
    QTest::keyClick(ui->notesTableView->viewAt(textColumn, 0), Qt::Key_End);
    inputMethod.compose(QStringLiteral("に"));
    waitForTexts({"dentistに"});
    inputMethod.compose(QString());
    waitForTexts({});
}

TEST_F(DraftTest, WhatIsComposedIsSavedWhenTheDisplayGoes)
{
    StandInInputMethod inputMethod;
    putNotes(march);
    start();
    ui->notesTableView->editColumn(textColumn, 0);
    QTest::keyClick(ui->notesTableView->viewAt(textColumn, 0), Qt::Key_End);
    inputMethod.compose(QStringLiteral("に"));
    app->processWillExit();
    EXPECT_EQ(notesOnDisk()->front(), note(2024, 3, 2, "dentistに"));
}

TEST_F(DraftTest, OfferedIsOnlyWhatWasNotSavedMeanwhile)
{
    putNotes(march);
    start();
    typeInto(*ui->notesTableView, 0, QStringLiteral(" at nine"));
    typeInto(*ui->notesTableView, 1, QStringLiteral("!"));
    waitForTexts({"spring!"});
    app->waitForSaves();
    crash();
    const Draft typed{{DraftChange::Kind::Note, DatedText{*dateOf(march.at(0), NoteDateKey), "dentist"},
                       DatedText{*dateOf(march.at(0), NoteDateKey), "dentist at nine"}},
                      {DraftChange::Kind::Note, DatedText{*dateOf(march.at(1), NoteDateKey), "spring"},
                       DatedText{*dateOf(march.at(1), NoteDateKey), "spring!"}}};
    DraftFile(state()).write([&typed] { return typed; });
    start();
    const QString said = alert()->informativeText();
    EXPECT_TRUE(said.contains(QStringLiteral("spring!")));
    EXPECT_FALSE(said.contains(QStringLiteral("dentist"))) << "the disk has it";
}

TEST_F(DraftTest, ADayWhoseRecordHasNoTextTakesIt)
{
    putNotes({march.at(1), Value(Dictionary{{std::string(NoteDateKey), Value(*dateOf(march.at(0), NoteDateKey))}})});
    const Draft typed{{DraftChange::Kind::Note, std::nullopt, DatedText{*dateOf(march.at(0), NoteDateKey), "typed"}}};
    DraftFile(state()).write([&typed] { return typed; });
    start();
    ASSERT_TRUE(alert());
    answer(Alert::firstButtonReturn); // the table's word about the row without a text
    ASSERT_EQ(alert()->messageText(), QStringLiteral("Velumora ended before this was saved"));
    answer(Alert::firstButtonReturn);
    app->waitForSaves();
    EXPECT_EQ(notesOnDisk(), (Table{march.at(1), note(2024, 3, 2, "typed")}));
}

} // namespace
