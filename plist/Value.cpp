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
