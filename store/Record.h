// SPDX-License-Identifier: MIT
#pragma once

#include "plist/Value.h"

#include <optional>
#include <string>
#include <string_view>

// What the two files are called, and the keys of the records in them.
inline constexpr std::string_view NotesFileName = "TALV VeluMora";
inline constexpr std::string_view EventsFileName = "TALV Events";
inline constexpr std::string_view NoteDateKey = "NoteDateKey";
inline constexpr std::string_view NoteDataKey = "NoteDataKey";
inline constexpr std::string_view EventDateKey = "EventDateKey";
inline constexpr std::string_view EventNameKey = "EventNameKey";

/// The two values of a note.
struct DatedText {
    Date date;
    std::string text;

    bool operator==(const DatedText&) const = default;
};

/// A note of the calendar day `date`.
Value makeNoteRecord(Date date, std::string text);

/// An important date and its description.
Value makeEventRecord(Date date, std::string name);

/// The date under `key`; nullopt when `record` is no dictionary, lacks the key or has something else there.
std::optional<Date> dateOf(const Value& record, std::string_view key);

/// Date and text of a note; nullopt when `record` lacks one of them.
std::optional<DatedText> datedTextOf(const Value& record);

/// The text under `key`, null in the same cases. It lives as long as some copy of the record does.
const std::string* textOf(const Value& record, std::string_view key);

/// A copy of `record` with `text` under `key` and every other key as it was. What is no dictionary is given back as
/// it is.
Value withText(const Value& record, std::string_view key, std::string text);

/// The same with a date under `key`.
Value withDate(const Value& record, std::string_view key, Date date);

/// The notes that have both a date and a text, in their order and each with these two keys only. The rest is left out.
Table cleanedNotes(const Table& notes);
