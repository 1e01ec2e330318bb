// SPDX-License-Identifier: MIT
#include "store/Value.h"

#include <algorithm>
#include <cmath>
#include <unordered_map>

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

Dictionary::Dictionary(std::vector<Entry> entries)
{
    constexpr std::size_t fewEntries = 16;
    if (entries.size() <= fewEntries) {
        m_entries.reserve(entries.size());
        for (Entry& entry : entries) {
            set(entry.first, std::move(entry.second));
        }
        return;
    }
    // Looking through all keys for each key would let a file of a few megabytes take hours.
    std::unordered_map<std::string_view, std::size_t> places;
    places.reserve(entries.size());
    m_entries.reserve(entries.size());
    for (Entry& entry : entries) {
        const auto [place, isNew] = places.try_emplace(entry.first, m_entries.size());
        if (isNew) {
            m_entries.push_back(entry); // a copy: the key in `places` is a view of this one
        } else {
            m_entries[place->second].second = std::move(entry.second);
        }
    }
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
    return a.size() == b.size() && std::ranges::all_of(a, [&b](const Dictionary::Entry& entry) {
               const Value* other = b.find(entry.first);
               return other && *other == entry.second;
           });
}
