// SPDX-License-Identifier: MIT
#include "notes/NoteQueries.h"

#include "dates/DateUtilities.h"
#include "search/TextSearch.h"
#include "store/Record.h"

#include <algorithm>

namespace {

std::optional<Date> noteDateOf(const Value& element)
{
    const Value* record = NoteQueries::recordOf(element);
    return record ? dateOf(*record, NoteDateKey) : std::nullopt;
}

template <typename Predicate> Table elementsWhere(const Table& table, Predicate predicate)
{
    Table result;
    std::ranges::copy_if(table, std::back_inserter(result), predicate);
    return result;
}

/// The first note of each of `dates`, which ascend; null where there is none.
std::vector<const Value*> firstNotesOf(const Table& table, std::span<const Date> dates)
{
    std::vector<const Value*> found(dates.size());
    for (const Value& element : table) {
        const std::optional<Date> date = noteDateOf(element);
        if (!date || dates.empty() || *date < dates.front() || *date > dates.back()) {
            continue;
        }
        const auto equal = std::equal_range(dates.begin(), dates.end(), *date);
        for (auto place = equal.first; place != equal.second; ++place) {
            const Value*& first = found.at(static_cast<std::size_t>(place - dates.begin()));
            first = first ? first : &element;
        }
    }
    return found;
}

Value noteOf(const std::optional<Value>& date, const Value& text)
{
    Dictionary note;
    note.reserve(2);
    if (date) {
        note.set(NoteDateKey, *date);
    }
    note.set(NoteDataKey, text);
    return Value(std::move(note));
}

} // namespace

const Value* NoteQueries::recordOf(const Value& element)
{
    if (element.dictionary()) {
        return &element;
    }
    if (const Array* list = element.array()) {
        for (const Value& inside : *list) {
            if (const Value* record = recordOf(inside)) {
                return record;
            }
        }
    }
    return nullptr;
}

std::optional<Value> NoteQueries::valueOf(const Value& element, std::string_view key)
{
    const Value* record = recordOf(element);
    return record ? record->dictionary().find(key) : std::nullopt;
}

std::int64_t NoteQueries::doesTVDataHaveDate(const Table& table, Date date)
{
    const auto found =
        std::ranges::find_if(table, [date](const Value& element) { return noteDateOf(element) == date; });
    return found == table.end() ? DateUtilities::NotFound : found - table.begin();
}

std::vector<std::string> NoteQueries::textsOfDates(const Table& table, std::span<const Date> dates)
{
    const std::vector<const Value*> found = firstNotesOf(table, dates);
    std::vector<std::string> texts(dates.size());
    std::ranges::transform(found, texts.begin(), [](const Value* element) {
        const Value* record = element ? recordOf(*element) : nullptr;
        return std::string(record ? textOf(*record, NoteDataKey).value_or("") : "");
    });
    return texts;
}

IndexSet NoteQueries::datesWithNotes(const Table& table, std::span<const Date> dates)
{
    const std::vector<const Value*> found = firstNotesOf(table, dates);
    IndexSet indexes;
    for (std::size_t index = 0; index < found.size(); ++index) {
        if (found.at(index)) {
            indexes.insert(indexes.end(), static_cast<std::int64_t>(index));
        }
    }
    return indexes;
}

NoteQueries::DaysWithNotes NoteQueries::daysWithNotes(const Table& notes, const Table& list, std::span<const Date> days)
{
    std::vector<Date> distinct(days.begin(), days.end());
    distinct.erase(std::unique(distinct.begin(), distinct.end()), distinct.end());
    const IndexSet all = datesWithNotes(notes, distinct);
    const IndexSet inList = datesWithNotes(list, distinct);
    const auto isListed = [&inList](std::int64_t day) { return inList.contains(day); };
    return {.all = all.size(), .listed = static_cast<std::size_t>(std::ranges::count_if(all, isListed))};
}

std::int64_t NoteQueries::indexNearestTo(const Table& table, Date date)
{
    std::int64_t nearest = DateUtilities::NotFound;
    auto least = Date::duration::max();
    for (std::int64_t index = 0; index < table.size(); ++index) {
        const std::optional<Date> each = noteDateOf(table.at(index));
        const auto distance = each ? (*each < date ? date - *each : *each - date) : Date::duration::max();
        if (distance < least) {
            least = distance;
            nearest = index;
        }
    }
    return nearest;
}

Table NoteQueries::copySpecificNoteFromArray(const Table& table, Date forDate)
{
    return notesBetween(table, forDate, forDate);
}

Table NoteQueries::notesBetween(const Table& table, Date first, Date last)
{
    return elementsWhere(table, [first, last](const Value& element) {
        const std::optional<Date> date = noteDateOf(element);
        return date && *date >= first && *date <= last;
    });
}

Table NoteQueries::copyArrayOfDatesHavingNotes(const Table& table, Date forDate)
{
    const auto [year, month, day] = DateUtilities::yearMonthDayFromDate(forDate);
    return notesBetween(table, DateUtilities::dateFromYear(year, month, 1),
                        DateUtilities::dateFromYear(year, month, DateUtilities::daysInMonth(forDate)));
}

Table NoteQueries::copyCurrentYearNotes(const Table& table, int currentYear)
{
    return notesBetween(table, DateUtilities::dateFromYear(currentYear, 1, 1),
                        DateUtilities::dateFromYear(currentYear, 12, 31));
}

IndexSet NoteQueries::copyIdxSetOfNotes(const Table& records, const Table& fromTableViewArray)
{
    IndexSet indexes;
    for (const Value& record : records) {
        if (const auto index = fromTableViewArray.indexOf(record); index >= 0) {
            indexes.insert(index);
        }
    }
    return indexes;
}

IndexSet NoteQueries::copyComplementOfSet(const IndexSet& indexes, std::int64_t count)
{
    IndexSet complement;
    for (std::int64_t index = 0; index < count; ++index) {
        if (!indexes.contains(index)) {
            complement.insert(complement.end(), index);
        }
    }
    return complement;
}

Table NoteQueries::filterNotes(const Table& table, const TextSearch& search)
{
    Table matches;
    for (const Value& element : table) {
        const Value* record = recordOf(element);
        const std::optional<std::string_view> text = record ? textOf(*record, NoteDataKey) : std::nullopt;
        if (text && search.isContainedIn(*text)) {
            const std::optional<Value> note = record->datedText(NoteDateKey, NoteDataKey);
            matches.append(note ? *note : noteOf(valueOf(element, NoteDateKey), *valueOf(element, NoteDataKey)));
        }
    }
    return matches;
}

std::optional<Value> NoteQueries::copyDictWithHolidayDateAndDesc(std::string_view nameKey,
                                                                 const std::string& holidayName,
                                                                 std::string_view dateKey, Date holidayDate,
                                                                 const Table& inFileArray)
{
    const auto found = std::ranges::find_if(inFileArray, [&](const Value& element) {
        const std::optional<Value> name = valueOf(element, nameKey);
        const std::optional<Value> date = valueOf(element, dateKey);
        return name && date && name->text() && *name->text() == holidayName && date->date() &&
               *date->date() == holidayDate;
    });
    return found == inFileArray.end() ? std::nullopt : std::optional(*found);
}

void NoteQueries::addLineToNote(Table& table, Date date, const std::string& line)
{
    const std::int64_t index = doesTVDataHaveDate(table, date);
    if (index == DateUtilities::NotFound) {
        table.append(makeNoteRecord(date, line));
        return;
    }
    const Value* record = recordOf(table.at(index));
    std::string text(record ? textOf(*record, NoteDataKey).value_or("") : "");
    if (text.find(line) == std::string::npos) {
        text += '\r';
        text += line;
    }
    table[index] = makeNoteRecord(date, std::move(text));
}

void NoteQueries::removeEqual(Table& table, const Value& element)
{
    // A copy, because `element` may be an element of the table.
    const Value removed = element;
    const Value* record = recordOf(removed);
    table.removeIf([&](const Value& other) {
        const Value* otherRecord = recordOf(other);
        return other == removed || (record && otherRecord && *otherRecord == *record);
    });
}
