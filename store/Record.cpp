// SPDX-License-Identifier: MIT
#include "store/Record.h"

namespace {

const Value* find(const Value& record, std::string_view key)
{
    const Dictionary* dictionary = record.dictionary();
    return dictionary ? dictionary->find(key) : nullptr;
}

Value withValue(const Value& record, std::string_view key, Value value)
{
    if (!record.dictionary()) {
        return record;
    }
    Dictionary changed = *record.dictionary();
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
    const Value* value = find(record, key);
    const Date* date = value ? value->date() : nullptr;
    return date ? std::optional(*date) : std::nullopt;
}

const std::string* textOf(const Value& record, std::string_view key)
{
    const Value* value = find(record, key);
    return value ? value->text() : nullptr;
}

std::optional<DatedText> datedTextOf(const Value& record)
{
    const std::optional<Date> date = dateOf(record, NoteDateKey);
    const std::string* text = textOf(record, NoteDataKey);
    return date && text ? std::optional(DatedText{.date = *date, .text = *text}) : std::nullopt;
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
        const Value* date = find(note, NoteDateKey);
        const Value* text = find(note, NoteDataKey);
        if (date && text) {
            cleaned.append(Value(Dictionary{{std::string(NoteDateKey), *date}, {std::string(NoteDataKey), *text}}));
        }
    }
    return cleaned;
}
