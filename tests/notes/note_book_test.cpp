// SPDX-License-Identifier: MIT
#include "notes/NoteBook.h"
#include "support/DateGuards.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

using Rows = NoteBook::OpenedDay::Rows;
using Outcome = NoteBook::FinishedEdit::Outcome;

constexpr ListKind notesList = ListKind::Notes;
constexpr ListKind datesList = ListKind::ImportantDates;

class NoteBookTest : public testing::Test {
protected:
    NoteBook book;
    const Date march1 = utcDate(2024, 3, 1);
    const Date march2 = utcDate(2024, 3, 2);
    const Date april1 = utcDate(2024, 4, 1);

    /// Notes that are all shown.
    void hold(const Table& notes)
    {
        book.allNotes = notes;
        book.choose(NotesChoice::all());
    }

    static std::vector<std::string> texts(const Table& table, ListKind list = notesList)
    {
        std::vector<std::string> found;
        for (const Value& element : table) {
            found.emplace_back(ListRow(element, list).text().value_or("-"));
        }
        return found;
    }
    std::vector<std::string> saved() const { return texts(book.notes()); }
    std::vector<std::string> shown() const { return texts(book.rows(notesList)); }

private:
    TimeZoneGuard m_zone{"UTC"};
    LocaleGuard m_locale{"en_US", {"en"}};
};

using Texts = std::vector<std::string>;

// --- What there is ---------------------------------------------------------------------------------------------------

TEST_F(NoteBookTest, AnswersForUnreadableTablesAsForEmptyOnes)
{
    book.allNotes.reset();
    book.shownNotes.reset();
    book.importantDates.reset();
    EXPECT_TRUE(book.notes().isEmpty());
    EXPECT_TRUE(book.rows(notesList).isEmpty());
    EXPECT_TRUE(book.rows(datesList).isEmpty());
    EXPECT_FALSE(book.row(notesList, 0));
    EXPECT_FALSE(book.openDay(march1));
    EXPECT_FALSE(book.changeText(notesList, 0, "x"));
    EXPECT_FALSE(book.changeDate(0, march1));
    EXPECT_EQ(book.finishEdit(0, true).outcome, Outcome::Nothing);
    EXPECT_EQ(book.addImportantDate(march1, "x"), -1);
    EXPECT_FALSE(book.removeNote(march1));
    EXPECT_FALSE(book.addLine(march1, "x"));
    EXPECT_FALSE(book.showSaved(march1));
    book.addSavedLine(march1, "x");
    book.restoreDraftNotes({{DraftChange::Kind::Note, std::nullopt, DatedText{march1, "x"}}}, true, march1);
    book.restoreDraftDates({{DraftChange::Kind::Event, std::nullopt, DatedText{march1, "x"}}});
    book.choose(NotesChoice::all());
    EXPECT_EQ(book.sort(datesList, {{.key = "EventDateKey"}}, 0), -1);
    EXPECT_EQ(book.removeRows(datesList, makeEventRecord(march1, "x"), 1), 0);
    EXPECT_TRUE(book.mergeWaitingLines().empty());
    EXPECT_FALSE(book.allNotes);
    EXPECT_FALSE(book.shownNotes);
    EXPECT_FALSE(book.importantDates);
}

TEST_F(NoteBookTest, ShowsNothingInAListThatCouldNotBeRead)
{
    book.allNotes = Table{makeNoteRecord(march1, "a")};
    book.shownNotes.reset();
    EXPECT_FALSE(book.showSaved(march1));
    EXPECT_FALSE(book.addLine(march1, "x"));
    EXPECT_FALSE(book.hasWaitingLines());
}

TEST_F(NoteBookTest, TakesNothingIntoNotesThatCouldNotBeRead)
{
    book.allNotes.reset();
    book.showOnly({makeNoteRecord(march1, "imported")});
    EXPECT_EQ(book.finishEdit(0, true).outcome, Outcome::Nothing);
    EXPECT_FALSE(book.addLine(march2, "x"));
    EXPECT_FALSE(book.hasWaitingLines());
    EXPECT_FALSE(book.allNotes);
}

TEST_F(NoteBookTest, SeesThroughAListToTheNoteInARow)
{
    book.showOnly({Value(Array{makeNoteRecord(march1, "inside")}), Value(Array{}), Value("no record")});
    EXPECT_EQ(*book.row(notesList, 0).text(), "inside");
    EXPECT_EQ(book.row(notesList, 0).date(), march1);
    EXPECT_FALSE(book.row(notesList, 0).isEmptyList());
    EXPECT_TRUE(book.row(notesList, 1).isEmptyList());
    EXPECT_FALSE(book.row(notesList, 1).text());
    EXPECT_TRUE(book.row(notesList, 2));
    EXPECT_FALSE(book.row(notesList, 2).record());
    EXPECT_FALSE(book.row(notesList, 3));
    EXPECT_FALSE(book.row(notesList, -1));
}

TEST_F(NoteBookTest, TakesTextOnlyWhereItHasAPlaceToGo)
{
    book.showOnly({makeNoteRecord(march1, "a"), Value(Array{}), Value(Dictionary{{"NoteDataKey", Value("no day")}})});
    book.importantDates = Table{Value(Dictionary{{"EventNameKey", Value("no day")}})};
    EXPECT_TRUE(book.takesText(notesList, 0));
    EXPECT_FALSE(book.takesText(notesList, 1));
    EXPECT_FALSE(book.takesText(notesList, 2));
    EXPECT_FALSE(book.takesText(notesList, 3));
    EXPECT_TRUE(book.takesText(datesList, 0));
    book.allNotes.reset();
    EXPECT_FALSE(book.takesText(notesList, 0));
    EXPECT_TRUE(book.takesText(datesList, 0)); // which is a file of its own
}

// --- Which notes are shown -------------------------------------------------------------------------------------------

TEST_F(NoteBookTest, KeepsItsRowsWhenNothingIsFound)
{
    hold({makeNoteRecord(march1, "milk")});
    const int generation = book.rowsGeneration();
    EXPECT_FALSE(book.chooseIfAny(NotesChoice::matching("bread", "en_US")));
    EXPECT_EQ(shown(), Texts{"milk"});
    EXPECT_EQ(book.rowsGeneration(), generation);
    EXPECT_TRUE(book.chooseIfAny(NotesChoice::matching("milk", "en_US")));
    EXPECT_NE(book.rowsGeneration(), generation);
}

TEST_F(NoteBookTest, OpensADayInItsRow)
{
    hold({makeNoteRecord(march1, "a"), makeNoteRecord(march2, "b")});
    const auto opened = book.openDay(march2);
    EXPECT_EQ(opened->row, 1);
    EXPECT_EQ(opened->rows, Rows::AsTheyWere);
}

TEST_F(NoteBookTest, OpensASavedDayThatIsNotShownWithItsMonth)
{
    hold({makeNoteRecord(march2, "b"), makeNoteRecord(april1, "c"), makeNoteRecord(march1, "a")});
    book.showOnly({});
    const auto opened = book.openDay(march2);
    EXPECT_EQ(opened->rows, Rows::Replaced);
    EXPECT_EQ(shown(), (Texts{"a", "b"}));
    EXPECT_EQ(opened->row, 1);
}

TEST_F(NoteBookTest, ShowsLaterNotesOfTheMonthThatItOpenedADayWith)
{
    book.allNotes = Table{makeNoteRecord(march2, "b")};
    ASSERT_TRUE(book.openDay(march2));
    book.allNotes->append(makeNoteRecord(march1, "a"));
    book.allNotes->append(makeNoteRecord(april1, "c"));
    EXPECT_TRUE(book.showSaved(march1));
    EXPECT_FALSE(book.showSaved(april1));
    EXPECT_EQ(shown(), (Texts{"a", "b"}));
}

TEST_F(NoteBookTest, OpensADayWithoutANoteAsAnEmptyRowThatIsNotSaved)
{
    hold({makeNoteRecord(march2, "b")});
    const auto opened = book.openDay(march1);
    EXPECT_EQ(opened->rows, Rows::OneMore);
    EXPECT_EQ(opened->row, 1);
    EXPECT_EQ(shown(), (Texts{"b", ""}));
    EXPECT_EQ(saved(), Texts{"b"});
}

TEST_F(NoteBookTest, ShowsASavedNoteWhereTheChoiceHoldsIt)
{
    hold({makeNoteRecord(march2, "b")});
    book.choose(NotesChoice::ofMonth(march1));
    book.allNotes->append(makeNoteRecord(march1, "a"));
    book.allNotes->append(makeNoteRecord(april1, "c"));
    const int generation = book.rowsGeneration();
    const auto added = book.showSaved(march1);
    ASSERT_TRUE(added);
    EXPECT_NE(book.rowsGeneration(), generation);
    EXPECT_TRUE(added->isNew);
    EXPECT_EQ(added->row, 0);
    EXPECT_FALSE(book.showSaved(april1));
    EXPECT_FALSE(book.showSaved(utcDate(2030, 1, 1)));
    EXPECT_EQ(shown(), (Texts{"a", "b"}));
}

TEST_F(NoteBookTest, ShowsNoLaterNoteBesideWhatWasFoundOrImported)
{
    hold({makeNoteRecord(march1, "milk")});
    ASSERT_TRUE(book.chooseIfAny(NotesChoice::matching("milk", "en_US")));
    book.allNotes->append(makeNoteRecord(march2, "bread"));
    EXPECT_FALSE(book.showSaved(march2));

    book.choose(NotesChoice::all());
    book.showOnly({makeNoteRecord(april1, "imported")});
    EXPECT_FALSE(book.showSaved(march2));
    EXPECT_EQ(shown(), Texts{"imported"});
}

TEST_F(NoteBookTest, ShowsTheSavedTextInTheRowOfItsDay)
{
    hold({makeNoteRecord(march2, "b"), makeNoteRecord(march1, "a")});
    (*book.allNotes)[1] = makeNoteRecord(march1, "changed");
    const int generation = book.rowsGeneration();
    const auto changed = book.showSaved(march1);
    ASSERT_TRUE(changed);
    EXPECT_FALSE(changed->isNew);
    EXPECT_EQ(changed->row, 1);
    EXPECT_EQ(shown(), (Texts{"b", "changed"}));
    EXPECT_EQ(book.rowsGeneration(), generation); // the rows stand where they stood
}

TEST_F(NoteBookTest, SortsAListAndTellsWhereTheSelectedRowWent)
{
    hold({makeNoteRecord(march2, "b"), makeNoteRecord(march1, "a"), makeNoteRecord(april1, "c")});
    const int generation = book.rowsGeneration();
    EXPECT_EQ(book.sort(notesList, {{.key = "NoteDateKey"}}, 2), 2);
    EXPECT_EQ(book.sort(notesList, {{.key = "NoteDateKey", .order = SortOrder::Descending}}, 2), 0);
    EXPECT_EQ(shown(), (Texts{"c", "b", "a"}));
    EXPECT_EQ(saved(), (Texts{"b", "a", "c"}));
    EXPECT_EQ(book.sort(notesList, {{.key = "NoteDateKey"}}, -1), -1);
    EXPECT_EQ(book.rowsGeneration(), generation + 3);
}

TEST_F(NoteBookTest, TellsOfEqualRowsWhereTheSelectedOneWent)
{
    const Table twins{makeNoteRecord(march1, "twin"), makeNoteRecord(march1, "twin")};
    hold(twins);
    EXPECT_EQ(book.sort(notesList, {{.key = "NoteDateKey"}}, 1), 1);
    EXPECT_EQ(book.sort(notesList, {{.key = "NoteDateKey"}}, 0), 0);
}

TEST_F(NoteBookTest, KeepsTheRowsOfTheNotesWhenTheDatesAreSortedOrRemoved)
{
    book.addImportantDate(march2, "birthday");
    const int generation = book.rowsGeneration();
    book.sort(datesList, {{.key = "EventDateKey"}}, 0);
    book.removeRows(datesList, makeEventRecord(march2, "birthday"), 0);
    EXPECT_EQ(book.rowsGeneration(), generation);
}

// --- Editing ---------------------------------------------------------------------------------------------------------

TEST_F(NoteBookTest, ChangesTheRowUntilTheEditEnds)
{
    hold({makeNoteRecord(march1, "a")});
    EXPECT_FALSE(book.isBeingEdited());
    EXPECT_TRUE(book.changeText(notesList, 0, "ab"));
    EXPECT_TRUE(book.isBeingEdited());
    EXPECT_EQ(saved(), Texts{"a"});
    EXPECT_TRUE(book.changeText(notesList, 0, "abc"));

    const NoteBook::FinishedEdit edit = book.finishEdit(0, true);
    EXPECT_EQ(edit.outcome, Outcome::Replaced);
    EXPECT_TRUE(edit.wasChanged);
    EXPECT_EQ(edit.replaced, "a");
    EXPECT_EQ(edit.seen, "a");
    EXPECT_EQ(saved(), Texts{"abc"});
    EXPECT_FALSE(book.isBeingEdited());
}

TEST_F(NoteBookTest, EditsTheNoteInsideAListAndKeepsItsOtherKeys)
{
    const Value foreign(Dictionary{{"NoteDateKey", Value(march1)}, {"NoteDataKey", Value("a")}, {"More", Value(1.5)}});
    hold({foreign});
    book.showOnly({Value(Array{foreign})});
    EXPECT_TRUE(book.changeText(notesList, 0, "b"));
    ASSERT_TRUE(book.rows(notesList).front().array());
    EXPECT_EQ(book.finishEdit(0, true).outcome, Outcome::Replaced);
    EXPECT_EQ(saved(), Texts{"b"});
    EXPECT_TRUE(book.notes().front().dictionary()->find("More"));
}

TEST_F(NoteBookTest, EditsTheFirstRecordOfAListAndSavesItAlone)
{
    book.showOnly({Value(Array{Value("no record"), makeNoteRecord(march1, "a")})});
    ASSERT_TRUE(book.changeText(notesList, 0, "b"));
    EXPECT_EQ(book.rows(notesList), (Table{Value(Array{Value("no record"), makeNoteRecord(march1, "b")})}));
    EXPECT_EQ(book.finishEdit(0, true).outcome, Outcome::Added);
    EXPECT_EQ(book.allNotes, (Table{makeNoteRecord(march1, "b")}));
}

TEST_F(NoteBookTest, ChangesNoRowWithoutARecord)
{
    const Table rows{Value("no record"), Value(Array{})};
    book.showOnly(rows);
    EXPECT_FALSE(book.changeText(notesList, 0, "x"));
    EXPECT_FALSE(book.changeText(notesList, 1, "x"));
    EXPECT_EQ(book.shownNotes, rows);
    EXPECT_FALSE(book.isBeingEdited());
}

TEST_F(NoteBookTest, AddsANoteAtTheEndOfTheFile)
{
    hold({makeNoteRecord(march2, "b")});
    const int row = book.openDay(march1)->row;
    book.changeText(notesList, row, "a");
    EXPECT_EQ(book.finishEdit(row, true).outcome, Outcome::Added);
    EXPECT_EQ(saved(), (Texts{"b", "a"}));
}

TEST_F(NoteBookTest, LeavesNoNoteOfADayThatWasOnlyLookedAt)
{
    const int row = book.openDay(march1)->row;
    EXPECT_EQ(book.finishEdit(row, false).outcome, Outcome::Nothing);
    EXPECT_TRUE(saved().empty());
}

TEST_F(NoteBookTest, AddsANoteThatWasOnlyLookedAtWhenItHasAText)
{
    book.addLine(march1, "birthday");
    const NoteBook::FinishedEdit look = book.finishEdit(0, false);
    EXPECT_EQ(look.outcome, Outcome::Added);
    EXPECT_FALSE(look.wasChanged);
    EXPECT_EQ(saved(), Texts{"birthday"});
    EXPECT_TRUE(book.hasWaitingLines()); // no edit took it
}

TEST_F(NoteBookTest, KeepsAnEmptyNoteThatWasTypedAndErased)
{
    const int row = book.openDay(march1)->row;
    EXPECT_EQ(book.finishEdit(row, true).outcome, Outcome::Added);
    EXPECT_EQ(saved(), Texts{""});
}

TEST_F(NoteBookTest, DoesNotSaveALookAtARowThatShowsAnotherText)
{
    hold({makeNoteRecord(march1, "saved")});
    book.showOnly({makeNoteRecord(march1, "imported")});
    const NoteBook::FinishedEdit look = book.finishEdit(0, true);
    EXPECT_EQ(look.outcome, Outcome::Nothing);
    EXPECT_FALSE(look.wasChanged);
    EXPECT_EQ(saved(), Texts{"saved"});

    book.changeText(notesList, 0, "imported and changed");
    const NoteBook::FinishedEdit edit = book.finishEdit(0, true);
    EXPECT_EQ(edit.replaced, "saved");
    EXPECT_EQ(edit.seen, "imported"); // so that the other text can be kept aside
}

TEST_F(NoteBookTest, SavesNothingWhenTheTextIsWhatItWas)
{
    hold({makeNoteRecord(march1, "a")});
    book.changeText(notesList, 0, "ab");
    book.changeText(notesList, 0, "a");
    const NoteBook::FinishedEdit edit = book.finishEdit(0, true);
    EXPECT_EQ(edit.outcome, Outcome::Nothing);
    EXPECT_TRUE(edit.wasChanged);
}

TEST_F(NoteBookTest, ForgetsAnEditWhoseRowIsGone)
{
    hold({makeNoteRecord(march1, "a")});
    book.changeText(notesList, 0, "b");
    book.showOnly({});
    EXPECT_EQ(book.finishEdit(0, true).outcome, Outcome::Nothing);
    EXPECT_FALSE(book.isBeingEdited());
}

TEST_F(NoteBookTest, GoesOnWithAnEditWhenNoRowIsLeft)
{
    hold({makeNoteRecord(march1, "a")});
    book.changeText(notesList, 0, "b");
    EXPECT_EQ(book.finishEdit(-1, true).outcome, Outcome::Nothing);
    EXPECT_TRUE(book.isBeingEdited());
}

TEST_F(NoteBookTest, ChangesImportantDatesAtOnce)
{
    EXPECT_EQ(book.addImportantDate(march1, "birth"), 0);
    EXPECT_TRUE(book.changeText(datesList, 0, "birthday"));
    EXPECT_TRUE(book.changeDate(0, march2));
    EXPECT_FALSE(book.changeDate(1, march2));
    EXPECT_FALSE(book.changeText(datesList, 1, "x"));
    EXPECT_EQ(book.importantDates, (Table{makeEventRecord(march2, "birthday")}));
    EXPECT_FALSE(book.isBeingEdited()); // which is about notes
    EXPECT_EQ(book.addImportantDate(march1, "wedding"), 1);
    EXPECT_EQ(texts(book.rows(datesList), datesList), (Texts{"birthday", "wedding"}));
}

// --- Removing --------------------------------------------------------------------------------------------------------

TEST_F(NoteBookTest, RemovesANoteAndTellsWhatItSaid)
{
    hold({makeNoteRecord(march1, "a"), makeNoteRecord(march2, "b")});
    EXPECT_EQ(book.removeNote(march1), "a");
    EXPECT_FALSE(book.removeNote(march1));
    EXPECT_EQ(saved(), Texts{"b"});
    EXPECT_EQ(shown(), (Texts{"a", "b"})); // the rows go by themselves
}

TEST_F(NoteBookTest, RemovesEqualRowsAndTellsWhereTheKeysGoOn)
{
    const Value twice = makeNoteRecord(march1, "twice");
    book.showOnly({twice, makeNoteRecord(march2, "b"), twice, makeNoteRecord(april1, "c")});
    const int generation = book.rowsGeneration();
    EXPECT_EQ(book.removeRows(notesList, twice, 2), 1);
    EXPECT_EQ(shown(), (Texts{"b", "c"}));
    EXPECT_NE(book.rowsGeneration(), generation);
    book.addImportantDate(march1, "birthday");
    EXPECT_EQ(book.removeRows(datesList, makeEventRecord(march1, "birthday"), 0), 0);
    EXPECT_TRUE(book.rows(datesList).isEmpty());
}

TEST_F(NoteBookTest, RemovesRowsOfAListWhereverTheKeysAre)
{
    const Value gone = makeNoteRecord(march1, "gone");
    const Table rows{gone, makeNoteRecord(march2, "b"), makeNoteRecord(april1, "c")};
    for (const auto& [row, next] : {std::pair(-1, 0), std::pair(0, 0), std::pair(3, 2), std::pair(4, 2)}) {
        book.showOnly(rows);
        EXPECT_EQ(book.removeRows(notesList, gone, row), next) << row;
        EXPECT_EQ(shown(), (Texts{"b", "c"}));
    }
}

// --- Lines added to notes --------------------------------------------------------------------------------------------

TEST_F(NoteBookTest, KeepsAnAddedLineWaitingUntilTheNotesAreSaved)
{
    hold({makeNoteRecord(march1, "a")});
    book.showOnly({});
    EXPECT_TRUE(book.addLine(march1, "birthday"));
    EXPECT_EQ(shown(), Texts{"a\rbirthday"}); // the saved note is under it
    EXPECT_EQ(saved(), Texts{"a"});
    EXPECT_TRUE(book.hasWaitingLines());
    EXPECT_EQ(book.mergeWaitingLines(), std::vector<Date>{march1});
    EXPECT_EQ(saved(), Texts{"a\rbirthday"});
    EXPECT_FALSE(book.hasWaitingLines());
    EXPECT_TRUE(book.mergeWaitingLines().empty());
}

TEST_F(NoteBookTest, KeepsLinesWaitingForNotesThatCannotBeRead)
{
    book.addLine(march1, "birthday");
    book.allNotes.reset();
    EXPECT_TRUE(book.mergeWaitingLines().empty());
    EXPECT_TRUE(book.hasWaitingLines());
}

TEST_F(NoteBookTest, AddsALineToTheRowThatThereIs)
{
    hold({makeNoteRecord(march1, "a")});
    book.addLine(march1, "birthday");
    EXPECT_EQ(shown(), Texts{"a\rbirthday"});
}

TEST_F(NoteBookTest, KeepsTheSameLineOfAnotherDay)
{
    book.addLine(march1, "birthday");
    book.addLine(march2, "birthday");
    book.changeText(notesList, 0, "party");
    book.finishEdit(0, true);
    EXPECT_EQ(book.mergeWaitingLines(), std::vector<Date>{march2});
    EXPECT_EQ(saved(), (Texts{"party", "birthday"}));
}

TEST_F(NoteBookTest, TakesALineWithTheNoteThatWasEditedWithIt)
{
    book.addLine(march1, "birthday");
    book.changeText(notesList, 0, "party");
    book.finishEdit(0, true);
    EXPECT_FALSE(book.hasWaitingLines());
    EXPECT_EQ(saved(), Texts{"party"});
}

TEST_F(NoteBookTest, KeepsALineThatTheEditedTextDidNotShow)
{
    hold({makeNoteRecord(march1, "a")});
    book.addLine(march1, "birthday");
    book.showOnly({makeNoteRecord(march1, "imported")});
    book.changeText(notesList, 0, "imported, changed");
    book.finishEdit(0, true);
    EXPECT_TRUE(book.hasWaitingLines());
}

TEST_F(NoteBookTest, ForgetsTheLinesOfARemovedNoteAlone)
{
    hold({makeNoteRecord(march1, "a")});
    book.addLine(march1, "one");
    book.addLine(march2, "two");
    book.removeNote(march1);
    EXPECT_EQ(texts(book.linesBeside(std::nullopt)), Texts{"two"});
}

TEST_F(NoteBookTest, TellsTheTextThatAnEditorIsToShowWithItsLines)
{
    hold({makeNoteRecord(march1, "a")});
    EXPECT_FALSE(book.textWithWaitingLines({march1, "a"}));
    book.addLine(march1, "one");
    book.addLine(march2, "two");
    EXPECT_EQ(book.textWithWaitingLines({march1, "a"}), "a\rone");
    EXPECT_EQ(book.textWithWaitingLines({march2, ""}), "two");
    EXPECT_FALSE(book.textWithWaitingLines({april1, ""}));
}

TEST_F(NoteBookTest, CountsALineOnceThatIsPartOfWhatIsTyped)
{
    hold({makeNoteRecord(march1, "a")});
    book.addLine(march1, "one");
    EXPECT_EQ(texts(book.linesBeside(std::nullopt)), Texts{"one"});
    EXPECT_TRUE(book.linesBeside(DatedText{march1, "a\none"}).isEmpty());
    EXPECT_EQ(texts(book.linesBeside(DatedText{march2, "a\none"})), Texts{"one"});
    book.changeText(notesList, 0, "all erased");
    EXPECT_TRUE(book.linesBeside(DatedText{march1, "all erased"}).isEmpty());
    book.restartEdit();
    EXPECT_EQ(texts(book.linesBeside(DatedText{march1, "all erased"})), Texts{"one"});
}

TEST_F(NoteBookTest, AddsASavedLineAtOnce)
{
    book.addSavedLine(march1, "Easter");
    EXPECT_EQ(saved(), Texts{"Easter"});
    EXPECT_TRUE(shown().empty());
}

// --- What an earlier run left ----------------------------------------------------------------------------------------

TEST_F(NoteBookTest, ShowsKeptNotesOfThisMonthAndOfTheRowsThatThereAre)
{
    hold({makeNoteRecord(april1, "old"), makeNoteRecord(march2, "gone")});
    const Draft draft{{DraftChange::Kind::Note, DatedText{april1, "old"}, DatedText{april1, "new"}},
                      {DraftChange::Kind::Note, DatedText{march2, "gone"}, std::nullopt},
                      {DraftChange::Kind::Note, std::nullopt, DatedText{march1, "this month"}},
                      {DraftChange::Kind::Note, std::nullopt, DatedText{utcDate(2020, 1, 1), "elsewhere"}}};
    book.restoreDraftNotes(draft, false, march1);
    EXPECT_EQ(shown(), (Texts{"new", "this month"}));
    EXPECT_EQ(saved(), (Texts{"new", "this month", "elsewhere"}));
}

TEST_F(NoteBookTest, ShowsAllKeptNotesWhereAllAreShownAtTheStart)
{
    book.restoreDraftNotes({{DraftChange::Kind::Note, std::nullopt, DatedText{april1, "elsewhere"}}}, true, march1);
    EXPECT_EQ(shown(), Texts{"elsewhere"});
}

TEST_F(NoteBookTest, TakesInKeptDates)
{
    book.restoreDraftDates({{DraftChange::Kind::Event, std::nullopt, DatedText{march1, "birthday"}}});
    EXPECT_EQ(texts(book.rows(datesList), datesList), Texts{"birthday"});
}

} // namespace
