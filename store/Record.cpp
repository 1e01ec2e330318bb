// SPDX-License-Identifier: MIT
#include "store/Record.h"

namespace {

std::optional<Value> find(const Value& record, std::string_view key)
{
    const DictionaryView dictionary = record.dictionary();
    return dictionary ? dictionary.find(key) : std::nullopt;
}

Value withValue(const Value& record, std::string_view key, Value value)
{
    if (!record.dictionary()) {
        return record;
    }
    Dictionary changed(*record.dictionary());
    changed.set(key, std::move(value));
    return Value(std::move(changed));
}

} // namespace

Value makeNoteRecord(Date date, std::string text)
{
    return Value(
        Dictionary{{std::string(NoteDateKey), Value(date)}, {std::string(NoteDataKey), Value(std::move(text))}});
}

Value makeEventRecord(Date date, std::string name)
{
    return Value(
        Dictionary{{std::string(EventDateKey), Value(date)}, {std::string(EventNameKey), Value(std::move(name))}});
}

const Table& elementsOf(const std::optional<Table>& table)
{
    static const Table none;
    return table ? *table : none;
}

std::optional<Date> dateOf(const Value& record, std::string_view key)
{
    const DictionaryView dictionary = record.dictionary();
    return dictionary ? dictionary.date(key) : std::nullopt;
}

std::optional<std::string_view> textOf(const Value& record, std::string_view key)
{
    const DictionaryView dictionary = record.dictionary();
    return dictionary ? dictionary.text(key) : std::nullopt;
}

std::optional<DatedText> datedTextOf(const Value& record)
{
    const std::optional<Date> date = dateOf(record, NoteDateKey);
    const std::optional<std::string_view> text = textOf(record, NoteDataKey);
    return date && text ? std::optional(DatedText{.date = *date, .text = std::string(*text)}) : std::nullopt;
}

Value withText(const Value& record, std::string_view key, std::string text)
{
    return withValue(record, key, Value(std::move(text)));
}

Value withDate(const Value& record, std::string_view key, Date date)
{
    return withValue(record, key, Value(date));
}

Table cleanedNotes(const Table& notes)
{
    Table cleaned;
    cleaned.reserve(notes.size());
    for (const Value& note : notes) {
        if (const std::optional<Value> clean = note.datedText(NoteDateKey, NoteDataKey)) {
            cleaned.append(*clean);
            continue;
        }
        const std::optional<Value> date = find(note, NoteDateKey);
        const std::optional<Value> text = find(note, NoteDataKey);
        if (date && text) {
            cleaned.append(Value(Dictionary{{std::string(NoteDateKey), *date}, {std::string(NoteDataKey), *text}}));
        }
    }
    return cleaned;
}
