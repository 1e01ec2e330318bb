// SPDX-License-Identifier: MIT
#pragma once

#include "dates/Date.h"
#include "notes/SortDescriptor.h"
#include "plist/Value.h"

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

/// Questions to a table of records. An element that is a list (a clicked reminder leaves the notes of its day as one
/// element) is seen through to the note inside it. Results share the elements that they are made of.
namespace NoteQueries {

/// `element` itself when it is a record, the first record in it when it is a list, else null.
const Value* recordOf(const Value& element);

/// The value that the record of `element` has under `key`, null when there is none.
const Value* valueOf(const Value& element, std::string_view key);

/// The index of the first note whose date equals `date`, `DateUtilities::NotFound` when there is none.
std::int64_t doesTVDataHaveDate(const Table& table, Date date);

/// The text of the note that `doesTVDataHaveDate` finds for each of `dates`, the empty text where there is none; in one
/// pass over the table. `dates` ascend.
std::vector<std::string> textsOfDates(const Table& table, std::span<const Date> dates);

/// The indexes of those of `dates` that have a note, in one pass over the table. `dates` ascend.
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

/// The index of the note whose date is nearest to `date`, the first of equally near ones; `DateUtilities::NotFound` in
/// a table without dates.
std::int64_t indexNearestTo(const Table& table, Date date);

/// The notes whose date equals `forDate`.
Table copySpecificNoteFromArray(const Table& table, Date forDate);

/// The notes dated from `first` to `last`, both inclusive, in table order.
Table notesBetween(const Table& table, Date first, Date last);

/// The notes from midnight of day 1 to midnight of the last day of the month of `forDate`, in table order.
Table copyArrayOfDatesHavingNotes(const Table& table, Date forDate);

/// The notes from midnight of 1 January to midnight of 31 December of `currentYear`, in table order.
Table copyCurrentYearNotes(const Table& table, int currentYear);

/// The indexes in `table` of elements equal to `records`: of each the first one, of those not found none.
IndexSet copyIdxSetOfNotes(const Table& records, const Table& fromTableViewArray);

/// Every index from 0 to `count` - 1 that `indexes` does not hold.
IndexSet copyComplementOfSet(const IndexSet& indexes, std::int64_t count);

/// The notes whose text contains what is searched for, in table order: fresh records of date and text alone.
Table filterNotes(const Table& table, const TextSearch& search);

/// The first element whose text under `nameKey` is `holidayName` and whose date under `dateKey` is that very instant.
std::optional<Value> copyDictWithHolidayDateAndDesc(std::string_view nameKey, const std::string& holidayName,
                                                    std::string_view dateKey, Date holidayDate,
                                                    const Table& inFileArray);

/// Puts `line` into the note of `date`: below the text of the first such note, unless that text holds it somewhere
/// already, or as a new note at the table's end. The note is a fresh record of date and text alone.
void addLineToNote(Table& table, Date date, const std::string& line);

/// Removes every element that is equal to `element` or whose record equals its record.
void removeEqual(Table& table, const Value& element);

/// Sorts by `key`, ascending. Elements that compare equal keep their order. Values compare by kind: a record without
/// the key comes first, then dates by instant, then texts by their UTF-16 code units; values of other kinds come last
/// and are equal to each other.
void sortArrayAscending(Table& table, const std::string& key);

/// Sorts in the same way by the first of `descriptors`, what is equal by it by the second, and so on. Elements that
/// compare equal by all keep their order.
void sortArray(Table& table, const std::vector<SortDescriptor>& descriptors);

} // namespace NoteQueries
