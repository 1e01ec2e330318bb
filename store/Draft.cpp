// SPDX-License-Identifier: MIT
#include "store/Draft.h"

#include <algorithm>
#include <chrono>
#include <functional>
#include <iterator>
#include <map>
#include <set>
#include <string_view>
#include <utility>

namespace {

constexpr std::string_view versionKey = "DraftVersion";
constexpr std::uint64_t version = 1;
constexpr std::string_view deletedKey = "DraftDeleted";

/// The keys of a change's values in its record.
struct Keys {
    std::string_view date;
    std::string_view text;
    std::string_view savedDate;
    std::string_view savedText;
};

constexpr Keys noteKeys{NoteDateKey, NoteDataKey, "SavedNoteDateKey", "SavedNoteDataKey"};
constexpr Keys eventKeys{EventDateKey, EventNameKey, "SavedEventDateKey", "SavedEventNameKey"};

const Keys& keysOf(DraftChange::Kind kind)
{
    return kind == DraftChange::Kind::Note ? noteKeys : eventKeys;
}

std::optional<DatedText> datedTextUnder(const Value& record, std::string_view dateKey, std::string_view textKey)
{
    const std::optional<Date> date = dateOf(record, dateKey);
    const std::optional<std::string_view> text = textOf(record, textKey);
    return date && text ? std::optional(DatedText{*date, std::string(*text)}) : std::nullopt;
}

/// The date as a file keeps it, in whole seconds.
Date inFile(Date date)
{
    return std::chrono::floor<std::chrono::seconds>(date);
}

bool isSame(const DatedText& a, const DatedText& b)
{
    return inFile(a.date) == inFile(b.date) && a.text == b.text;
}

/// The parts of two tables that remain without their common beginning and end.
std::pair<Table, Table> differingParts(const Table& a, const Table& b)
{
    if (a.constData() == b.constData() && a.size() == b.size()) {
        return {}; // one table, shared: no need to compare
    }
    const auto [beginOfA, beginOfB] = std::ranges::mismatch(a, b);
    const auto endOfA = std::make_reverse_iterator(beginOfA);
    const auto endOfB = std::make_reverse_iterator(beginOfB);
    const auto [lastOfA, lastOfB] = std::mismatch(a.rbegin(), endOfA, b.rbegin(), endOfB);
    return {Table(beginOfA, lastOfA.base()), Table(beginOfB, lastOfB.base())};
}

using TextsByDate = std::map<Date, std::string>;

/// Of several notes on a day the first counts.
TextsByDate textsByDate(const Table& notes)
{
    TextsByDate texts;
    for (const Value& note : notes) {
        if (std::optional<DatedText> read = datedTextOf(note)) {
            texts.emplace(read->date, std::move(read->text));
        }
    }
    return texts;
}

std::optional<DatedText> noteIn(const TextsByDate& texts, Date date)
{
    const auto found = texts.find(date);
    return found != texts.end() ? std::optional(DatedText{date, found->second}) : std::nullopt;
}

/// The elements of `events` that `others` lacks; one that is in both counts as often as `events` has more of it.
std::vector<DatedText> missingIn(const Table& others, const Table& events)
{
    std::map<std::pair<Date, std::string>, int> counts;
    for (const Value& other : others) {
        if (std::optional<DatedText> read = datedTextUnder(other, EventDateKey, EventNameKey)) {
            ++counts[{read->date, std::move(read->text)}];
        }
    }
    std::vector<DatedText> missing;
    for (const Value& event : events) {
        std::optional<DatedText> read = datedTextUnder(event, EventDateKey, EventNameKey);
        if (read && --counts[{read->date, read->text}] < 0) {
            missing.push_back(std::move(*read));
        }
    }
    return missing;
}

std::optional<DatedText> elementAt(const std::vector<DatedText>& texts, std::size_t index)
{
    return index < texts.size() ? std::optional(texts[index]) : std::nullopt;
}

Value recordFrom(const DraftChange& change)
{
    const Keys& keys = keysOf(change.kind);
    Dictionary record;
    if (change.unsaved) {
        record.set(keys.date, Value(change.unsaved->date));
        record.set(keys.text, Value(change.unsaved->text));
    } else {
        record.set(deletedKey, Value(true));
    }
    if (change.saved) {
        record.set(keys.savedDate, Value(change.saved->date));
        record.set(keys.savedText, Value(change.saved->text));
    }
    return Value(std::move(record));
}

std::optional<DraftChange> changeFrom(const Value& record)
{
    const DictionaryView dictionary = record.dictionary();
    for (const DraftChange::Kind kind : {DraftChange::Kind::Note, DraftChange::Kind::Event}) {
        const Keys& keys = keysOf(kind);
        DraftChange change{kind, datedTextUnder(record, keys.savedDate, keys.savedText),
                           datedTextUnder(record, keys.date, keys.text)};
        const bool isDeletion = change.saved && dictionary->find(deletedKey);
        if (change.unsaved || isDeletion) {
            return change;
        }
    }
    return std::nullopt;
}

/// The text of a note for which the draft has another one.
std::string mergedText(std::string_view current, const DraftChange& change)
{
    const std::string& typed = change.unsaved->text;
    const bool isUntouched = change.saved && change.saved->text == current;
    if (isUntouched || typed.starts_with(current)) {
        return typed;
    }
    return current.starts_with(typed) ? std::string(current) : std::string(current).append("\n\n").append(typed);
}

Table::iterator findEvent(Table& events, const DatedText& wanted)
{
    return std::ranges::find_if(events, [&](const Value& event) {
        const std::optional<DatedText> read = datedTextUnder(event, EventDateKey, EventNameKey);
        return read && isSame(*read, wanted);
    });
}

/// Finds notes by their day, so that a draft of many changes does not search for each.
class NotesByDay {
public:
    explicit NotesByDay(Table& notes) : m_notes(notes)
    {
        for (qsizetype i = 0; i < notes.size(); ++i) {
            if (const std::optional<Date> date = dateOf(notes.at(i), NoteDateKey)) {
                m_indexes.emplace(*date, i); // of several notes on a day the first counts
            }
        }
    }

    /// Returns whether that changes a note.
    bool restore(const DraftChange& change) { return change.unsaved ? put(change) : remove(*change.saved); }

    /// Deletes what was removed, after which the indexes are no longer valid.
    void finish()
    {
        for (const qsizetype index : m_removed) {
            m_notes.removeAt(index);
        }
    }

private:
    bool put(const DraftChange& change)
    {
        const DatedText& typed = *change.unsaved;
        const auto [found, isNew] = m_indexes.emplace(typed.date, m_notes.size());
        if (isNew) {
            m_notes.append(makeNoteRecord(typed.date, typed.text));
            return true;
        }
        const std::optional<std::string_view> current = textOf(m_notes.at(found->second), NoteDataKey);
        std::string merged = mergedText(current.value_or(""), change);
        if (current && merged == *current) {
            return false;
        }
        m_notes[found->second] = withText(m_notes.at(found->second), NoteDataKey, std::move(merged));
        return true;
    }

    bool remove(const DatedText& saved)
    {
        const auto found = m_indexes.find(saved.date);
        const std::optional<std::string_view> current =
            found != m_indexes.end() ? textOf(m_notes.at(found->second), NoteDataKey) : std::nullopt;
        if (!current || *current != saved.text) {
            return false;
        }
        m_removed.insert(found->second);
        m_indexes.erase(found);
        return true;
    }

    Table& m_notes;
    std::map<Date, qsizetype> m_indexes;
    std::set<qsizetype, std::greater<>> m_removed; ///< highest first, so that the others stay valid
};

/// Returns whether that changes an important date.
bool restoreEvent(const DraftChange& change, Table& events)
{
    const auto saved = change.saved ? findEvent(events, *change.saved) : events.end();
    if (!change.unsaved) {
        if (saved == events.end()) {
            return false;
        }
        events.erase(saved);
        return true;
    }
    if (findEvent(events, *change.unsaved) != events.end()) {
        return false; // it has been saved since
    }
    Value event = makeEventRecord(change.unsaved->date, change.unsaved->text);
    if (saved != events.end()) {
        *saved = std::move(event);
    } else {
        events.append(std::move(event));
    }
    return true;
}

} // namespace

namespace Drafts {

Date dateOf(const DraftChange& change)
{
    return change.unsaved ? change.unsaved->date : change.saved->date;
}

bool holds(const Draft& draft, DraftChange::Kind kind)
{
    return std::ranges::find(draft, kind, &DraftChange::kind) != draft.end();
}

Draft changedNotes(const Table& saved, const Table& current)
{
    const auto [savedPart, currentPart] = differingParts(saved, current);
    const TextsByDate before = textsByDate(savedPart);
    const TextsByDate now = textsByDate(currentPart);
    Draft draft;
    for (const auto& [date, text] : now) {
        std::optional<DatedText> former = noteIn(before, date);
        if (!former || former->text != text) {
            draft.push_back({DraftChange::Kind::Note, std::move(former), DatedText{date, text}});
        }
    }
    for (const auto& [date, text] : before) {
        if (!now.contains(date)) {
            draft.push_back({DraftChange::Kind::Note, DatedText{date, text}, std::nullopt});
        }
    }
    return draft;
}

Draft changedEvents(const Table& saved, const Table& current)
{
    const auto [savedPart, currentPart] = differingParts(saved, current);
    const std::vector<DatedText> removed = missingIn(currentPart, savedPart);
    const std::vector<DatedText> added = missingIn(savedPart, currentPart);
    Draft draft;
    for (std::size_t i = 0; i < std::max(removed.size(), added.size()); ++i) {
        draft.push_back({DraftChange::Kind::Event, elementAt(removed, i), elementAt(added, i)});
    }
    return draft;
}

Table tableFromDraft(const Draft& draft)
{
    Table table{Value(Dictionary{{std::string(versionKey), Value(Integer{.magnitude = version})}})};
    std::ranges::transform(draft, std::back_inserter(table), recordFrom);
    return table;
}

std::optional<Draft> draftFromTable(const Table& table)
{
    const DictionaryView head = table.isEmpty() ? DictionaryView() : table.front().dictionary();
    const std::optional<Value> written = head ? head.find(versionKey) : std::nullopt;
    const Integer* number = written ? written->integer() : nullptr;
    if (!number || *number != Integer{.magnitude = version}) {
        return std::nullopt;
    }
    Draft draft;
    for (const Value& record : table.sliced(1)) {
        std::optional<DraftChange> change = changeFrom(record);
        if (!change) {
            return std::nullopt;
        }
        draft.push_back(std::move(*change));
    }
    return draft;
}

void restoreNotes(const Draft& draft, Table& notes)
{
    NotesByDay days(notes);
    for (const DraftChange& change : draft) {
        if (change.kind == DraftChange::Kind::Note) {
            days.restore(change);
        }
    }
    days.finish();
}

void restoreEvents(const Draft& draft, Table& events)
{
    for (const DraftChange& change : draft) {
        if (change.kind == DraftChange::Kind::Event) {
            restoreEvent(change, events);
        }
    }
}

void forgetSaved(Draft& draft, Table notes, Table events)
{
    NotesByDay days(notes);
    std::erase_if(draft, [&](const DraftChange& change) {
        return change.kind == DraftChange::Kind::Note ? !days.restore(change) : !restoreEvent(change, events);
    });
}

} // namespace Drafts
