// SPDX-License-Identifier: MIT
#include "plist/Value.h"

#include <algorithm>
#include <cmath>
#include <numeric>

Value::Value() : Value(std::string()) {}
Value::Value(bool boolean) : m_value(boolean) {}
Value::Value(Integer integer) : m_value(integer) {}
Value::Value(double real) : m_value(real) {}
Value::Value(Date date) : m_value(date) {}
Value::Value(std::vector<std::byte> data) : m_value(std::make_shared<const std::vector<std::byte>>(std::move(data))) {}
Value::Value(std::string utf8) : m_value(std::make_shared<const std::string>(std::move(utf8))) {}
Value::Value(const char* utf8) : Value(std::string(utf8)) {}
Value::Value(Array array) : m_value(std::make_shared<const Array>(std::move(array))) {}
Value::Value(Dictionary dictionary) : m_value(std::make_shared<const Dictionary>(std::move(dictionary))) {}

Value Value::ofRecord(SharedDatedTexts texts, std::uint32_t record, bool isDateFirst)
{
    Value value(false);
    value.m_value = SharedRecord{.texts = std::move(texts), .record = record, .isDateFirst = isDateFirst};
    return value;
}

Value Value::ofText(SharedDatedTexts texts, std::uint32_t record)
{
    Value value(false);
    value.m_value = SharedText{.texts = std::move(texts), .record = record};
    return value;
}

Value::Type Value::type() const
{
    if (std::holds_alternative<SharedText>(m_value)) {
        return Type::TextType;
    }
    return std::holds_alternative<SharedRecord>(m_value) ? Type::DictionaryType : static_cast<Type>(m_value.index());
}

std::optional<std::string_view> Value::text() const
{
    if (const auto* held = std::get_if<SharedText>(&m_value)) {
        return held->texts->text(held->record);
    }
    const auto* held = shared<std::string>();
    return held ? std::optional<std::string_view>(*held) : std::nullopt;
}

DictionaryView Value::dictionary() const
{
    const auto* record = std::get_if<SharedRecord>(&m_value);
    return record ? DictionaryView(record) : DictionaryView(shared<Dictionary>());
}

std::optional<Value> Value::datedText(std::string_view dateKey, std::string_view textKey) const
{
    const auto* held = std::get_if<SharedRecord>(&m_value);
    if (!held || held->texts->dateKey != dateKey || held->texts->textKey != textKey) {
        return std::nullopt;
    }
    return held->isDateFirst ? *this : ofRecord(held->texts, held->record, true);
}

bool operator==(const Value& a, const Value& b)
{
    if (a.type() != b.type()) {
        return false;
    }
    if (a.isSameObject(b)) {
        return true;
    }
    switch (a.type()) {
    case Value::Type::RealType:
        return std::isnan(*a.real()) && std::isnan(*b.real());
    case Value::Type::DataType:
        return *a.data() == *b.data();
    case Value::Type::TextType:
        return *a.text() == *b.text();
    case Value::Type::ArrayType:
        return *a.array() == *b.array();
    case Value::Type::DictionaryType:
        return *a.dictionary() == *b.dictionary();
    default:
        return false; // the plain types were compared above
    }
}

bool Value::isSameObject(const Value& other) const
{
    return m_value == other.m_value; // shared pointers compare by address
}

std::optional<Value> DictionaryView::find(std::string_view key) const
{
    if (!m_record) {
        const Value* found = m_dictionary->find(key);
        return found ? std::optional(*found) : std::nullopt;
    }
    const SharedDatedTexts& texts = m_record->texts;
    if (key == texts->dateKey) {
        return Value(texts->records[m_record->record].date);
    }
    return key == texts->textKey ? std::optional(Value::ofText(texts, m_record->record)) : std::nullopt;
}

std::optional<Date> DictionaryView::date(std::string_view key) const
{
    if (m_record) {
        const DatedTexts& texts = *m_record->texts;
        return key == texts.dateKey ? std::optional(texts.records[m_record->record].date) : std::nullopt;
    }
    const Value* found = m_dictionary->find(key);
    const Date* date = found ? found->date() : nullptr;
    return date ? std::optional(*date) : std::nullopt;
}

std::optional<std::string_view> DictionaryView::text(std::string_view key) const
{
    if (m_record) {
        const DatedTexts& texts = *m_record->texts;
        return key == texts.textKey ? std::optional(texts.text(m_record->record)) : std::nullopt;
    }
    const Value* found = m_dictionary->find(key);
    return found ? found->text() : std::nullopt;
}

DictionaryView::Entry DictionaryView::entry(std::size_t index) const
{
    if (!m_record) {
        const auto& [key, value] = m_dictionary->at(index);
        return {key, value};
    }
    const DatedTexts& texts = *m_record->texts;
    const std::string& key = (index == 0) == m_record->isDateFirst ? texts.dateKey : texts.textKey;
    return {key, *find(key)};
}

bool operator==(const DictionaryView& a, const DictionaryView& b)
{
    if (a.m_dictionary && b.m_dictionary) {
        return *a.m_dictionary == *b.m_dictionary;
    }
    const auto isInB = [&b](const DictionaryView::Entry& entry) { return b.find(entry.key) == entry.value; };
    return a.size() == b.size() && std::all_of(a.begin(), a.end(), isInB);
}

Dictionary::Dictionary(const DictionaryView& view)
{
    reserve(view.size());
    for (const auto& [key, value] : view) {
        m_entries.emplace_back(key, value);
    }
}

Dictionary::Dictionary(std::initializer_list<Entry> entries) : Dictionary(std::vector<Entry>(entries)) {}

namespace {

/// Above this, keys are sorted: comparing all keys with each other would let a file of a few megabytes take hours.
constexpr std::size_t fewEntries = 16;

using Places = std::vector<std::uint32_t>;

/// The indexes of the entries sorted by key, and those of equal keys by index. Sorted rather than hashed because a file
/// can be crafted so that all keys share one hash.
Places placesByKey(const std::vector<Dictionary::Entry>& entries)
{
    Places places(entries.size());
    std::iota(places.begin(), places.end(), 0U);
    std::sort(places.begin(), places.end(), [&entries](std::uint32_t a, std::uint32_t b) {
        const int order = entries[a].first.compare(entries[b].first);
        return order < 0 || (order == 0 && a < b);
    });
    return places;
}

/// For each entry, the index of the first one with the same key.
Places firstPlaces(const std::vector<Dictionary::Entry>& entries)
{
    const Places places = placesByKey(entries);
    Places firsts(entries.size());
    for (std::size_t i = 0; i < places.size(); ++i) {
        const bool isRepeated = i > 0 && entries[places[i]].first == entries[places[i - 1]].first;
        firsts[places[i]] = isRepeated ? firsts[places[i - 1]] : places[i];
    }
    return firsts;
}

} // namespace

Dictionary::Dictionary(std::vector<Entry> entries) : m_entries(std::move(entries))
{
    const bool areFew = m_entries.size() <= fewEntries;
    Places firsts = areFew ? Places() : firstPlaces(m_entries);
    std::size_t kept = 0;
    for (std::size_t i = 0; i < m_entries.size(); ++i) {
        Entry& entry = m_entries[i];
        std::size_t place = 0;
        if (areFew) {
            const auto end = m_entries.begin() + static_cast<std::ptrdiff_t>(kept);
            place = static_cast<std::size_t>(
                std::find_if(m_entries.begin(), end, [&entry](const Entry& e) { return e.first == entry.first; }) -
                m_entries.begin());
        } else {
            const std::size_t first = firsts[i];
            place = first == i ? kept : firsts[first];
            firsts[i] = static_cast<std::uint32_t>(place); // for later entries with this key: where it is now
        }
        if (place < kept) {
            m_entries[place].second = std::move(entry.second);
        } else if (kept++ != i) {
            m_entries[place] = std::move(entry);
        }
    }
    m_entries.resize(kept);
}

const Value* Dictionary::find(std::string_view key) const
{
    const auto found = std::ranges::find(m_entries, key, &Entry::first);
    return found == m_entries.end() ? nullptr : &found->second;
}

void Dictionary::set(std::string_view key, Value value)
{
    const auto found = std::ranges::find(m_entries, key, &Entry::first);
    if (found == m_entries.end()) {
        m_entries.emplace_back(std::string(key), std::move(value));
    } else {
        found->second = std::move(value);
    }
}

bool operator==(const Dictionary& a, const Dictionary& b)
{
    if (a.size() != b.size()) {
        return false;
    }
    if (a.size() > fewEntries) {
        return std::ranges::equal(placesByKey(a.m_entries), placesByKey(b.m_entries),
                                  [&](std::uint32_t i, std::uint32_t j) { return a.m_entries[i] == b.m_entries[j]; });
    }
    return std::ranges::all_of(a, [&b](const Dictionary::Entry& entry) {
        const Value* other = b.find(entry.first);
        return other && *other == entry.second;
    });
}
