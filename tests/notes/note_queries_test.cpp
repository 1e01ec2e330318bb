// SPDX-License-Identifier: MIT
#include "dates/DateUtilities.h"
#include "notes/NoteQueries.h"
#include "notes/NotesChoice.h"
#include "search/TextSearch.h"
#include "support/DateGuards.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <limits>
#include <string>
#include <vector>

namespace {

// The zone and locale of every case: Berlin, German.
class NoteQueriesTest : public testing::Test {
    const TimeZoneGuard m_zone{"Europe/Berlin"};
    const LocaleGuard m_locale{"de_DE", {"de-DE"}};
};

// Midnights in Berlin, by Python's zoneinfo.
constexpr Date january31 = dateFromUnixSeconds(1706655600);       // 2024-01-31 00:00 +01:00
constexpr Date february1 = dateFromUnixSeconds(1706742000);       // 2024-02-01 00:00 +01:00
constexpr Date february29 = dateFromUnixSeconds(1709161200);      // 2024-02-29 00:00 +01:00
constexpr Date march1 = dateFromUnixSeconds(1709247600);          // 2024-03-01 00:00 +01:00
constexpr Date newYear2024 = dateFromUnixSeconds(1704063600);     // 2024-01-01 00:00 +01:00
constexpr Date newYearsEve2023 = dateFromUnixSeconds(1703977200); // 2023-12-31 00:00 +01:00
constexpr Date newYearsEve2024 = dateFromUnixSeconds(1735599600); // 2024-12-31 00:00 +01:00
constexpr Date newYear2025 = dateFromUnixSeconds(1735686000);     // 2025-01-01 00:00 +01:00
constexpr Date july15 = dateFromUnixSeconds(1720994400);          // 2024-07-15 00:00 +02:00

Value note(Date date, const char* text)
{
    return Value(Dictionary{{"NoteDateKey", Value(date)}, {"NoteDataKey", Value(text)}});
}

const Value withoutDate{Dictionary{{"NoteDataKey", Value("no date")}}};
const Value withoutText{Dictionary{{"NoteDateKey", Value(february29)}}};
const Value dateAsText{Dictionary{{"NoteDateKey", Value("2024-02-29")}, {"NoteDataKey", Value("leap")}}};
const Value emptyList{Array{}};

std::vector<std::string> textsOf(const Table& table)
{
    std::vector<std::string> texts;
    for (const Value& element : table) {
        const std::optional<Value> text = NoteQueries::valueOf(element, "NoteDataKey");
        texts.emplace_back(text ? text->text().value_or("-") : "-");
    }
    return texts;
}

using Texts = std::vector<std::string>;

TEST_F(NoteQueriesTest, SeesThroughAListToTheNoteInside)
{
    const Value inside = note(march1, "inside");
    EXPECT_EQ(*NoteQueries::recordOf(inside), inside);
    EXPECT_EQ(*NoteQueries::recordOf(Value(Array{inside, note(march1, "second")})), inside);
    EXPECT_EQ(*NoteQueries::recordOf(Value(Array{Value("text"), Value(Array{inside})})), inside);
    EXPECT_EQ(NoteQueries::recordOf(emptyList), nullptr);
    EXPECT_EQ(NoteQueries::recordOf(Value("text")), nullptr);
    EXPECT_EQ(*NoteQueries::valueOf(Value(Array{inside}), "NoteDataKey"), Value("inside"));
    EXPECT_EQ(NoteQueries::valueOf(inside, "EventNameKey"), std::nullopt);
    EXPECT_EQ(NoteQueries::valueOf(emptyList, "NoteDataKey"), std::nullopt);
}

TEST_F(NoteQueriesTest, FindsTheFirstNoteOfADate)
{
    const Table table = {withoutDate,
                         dateAsText,
                         emptyList,
                         note(january31, "a"),
                         note(march1, "b"),
                         note(march1, "twin"),
                         Value(Array{note(july15, "listed")})};
    EXPECT_EQ(NoteQueries::doesTVDataHaveDate(table, january31), 3);
    EXPECT_EQ(NoteQueries::doesTVDataHaveDate(table, march1), 4);
    EXPECT_EQ(NoteQueries::doesTVDataHaveDate(table, july15), 6);
    EXPECT_EQ(NoteQueries::doesTVDataHaveDate(table, february29), std::numeric_limits<std::int64_t>::max());
    EXPECT_EQ(NoteQueries::doesTVDataHaveDate(table, march1 + std::chrono::seconds(1)),
              std::numeric_limits<std::int64_t>::max());
    EXPECT_EQ(NoteQueries::doesTVDataHaveDate({}, march1), std::numeric_limits<std::int64_t>::max());
}

TEST_F(NoteQueriesTest, TakesTheNotesOfADate)
{
    const Table table = {note(march1, "a"), note(january31, "b"), note(march1, "c"), withoutDate};
    EXPECT_EQ(textsOf(NoteQueries::copySpecificNoteFromArray(table, march1)), (Texts{"a", "c"}));
    EXPECT_TRUE(NoteQueries::copySpecificNoteFromArray(table, july15).isEmpty());
}

TEST_F(NoteQueriesTest, TakesAMonthFromItsFirstToItsLastDayInTableOrder)
{
    const Table table = {note(march1, "after"),
                         note(february29, "last"),
                         note(january31, "before"),
                         withoutDate,
                         note(february1, "first"),
                         dateAsText,
                         Value(Array{note(february1, "listed")})};
    const Texts expected = {"last", "first", "listed"};
    EXPECT_EQ(textsOf(NoteQueries::copyArrayOfDatesHavingNotes(table, february1)), expected);
    EXPECT_EQ(textsOf(NoteQueries::copyArrayOfDatesHavingNotes(table, february29 + std::chrono::hours(23))), expected);
    EXPECT_EQ(textsOf(NoteQueries::copyArrayOfDatesHavingNotes(table, march1)), Texts{"after"});
    EXPECT_TRUE(NoteQueries::copyArrayOfDatesHavingNotes(table, july15).isEmpty());
}

TEST_F(NoteQueriesTest, LeavesOutWhatLiesBehindTheLastMidnightOfAMonth)
{
    const Table table = {note(february29 + std::chrono::seconds(1), "later that day")};
    EXPECT_TRUE(NoteQueries::copyArrayOfDatesHavingNotes(table, february1).isEmpty());
}

TEST_F(NoteQueriesTest, SharesTheRecordsThatAFilterTakes)
{
    const Table table = {note(february1, "first")};
    EXPECT_TRUE(NoteQueries::copyArrayOfDatesHavingNotes(table, february1).at(0).isSameObject(table.at(0)));
}

TEST_F(NoteQueriesTest, TakesAYearFromNewYearToNewYearsEve)
{
    const Table table = {note(newYearsEve2024, "eve"), note(newYearsEve2023, "before"), note(newYear2025, "after"),
                         note(july15, "summer"), note(newYear2024, "new year")};
    EXPECT_EQ(textsOf(NoteQueries::copyCurrentYearNotes(table, 2024)), (Texts{"eve", "summer", "new year"}));
    EXPECT_EQ(textsOf(NoteQueries::copyCurrentYearNotes(table, 2023)), Texts{"before"});
    EXPECT_TRUE(NoteQueries::copyCurrentYearNotes(table, 2022).isEmpty());
}

TEST_F(NoteQueriesTest, CollectsTheIndexesOfNotes)
{
    const Table table = {note(march1, "a"), note(july15, "b"), note(march1, "a"), withoutText};
    const Table records = {withoutText, note(march1, "a"), note(march1, "other text"), note(march1, "a")};
    EXPECT_EQ(NoteQueries::copyIdxSetOfNotes(records, table), (IndexSet{0, 3}));
    EXPECT_TRUE(NoteQueries::copyIdxSetOfNotes({}, table).empty());
}

TEST_F(NoteQueriesTest, ComplementsASetOfIndexes)
{
    EXPECT_EQ(NoteQueries::copyComplementOfSet({1, 3}, 5), (IndexSet{0, 2, 4}));
    EXPECT_EQ(NoteQueries::copyComplementOfSet({}, 2), (IndexSet{0, 1}));
    EXPECT_EQ(NoteQueries::copyComplementOfSet({2, 7, -1}, 2), (IndexSet{0, 1}));
    EXPECT_TRUE(NoteQueries::copyComplementOfSet({0, 1}, 2).empty());
    EXPECT_TRUE(NoteQueries::copyComplementOfSet({5}, 0).empty());
    EXPECT_TRUE(NoteQueries::copyComplementOfSet({}, -1).empty());
}

TEST_F(NoteQueriesTest, FiltersByTextInTableOrder)
{
    const Table table = {note(march1, "later abc"),
                         withoutText,
                         dateAsText,
                         note(january31, "xAbCx"),
                         emptyList,
                         note(july15, "ab c"),
                         Value(Array{note(july15, "listed ABC")})};
    EXPECT_EQ(textsOf(NoteQueries::filterNotes(table, TextSearch("ABC", "en_US"))),
              (Texts{"later abc", "xAbCx", "listed ABC"}));
    EXPECT_TRUE(NoteQueries::filterNotes(table, TextSearch("", "en_US")).isEmpty());
    EXPECT_TRUE(NoteQueries::filterNotes(table, TextSearch("2024-02-29", "en_US")).isEmpty()); // dates are not searched
}

TEST_F(NoteQueriesTest, MakesFreshRecordsOfDateAndTextAloneWhenFiltering)
{
    const Value foreign{
        Dictionary{{"NoteDateKey", Value(march1)}, {"Colour", Value("red")}, {"NoteDataKey", Value("a text")}}};
    const Table found = NoteQueries::filterNotes({foreign, withoutDate}, TextSearch("T", "en_US"));
    ASSERT_EQ(found.size(), 2);
    EXPECT_EQ(found.at(0), note(march1, "a text"));
    EXPECT_TRUE(NoteQueries::valueOf(found.at(0), "NoteDataKey")
                    ->isSameObject(*NoteQueries::valueOf(foreign, "NoteDataKey"))); // no bytes are copied
    EXPECT_EQ(found.at(1), withoutDate);
    EXPECT_FALSE(found.at(1).isSameObject(withoutDate));
}

TEST_F(NoteQueriesTest, RemovesEveryEqualRecord)
{
    Table table = {note(march1, "a"), note(march1, "b"), note(march1, "a"), Value(Array{note(march1, "a")}), emptyList};
    NoteQueries::removeEqual(table, table.at(0));
    EXPECT_EQ(textsOf(table), (Texts{"b", "-"}));
    NoteQueries::removeEqual(table, note(march1, "a"));
    EXPECT_EQ(table.size(), 2);
    NoteQueries::removeEqual(table, emptyList);
    EXPECT_EQ(textsOf(table), Texts{"b"});
}

TEST_F(NoteQueriesTest, RemovesTheListAroundANote)
{
    Table table = {Value(Array{note(march1, "a"), note(march1, "b")})};
    NoteQueries::removeEqual(table, Value(Array{note(march1, "a")}));
    EXPECT_TRUE(table.isEmpty());
}

TEST_F(NoteQueriesTest, SortsByDate)
{
    const Date before1970 = dateFromUnixSeconds(-1e9);
    Table table = {note(march1, "3"), withoutDate, note(january31, "1"), Value(Array{note(february1, "2")}),
                   note(before1970, "0")};
    NoteQueries::sortArrayAscending(table, "NoteDateKey");
    EXPECT_EQ(textsOf(table), (Texts{"no date", "0", "1", "2", "3"}));
}

TEST_F(NoteQueriesTest, SortsTextsByTheirUtf16Units)
{
    // In code units: 0041 < 0061 < 0061 0300 < 00E4 < D83C DF89 < E000 < FFFD, worked by hand.
    const Texts sorted = {"", "A", "a", "a\u0300", "\u00E4", "\U0001F389", "\uE000", "\uFFFD"};
    Table table;
    for (const std::string& text : sorted) {
        table.prepend(note(march1, text.c_str()));
    }
    NoteQueries::sortArrayAscending(table, "NoteDataKey");
    EXPECT_EQ(textsOf(table), sorted);
}

TEST_F(NoteQueriesTest, GivesTheTextOfTheFirstNoteOfEachDate)
{
    const Value textlessNote{Dictionary{{"NoteDateKey", Value(march1)}}};
    const Value list{Table{note(newYear2024, "in a list")}};
    const Table table = {withoutDate,
                         note(february29, "leap"),
                         note(january31, "before"),
                         note(february1, "one"),
                         note(february1, "two"),
                         textlessNote,
                         note(march1, "later"),
                         note(july15, "after"),
                         list};
    const std::vector<Date> dates{newYear2024, february1, february29, february29, march1, newYear2025};
    EXPECT_EQ(NoteQueries::textsOfDates(table, dates), (Texts{"in a list", "one", "leap", "leap", "", ""}));
    EXPECT_EQ(NoteQueries::textsOfDates(table, std::vector{january31 + std::chrono::seconds(1)}), Texts{""});
    EXPECT_EQ(NoteQueries::textsOfDates({}, dates), Texts(6));
    EXPECT_EQ(NoteQueries::textsOfDates(table, {}), Texts{});
}

TEST_F(NoteQueriesTest, KeepsTheOrderOfEqualElementsInBothDirections)
{
    const Table table = {note(march1, "b"), note(january31, "x"), note(march1, "a"), note(march1, "c")};
    Table ascending = table;
    NoteQueries::sortArray(ascending, {{"NoteDateKey", SortOrder::Ascending}});
    EXPECT_EQ(textsOf(ascending), (Texts{"x", "b", "a", "c"}));
    Table descending = table;
    NoteQueries::sortArray(descending, {{"NoteDateKey", SortOrder::Descending}});
    EXPECT_EQ(textsOf(descending), (Texts{"b", "a", "c", "x"}));
}

TEST_F(NoteQueriesTest, SortsWhatIsEqualByTheNextDescriptor)
{
    Table table = {note(march1, "b"), note(january31, "x"), note(march1, "a"), withoutDate, note(march1, "c")};
    NoteQueries::sortArray(table, {{"NoteDateKey", SortOrder::Descending}, {"NoteDataKey", SortOrder::Ascending}});
    EXPECT_EQ(textsOf(table), (Texts{"a", "b", "c", "x", "no date"}));
}

TEST_F(NoteQueriesTest, LeavesATableAsItIsWithoutDescriptors)
{
    Table table = {note(march1, "b"), note(january31, "a")};
    NoteQueries::sortArray(table, {});
    EXPECT_EQ(textsOf(table), (Texts{"b", "a"}));
}

TEST_F(NoteQueriesTest, FindsTheRecordOfThatNameAtThatVeryInstant)
{
    const auto event = [](Date date, const char* name) {
        return Value(Dictionary{{"EventDateKey", Value(date)}, {"EventNameKey", Value(name)}, {"x", Value(true)}});
    };
    const Table table = {Value("no record"), event(march1, "b"),       event(march1, "a"),
                         event(march1, "a"), event(january31, "both"), withoutDate};
    const auto find = [&](const char* name, Date date) {
        return NoteQueries::copyDictWithHolidayDateAndDesc("EventNameKey", name, "EventDateKey", date, table);
    };
    EXPECT_EQ(find("a", march1), event(march1, "a"));
    EXPECT_EQ(find("a", january31), std::nullopt);
    EXPECT_EQ(find("A", march1), std::nullopt);
    EXPECT_EQ(find("a", march1 + Date::duration(0.001)), std::nullopt);
    EXPECT_EQ(find("both", january31), event(january31, "both"));
}

TEST_F(NoteQueriesTest, AddsALineBelowANoteUnlessItIsInItAlready)
{
    Table table = {note(january31, "a"), note(march1, "Party at Ann's"), note(march1, "second")};
    NoteQueries::addLineToNote(table, march1, "Ann");
    EXPECT_EQ(textsOf(table), (Texts{"a", "Party at Ann's", "second"}));
    NoteQueries::addLineToNote(table, march1, "ann");
    EXPECT_EQ(textsOf(table), (Texts{"a", "Party at Ann's\rann", "second"}));
    NoteQueries::addLineToNote(table, february29, "new");
    EXPECT_EQ(textsOf(table), (Texts{"a", "Party at Ann's\rann", "second", "new"}));
    EXPECT_EQ(table.last(), note(february29, "new"));
}

TEST_F(NoteQueriesTest, ALineIsAddedToAnEmptyNoteAndToOneWithoutAText)
{
    Table table = {note(march1, ""), Value(Dictionary{{"NoteDateKey", Value(february29)}, {"x", Value(true)}})};
    NoteQueries::addLineToNote(table, march1, "Ann");
    NoteQueries::addLineToNote(table, february29, "Ben");
    EXPECT_EQ(table, (Table{note(march1, "\rAnn"), note(february29, "\rBen")}));
}

TEST_F(NoteQueriesTest, LeavesACopyOfASortedTableAlone)
{
    Table table = {note(march1, "b"), note(january31, "a")};
    const Table snapshot = table;
    NoteQueries::sortArrayAscending(table, "NoteDateKey");
    EXPECT_EQ(textsOf(snapshot), (Texts{"b", "a"}));
}

TEST_F(NoteQueriesTest, TheDatesWithNotesAreToldByTheirIndexes)
{
    const Table notes{note(march1, "a"), emptyList, withoutDate, Value(Array{note(january31, "b")}), note(july15, "c")};
    const std::vector<Date> dates{january31, february1, february29, march1};
    EXPECT_EQ(NoteQueries::datesWithNotes(notes, dates), (IndexSet{0, 3}));
    EXPECT_EQ(NoteQueries::datesWithNotes(notes, {}), IndexSet());
    EXPECT_EQ(NoteQueries::datesWithNotes({}, dates), IndexSet());
}

TEST_F(NoteQueriesTest, OfTheDaysWithANoteThoseInTheListAreCountedToo)
{
    using Count = NoteQueries::DaysWithNotes;
    const Table notes{note(january31, "a"), note(february1, "b"), note(march1, "c")};
    const Table list{note(march1, "c"), note(february29, "only listed"), note(july15, "elsewhere")};
    const std::vector<Date> days{january31, february1, february29, march1};
    EXPECT_EQ(NoteQueries::daysWithNotes(notes, list, days), (Count{.all = 3, .listed = 1}));
    EXPECT_EQ(NoteQueries::daysWithNotes(notes, {}, days), (Count{.all = 3, .listed = 0}));
    EXPECT_EQ(NoteQueries::daysWithNotes({}, list, days), Count());
    // A day that the zone left out begins with the next.
    EXPECT_EQ(NoteQueries::daysWithNotes(notes, notes, std::vector<Date>{january31, march1, march1}),
              (Count{.all = 2, .listed = 2}));
    EXPECT_EQ(NoteQueries::daysWithNotes(notes, list, std::vector<Date>{january31, january31, march1}),
              (Count{.all = 2, .listed = 1}));
}

TEST_F(NoteQueriesTest, TheNearestNoteMayBeEarlierOrLater)
{
    const Table notes{withoutDate, note(newYear2024, "a"), note(march1, "b"), note(january31, "c"), note(march1, "d")};
    EXPECT_EQ(NoteQueries::indexNearestTo(notes, february29), 2);
    EXPECT_EQ(NoteQueries::indexNearestTo(notes, february1), 3);
    EXPECT_EQ(NoteQueries::indexNearestTo(notes, newYearsEve2023), 1);
    EXPECT_EQ(NoteQueries::indexNearestTo(notes, newYear2025), 2);
    EXPECT_EQ(NoteQueries::indexNearestTo({withoutDate, emptyList}, march1), std::numeric_limits<std::int64_t>::max());
}

// What the list was asked for

TEST_F(NoteQueriesTest, AChoiceGivesItsRowsAndKnowsWhatBelongsToThem)
{
    const Table notes{note(march1, "b"), note(february29, "leap"), note(newYear2025, "c"), note(february1, "a")};
    struct Row {
        NotesChoice choice;
        std::vector<std::string> rows;
    };
    for (const Row& row :
         {Row{NotesChoice::none(), {}}, Row{NotesChoice::all(), {"b", "leap", "c", "a"}},
          Row{NotesChoice::ofMonth(february29), {"a", "leap"}}, Row{NotesChoice::ofYear(2024), {"b", "leap", "a"}},
          Row{NotesChoice::matching("A", "de_DE"), {"leap", "a"}}}) {
        EXPECT_EQ(textsOf(row.choice.of(notes)), row.rows);
        for (const Value& each : notes) {
            const std::string text = textsOf({each}).front();
            EXPECT_EQ(row.choice.holds(each), std::ranges::count(row.rows, text) == 1) << text;
        }
    }
}

TEST_F(NoteQueriesTest, AnAddedNoteStandsAtItsDateInAMonthAndLastElsewhere)
{
    const Table rows{Value(Array{note(february1, "a")}), withoutDate, note(march1, "b")};
    EXPECT_EQ(NotesChoice::ofMonth(february1).placeAmong(rows, note(february29, "leap")), 2);
    EXPECT_EQ(NotesChoice::ofMonth(february1).placeAmong(rows, note(january31, "x")), 0);
    EXPECT_EQ(NotesChoice::ofMonth(february1).placeAmong(rows, note(july15, "x")), 3);
    EXPECT_EQ(NotesChoice::all().placeAmong(rows, note(january31, "x")), 3);
    EXPECT_EQ(NotesChoice::ofMonth(february1).placeAmong({}, note(january31, "x")), 0);
}

} // namespace
