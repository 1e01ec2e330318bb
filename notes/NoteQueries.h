// SPDX-License-Identifier: MIT
#pragma once

#include "dates/Date.h"
#include "plist/Value.h"
#include "store/SortDescriptor.h"

#include <cstdint>
#include <optional>
#include <set>
#include <span>
#include <string>
#include <string_view>
#include <vector>

class TextSearch;

/// Indexes into a table.
using IndexSet = std::set<std::int64_t>;

/// Queries on a table of records. An element may be a list instead (a clicked reminder leaves the notes of its day as
/// one element), in which case the first record inside counts. Results share their elements with the table.
namespace NoteQueries {

/// `element` itself when it is a record, the first record inside when it is a list, else null.
const Value* recordOf(const Value& element);

/// The value under `key` in the record of `element`; null when there is none.
std::optional<Value> valueOf(const Value& element, std::string_view key);

/// The index of the first note dated exactly `date`; `DateUtilities::NotFound` when there is none.
std::int64_t doesTVDataHaveDate(const Table& table, Date date);

/// For each of `dates`, which must ascend, the text of the note that `doesTVDataHaveDate` finds, empty when there is
/// none. One pass over the table.
std::vector<std::string> textsOfDates(const Table& table, std::span<const Date> dates);

/// The indexes of those `dates`, which must ascend, that have a note. One pass over the table.
IndexSet datesWithNotes(const Table& table, std::span<const Date> dates);

/// How many of some days have a note.
struct DaysWithNotes {
    std::size_t all = 0;    ///< in the notes
    std::size_t listed = 0; ///< of those, how many also in the list

    bool operator==(const DaysWithNotes&) const = default;
};

/// `notes` are all notes, `list` those of them that a list shows. `days` ascend; one that stands there twice, because
/// the zone left the day before it out, counts once.
DaysWithNotes daysWithNotes(const Table& notes, const Table& list, std::span<const Date> days);

/// The index of the note dated nearest to `date`, the first of equally near ones; `DateUtilities::NotFound` in a table
/// without dates.
std::int64_t indexNearestTo(const Table& table, Date date);

/// The notes dated exactly `forDate`.
Table copySpecificNoteFromArray(const Table& table, Date forDate);

/// The notes dated from `first` to `last`, both inclusive, in table order.
Table notesBetween(const Table& table, Date first, Date last);

/// The notes dated from midnight of the first to midnight of the last day of the month of `forDate`, in table order.
Table copyArrayOfDatesHavingNotes(const Table& table, Date forDate);

/// The notes dated from midnight of day 1 of month 1 to midnight of day 31 of month 12 of `currentYear`, in table
/// order.
Table copyCurrentYearNotes(const Table& table, int currentYear);

/// For each of `records`, the index of the first equal element of `fromTableViewArray`, if there is one.
IndexSet copyIdxSetOfNotes(const Table& records, const Table& fromTableViewArray);

/// Every index from 0 to `count` - 1 that is not in `indexes`.
IndexSet copyComplementOfSet(const IndexSet& indexes, std::int64_t count);

/// The notes whose text `search` finds, in table order, as new records of date and text only.
Table filterNotes(const Table& table, const TextSearch& search);

/// The first element whose text under `nameKey` is `holidayName` and whose date under `dateKey` is exactly
/// `holidayDate`.
std::optional<Value> copyDictWithHolidayDateAndDesc(std::string_view nameKey, const std::string& holidayName,
                                                    std::string_view dateKey, Date holidayDate,
                                                    const Table& inFileArray);

/// Adds `line` to the first note of `date`, below its text, unless the text contains it already; without such a note,
/// appends a new one. Either way the note becomes a new record of date and text only.
void addLineToNote(Table& table, Date date, const std::string& line);

/// Removes every element that equals `element` or whose record equals its record.
void removeEqual(Table& table, const Value& element);

/// Sorts by `key`, ascending and stably. Values compare by kind: a missing value comes first, then dates by instant,
/// then texts by their UTF-16 code units; values of other kinds come last and are equal to each other.
void sortArrayAscending(Table& table, const std::string& key);

/// Sorts in the same way by the first of `descriptors`, what is equal by the second, and so on.
void sortArray(Table& table, const std::vector<SortDescriptor>& descriptors);

} // namespace NoteQueries
