// SPDX-License-Identifier: MIT
#include "store/Record.h"

#include <gtest/gtest.h>

namespace {

const Date someDay = dateFromUnixSeconds(1795237200);

TEST(Record, NoteHoldsExactlyItsDateAndText)
{
    EXPECT_EQ(makeNoteRecord(someDay, "Dentist"),
              Value(Dictionary{{"NoteDateKey", Value(someDay)}, {"NoteDataKey", Value("Dentist")}}));
}

TEST(Record, EventHoldsExactlyItsDateAndName)
{
    EXPECT_EQ(makeEventRecord(someDay, "Birthday"),
              Value(Dictionary{{"EventDateKey", Value(someDay)}, {"EventNameKey", Value("Birthday")}}));
}

TEST(Record, DateAndTextAreReadBack)
{
    const Value note = makeNoteRecord(someDay, "");
    EXPECT_EQ(dateOf(note, NoteDateKey), someDay);
    EXPECT_EQ(textOf(note, NoteDataKey), "");
}

TEST(Record, WhatIsNotThereOrOfAnotherTypeIsNotRead)
{
    const Value swapped(Dictionary{{"NoteDateKey", Value("today")}, {"NoteDataKey", Value(someDay)}});
    const Value rows[] = {swapped, Value(Dictionary()), Value("text"),
                          Value(Array{makeNoteRecord(someDay, "in a list")}), Value(true)};
    for (const Value& row : rows) {
        EXPECT_EQ(dateOf(row, NoteDateKey), std::nullopt);
        EXPECT_EQ(textOf(row, NoteDataKey), std::nullopt);
    }
}

TEST(Record, ChangedTextLeavesForeignKeysAndTheOldRecordAlone)
{
    const Value old(Dictionary{{"Color", Value(2.5)}, {"NoteDataKey", Value("old")}, {"NoteDateKey", Value(someDay)}});
    const Value changed = withText(old, NoteDataKey, "new");
    EXPECT_EQ(changed,
              Value(Dictionary{{"Color", Value(2.5)}, {"NoteDataKey", Value("new")}, {"NoteDateKey", Value(someDay)}}));
    EXPECT_EQ(*textOf(old, NoteDataKey), "old");
}

TEST(Record, ChangedTextIsAddedWhereThereWasNone)
{
    EXPECT_EQ(withText(Value(Dictionary()), EventNameKey, "new"), Value(Dictionary{{"EventNameKey", Value("new")}}));
}

TEST(Record, WhatIsNoRecordGetsNoText)
{
    EXPECT_EQ(withText(Value("plain"), NoteDataKey, "new"), Value("plain"));
}

TEST(Record, ChangedDateLeavesForeignKeysAndTheOldRecordAlone)
{
    const Value old(Dictionary{{"Color", Value(2.5)}, {"EventDateKey", Value(someDay)}, {"EventNameKey", Value("a")}});
    const Date later = someDay + Date::duration(86400);
    EXPECT_EQ(withDate(old, EventDateKey, later),
              Value(Dictionary{{"Color", Value(2.5)}, {"EventDateKey", Value(later)}, {"EventNameKey", Value("a")}}));
    EXPECT_EQ(dateOf(old, EventDateKey), someDay);
    EXPECT_EQ(withDate(Value("plain"), EventDateKey, later), Value("plain"));
}

TEST(CleanedNotes, KeepsOnlyTheTwoKeysOfNotesThatHaveBothInOrder)
{
    const Value date(someDay);
    const Table found{
        Value(Dictionary{{"NoteDataKey", Value("first")}, {"Extra", Value("x")}, {"NoteDateKey", date}}),
        Value(Dictionary{{"NoteDateKey", date}}),
        Value(Dictionary{{"NoteDataKey", Value("no date")}}),
        Value("no dictionary"),
        makeNoteRecord(someDay, "second"),
        // A value counts whatever its type.
        Value(Dictionary{{"NoteDateKey", Value("a text")}, {"NoteDataKey", Value(7.0)}}),
    };
    const Table expected{
        makeNoteRecord(someDay, "first"),
        makeNoteRecord(someDay, "second"),
        Value(Dictionary{{"NoteDateKey", Value("a text")}, {"NoteDataKey", Value(7.0)}}),
    };
    EXPECT_EQ(cleanedNotes(found), expected);
    EXPECT_EQ(cleanedNotes(expected), expected);
    EXPECT_EQ(cleanedNotes(Table()), Table());
}

} // namespace
