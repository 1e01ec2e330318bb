// SPDX-License-Identifier: MIT
#include "plist/PropertyList.h"
#include "store/Draft.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <ostream>

static void PrintTo(const DraftChange& change, std::ostream* stream)
{
    const auto shown = [](const std::optional<DatedText>& text) {
        return text ? std::to_string(unixSeconds(text->date)) + " '" + text->text + "'" : std::string("none");
    };
    *stream << (change.kind == DraftChange::Kind::Note ? "note " : "event ") << shown(change.saved) << " -> "
            << shown(change.unsaved);
}

namespace {

using Kind = DraftChange::Kind;

constexpr double dayLength = 86400;

Date day(int number)
{
    return dateFromUnixSeconds(number * dayLength);
}

DatedText text(int number, const char* text)
{
    return {day(number), text};
}

Value note(int number, const char* text)
{
    return makeNoteRecord(day(number), text);
}

Value event(int number, const char* name)
{
    return makeEventRecord(day(number), name);
}

DraftChange newNote(int number, const char* typed)
{
    return {Kind::Note, std::nullopt, text(number, typed)};
}

DraftChange changedNote(int number, const char* saved, const char* typed)
{
    return {Kind::Note, text(number, saved), text(number, typed)};
}

Table takenIn(const Draft& draft, Table notes)
{
    Drafts::restoreNotes(draft, notes);
    return notes;
}

Table eventsTakenIn(const Draft& draft, Table events)
{
    Drafts::restoreEvents(draft, events);
    return events;
}

TEST(DraftOfNotes, OfEqualTablesIsEmpty)
{
    const Table notes{note(1, "a"), note(2, "b")};
    EXPECT_EQ(Drafts::changedNotes(notes, notes), Draft());
    EXPECT_EQ(Drafts::changedNotes(notes, Table{note(1, "a"), note(2, "b")}), Draft());
    EXPECT_EQ(Drafts::changedNotes({}, {}), Draft());
}

TEST(DraftOfNotes, HoldsOnlyTheDaysThatDiffer)
{
    const Table saved{note(1, "a"), note(2, "b"), note(3, "c"), note(4, "d")};
    const Table current{note(1, "a"), note(2, "B"), note(4, "d"), note(5, "new")};
    EXPECT_THAT(Drafts::changedNotes(saved, current),
                testing::ElementsAre(changedNote(2, "b", "B"), newNote(5, "new"),
                                     DraftChange{Kind::Note, text(3, "c"), std::nullopt}));
}

TEST(DraftOfNotes, LeavesOutWhatIsNoNoteAndWhatOnlyMoved)
{
    const Table saved{note(1, "a"), Value("foreign"), note(2, "b")};
    const Table current{note(2, "b"), Value("other"), note(1, "a")};
    EXPECT_EQ(Drafts::changedNotes(saved, current), Draft());
}

TEST(DraftOfEvents, PairsWhatWasRemovedWithWhatWasAdded)
{
    const Table saved{event(1, "Ada"), event(2, "Bob"), event(2, "Bob")};
    const Table current{event(2, "Bob"), event(1, "Ada Lovelace"), event(3, "new")};
    EXPECT_THAT(Drafts::changedEvents(saved, current),
                testing::UnorderedElementsAre(DraftChange{Kind::Event, text(1, "Ada"), text(1, "Ada Lovelace")},
                                              DraftChange{Kind::Event, text(2, "Bob"), text(3, "new")}));
    EXPECT_EQ(Drafts::changedEvents(saved, Table{event(2, "Bob"), event(1, "Ada"), event(2, "Bob")}), Draft());
}

TEST(DraftTakenIn, ReplacesAnUntouchedNoteAndAddsANewOne)
{
    const Draft draft{changedNote(1, "a", "a longer"), newNote(9, "new")};
    EXPECT_EQ(takenIn(draft, {note(1, "a"), note(2, "b")}), (Table{note(1, "a longer"), note(2, "b"), note(9, "new")}));
}

TEST(DraftTakenIn, MakesAShorterTextOfAnUntouchedNoteToo)
{
    EXPECT_EQ(takenIn({changedNote(1, "Dentist at 9", "Dentist")}, {note(1, "Dentist at 9")}),
              (Table{note(1, "Dentist")}));
}

TEST(DraftTakenIn, KeepsBothTextsOfANoteThatIsAnotherByNow)
{
    EXPECT_EQ(takenIn({changedNote(1, "a", "typed here")}, {note(1, "from elsewhere")}),
              (Table{note(1, "from elsewhere\n\ntyped here")}));
    EXPECT_EQ(takenIn({newNote(1, "typed here")}, {note(1, "from elsewhere")}),
              (Table{note(1, "from elsewhere\n\ntyped here")}));
}

TEST(DraftTakenIn, DoesNotRepeatATextThatTheOtherBeginsWith)
{
    EXPECT_EQ(takenIn({newNote(1, "Milk")}, {note(1, "Milk and bread")}), (Table{note(1, "Milk and bread")}));
    EXPECT_EQ(takenIn({newNote(1, "Milk and bread")}, {note(1, "Milk")}), (Table{note(1, "Milk and bread")}));
    EXPECT_EQ(takenIn({newNote(1, "Milk")}, {note(1, "")}), (Table{note(1, "Milk")}));
}

TEST(DraftTakenIn, BringsBackANoteThatWasDeletedElsewhere)
{
    EXPECT_EQ(takenIn({changedNote(1, "a", "b")}, {}), (Table{note(1, "b")}));
}

TEST(DraftTakenIn, DeletesOnlyWhatIsStillTheSame)
{
    const Draft draft{{Kind::Note, text(1, "a"), std::nullopt}, {Kind::Note, text(2, "b"), std::nullopt}};
    EXPECT_EQ(takenIn(draft, {note(1, "a"), note(2, "other"), note(3, "c")}), (Table{note(2, "other"), note(3, "c")}));
    EXPECT_EQ(takenIn(draft, {note(1, "a"), note(2, "b"), note(3, "c")}), (Table{note(3, "c")}));
}

TEST(DraftTakenIn, TakesTwoChangesOfADayOneAfterTheOther)
{
    EXPECT_EQ(takenIn({newNote(1, "first"), newNote(1, "second")}, {}), (Table{note(1, "first\n\nsecond")}));
}

TEST(DraftTakenIn, KeepsOtherKeysOfANote)
{
    const Value colored(
        Dictionary{{"NoteDateKey", Value(day(1))}, {"NoteDataKey", Value("a")}, {"colour", Value("red")}});
    const Table taken = takenIn({changedNote(1, "a", "b")}, {colored});
    EXPECT_EQ(*textOf(taken.front(), "colour"), "red");
    EXPECT_EQ(*textOf(taken.front(), NoteDataKey), "b");
}

TEST(DraftTakenIn, PutsAnImportantDateInTheSavedOnesPlaceElseAtTheEnd)
{
    const Draft draft{{Kind::Event, text(1, "Ada"), text(1, "Ada Lovelace")},
                      {Kind::Event, text(5, "gone elsewhere"), text(6, "changed here")},
                      {Kind::Event, std::nullopt, text(7, "new")},
                      {Kind::Event, text(2, "Bob"), std::nullopt}};
    EXPECT_EQ(eventsTakenIn(draft, {event(1, "Ada"), event(2, "Bob"), event(3, "Eve")}),
              (Table{event(1, "Ada Lovelace"), event(3, "Eve"), event(6, "changed here"), event(7, "new")}));
}

TEST(DraftTakenIn, FindsAnImportantDateThoughTheFileCutItsFractionOff)
{
    const Date added = dateFromUnixSeconds(1795239130.75);
    const Value inFile = makeEventRecord(dateFromUnixSeconds(1795239130), "Ada");
    const Draft draft{{Kind::Event, DatedText{added, "Ada"}, DatedText{added, "Ada Lovelace"}}};
    EXPECT_EQ(eventsTakenIn(draft, {inFile}), (Table{makeEventRecord(added, "Ada Lovelace")}));
}

TEST(DraftTakenIn, AddsAnImportantDateThatWasSavedMeanwhileNotTwice)
{
    EXPECT_EQ(eventsTakenIn({{Kind::Event, std::nullopt, text(7, "new")}}, {event(7, "new")}),
              (Table{event(7, "new")}));
}

TEST(DraftRecords, ReadBackEqualThroughAFile)
{
    const Draft draft{changedNote(1, "a\r<&>", "ä\n\n€ 😀"),        newNote(2, ""),
                      {Kind::Note, text(3, "c"), std::nullopt},    {Kind::Event, text(1, "Ada"), text(2, "Ada L.")},
                      {Kind::Event, std::nullopt, text(4, "new")}, {Kind::Event, text(5, "gone"), std::nullopt}};
    const std::optional<Table> read = PropertyList::readTable(PropertyList::writeXml(Drafts::tableFromDraft(draft)));
    ASSERT_TRUE(read);
    EXPECT_EQ(Drafts::draftFromTable(*read), draft);
}

TEST(DraftRecords, OtherTablesAreNoDraft)
{
    const Value head(Dictionary{{"DraftVersion", Value(Integer{.magnitude = 1})}});
    const Value newer(Dictionary{{"DraftVersion", Value(Integer{.magnitude = 2})}});
    const Value textual(Dictionary{{"DraftVersion", Value("1")}});
    const Value deletionOfNothing(Dictionary{{"DraftDeleted", Value(true)}});
    const Value half(Dictionary{{"NoteDateKey", Value(day(1))}});
    EXPECT_EQ(Drafts::draftFromTable({head}), Draft());
    EXPECT_EQ(Drafts::draftFromTable({}), std::nullopt);
    EXPECT_EQ(Drafts::draftFromTable({newer, note(1, "a")}), std::nullopt);
    EXPECT_EQ(Drafts::draftFromTable({textual}), std::nullopt);
    EXPECT_EQ(Drafts::draftFromTable({note(1, "a")}), std::nullopt);
    EXPECT_EQ(Drafts::draftFromTable({head, Value("text")}), std::nullopt);
    EXPECT_EQ(Drafts::draftFromTable({head, half}), std::nullopt);
    EXPECT_EQ(Drafts::draftFromTable({head, deletionOfNothing}), std::nullopt);
}

TEST(ForgetSaved, LeavesWhatWouldChangeSomethingAndNothingElse)
{
    const auto day = [](int number) { return dateFromUnixSeconds(number * 86400); };
    const Table saved{makeNoteRecord(day(1), "one at nine"), makeNoteRecord(day(2), "two")};
    const Table dates{makeEventRecord(day(5), "Ada")};
    const DraftChange same{DraftChange::Kind::Note, DatedText{day(1), "one"}, DatedText{day(1), "one at nine"}};
    const DraftChange other{DraftChange::Kind::Note, DatedText{day(2), "two"}, DatedText{day(2), "two!"}};
    const DraftChange gone{DraftChange::Kind::Note, DatedText{day(3), "three"}, std::nullopt};
    const DraftChange knownDate{DraftChange::Kind::Event, std::nullopt, DatedText{day(5), "Ada"}};
    const DraftChange newDate{DraftChange::Kind::Event, std::nullopt, DatedText{day(6), "Ben"}};
    Draft draft{same, other, gone, knownDate, newDate, other};
    Drafts::forgetSaved(draft, saved, dates);
    EXPECT_EQ(draft, (Draft{other, newDate})) << "the second time it changes nothing any more";
}

} // namespace
