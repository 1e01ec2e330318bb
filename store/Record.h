// SPDX-License-Identifier: MIT
#pragma once

#include "plist/Value.h"

#include <optional>
#include <string>
#include <string_view>

// The names of the two data files, and the keys of the records in them.
inline constexpr std::string_view NotesFileName = "TALV VeluMora";
inline constexpr std::string_view EventsFileName = "TALV Events";
inline constexpr std::string_view NoteDateKey = "NoteDateKey";
inline constexpr std::string_view NoteDataKey = "NoteDataKey";
inline constexpr std::string_view EventDateKey = "EventDateKey";
inline constexpr std::string_view EventNameKey = "EventNameKey";

/// The values of a note or an important date.
struct DatedText {
    Date date;
    std::string text;

    bool operator==(const DatedText&) const = default;
};

/// The record of a note on the calendar day `date`.
Value makeNoteRecord(Date date, std::string text);

/// The record of an important date; `name` is its description.
Value makeEventRecord(Date date, std::string name);

/// The elements of `table`; none for nullopt.
const Table& elementsOf(const std::optional<Table>& table);

/// The date under `key`; nullopt when `record` is not a dictionary, lacks the key or has a value of another type there.
std::optional<Date> dateOf(const Value& record, std::string_view key);

/// Date and text of a note; nullopt when `record` lacks one of them.
std::optional<DatedText> datedTextOf(const Value& record);

/// The text under `key`; nullopt in the same cases. Valid as long as some copy of the record exists.
std::optional<std::string_view> textOf(const Value& record, std::string_view key);

/// A copy of `record` with `text` under `key` and every other key unchanged. A value that is not a dictionary is
/// returned unchanged.
Value withText(const Value& record, std::string_view key, std::string text);

/// The same with a date under `key`.
Value withDate(const Value& record, std::string_view key, Date date);

/// The notes that have both a date and a text, in their order, each with these two keys only.
Table cleanedNotes(const Table& notes);
