// SPDX-License-Identifier: MIT
#pragma once

#include "dates/Date.h"

#include <QExplicitlySharedDataPointer>
#include <QList>
#include <QSharedData>

#include <cstddef>
#include <cstdint>
#include <iterator>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <variant>
#include <vector>

class Dictionary;
class DictionaryView;
class Value;

/// Copies of an array share their elements until one of them is changed, so a snapshot of a table is free.
using Array = QList<Value>;

/// A table of records: the root of a notes or events file.
using Table = Array;

/// An integer of a property list, in the range of a signed or an unsigned 64-bit integer.
struct Integer {
    std::uint64_t magnitude = 0; ///< absolute value
    bool negative = false;       ///< never set with a magnitude of 0

    bool operator==(const Integer&) const = default;
};

/// Many dictionaries of a date and a text each, under the same two keys, in a few pieces of memory: a lifetime of notes
/// takes little more than its texts. Not changed once values refer to it; it lasts as long as one of them does.
struct DatedTexts : QSharedData {
    struct Record {
        Date date;
        std::uint32_t begin = 0; ///< of its text in `texts`
        std::uint32_t size = 0;  ///< in bytes
    };

    std::string dateKey;
    std::string textKey;
    std::string texts; ///< UTF-8
    std::vector<Record> records;

    std::string_view text(std::uint32_t record) const
    {
        return std::string_view(texts).substr(records[record].begin, records[record].size);
    }
};

using SharedDatedTexts = QExplicitlySharedDataPointer<const DatedTexts>;

/// An immutable property-list value. Copies are cheap and share their content, so a record can be in two tables at
/// once, and keys that this program does not know are written back as they were read.
class Value {
public:
    enum class Type : std::uint8_t {
        BooleanType,
        IntegerType,
        RealType,
        DateType,
        DataType,
        TextType,
        ArrayType,
        DictionaryType
    };

    /// The empty text.
    Value();
    explicit Value(bool boolean);
    explicit Value(Integer integer);
    explicit Value(double real);
    explicit Value(Date date);
    explicit Value(std::vector<std::byte> data);
    explicit Value(std::string utf8);
    explicit Value(const char* utf8);
    explicit Value(Array array);
    explicit Value(Dictionary dictionary);

    /// The dictionary of the record of that index.
    static Value ofRecord(SharedDatedTexts texts, std::uint32_t record, bool isDateFirst);

    /// The text of the record of that index.
    static Value ofText(SharedDatedTexts texts, std::uint32_t record);

    Type type() const;

    /// Each accessor returns null when the value is of another type. What it returns is valid as long as some copy of
    /// the value exists.
    const bool* boolean() const { return std::get_if<bool>(&m_value); }
    const Integer* integer() const { return std::get_if<Integer>(&m_value); }
    const double* real() const { return std::get_if<double>(&m_value); }
    const Date* date() const { return std::get_if<Date>(&m_value); }
    const std::vector<std::byte>* data() const { return shared<std::vector<std::byte>>(); }
    std::optional<std::string_view> text() const; ///< in UTF-8
    const Array* array() const { return shared<Array>(); }
    DictionaryView dictionary() const;

    /// When the value is a record of `DatedTexts` with these keys: the same record, its date first.
    std::optional<Value> datedText(std::string_view dateKey, std::string_view textKey) const;

    /// Equal in type and content, to any depth. NaN equals NaN, so that a table equals itself after writing and
    /// reading.
    friend bool operator==(const Value& a, const Value& b);

    /// Whether both share one text, data, array or dictionary; for the plain types, equality.
    bool isSameObject(const Value& other) const;

private:
    template <typename T> const T* shared() const
    {
        const auto* held = std::get_if<std::shared_ptr<const T>>(&m_value);
        return held ? held->get() : nullptr;
    }

    struct SharedText {
        SharedDatedTexts texts;
        std::uint32_t record = 0;

        bool operator==(const SharedText&) const = default;
    };

    struct SharedRecord {
        SharedDatedTexts texts;
        std::uint32_t record = 0;
        bool isDateFirst = true;

        bool operator==(const SharedRecord&) const = default;
    };

    // In the order of Type, then two further forms of a text and a dictionary.
    std::variant<bool, Integer, double, Date, std::shared_ptr<const std::vector<std::byte>>,
                 std::shared_ptr<const std::string>, std::shared_ptr<const Array>, std::shared_ptr<const Dictionary>,
                 SharedText, SharedRecord>
        m_value;

    friend class DictionaryView;
};

// A shared pointer can be moved as bytes, so a growing array need not touch each value.
Q_DECLARE_TYPEINFO(Value, Q_RELOCATABLE_TYPE);

/// Keys and their values, in the order in which they were read or set. No key occurs twice.
class Dictionary {
public:
    using Entry = std::pair<std::string, Value>;

    Dictionary() = default;
    Dictionary(std::initializer_list<Entry> entries);

    /// Keeps the order of the entries. Of a repeated key the last value counts, in the place of the first.
    explicit Dictionary(std::vector<Entry> entries);

    /// A copy that can be changed, of a dictionary that a view shows.
    Dictionary(const DictionaryView& view);

    /// The value under `key`; null when there is none. Valid until the dictionary changes.
    const Value* find(std::string_view key) const;

    /// Replaces the value under `key`, or appends it.
    void set(std::string_view key, Value value);

    std::size_t size() const { return m_entries.size(); }
    bool empty() const { return m_entries.empty(); }
    const Entry& at(std::size_t index) const { return m_entries.at(index); }
    auto begin() const { return m_entries.begin(); }
    auto end() const { return m_entries.end(); }
    void reserve(std::size_t entries) { m_entries.reserve(entries); }

    /// Whether both have the same keys with equal values, in any order.
    friend bool operator==(const Dictionary& a, const Dictionary& b);

private:
    std::vector<Entry> m_entries;
};

/// The dictionary of a value, whatever its form, used like a pointer: null when the value is none. Valid as long as
/// some copy of the value exists.
class DictionaryView {
public:
    DictionaryView() = default;
    DictionaryView(const Dictionary& dictionary) : m_dictionary(&dictionary) {} ///< which outlives the view

    explicit operator bool() const { return m_dictionary || m_record; }
    const DictionaryView* operator->() const { return this; }
    const DictionaryView& operator*() const { return *this; }

    std::size_t size() const { return m_record ? 2 : m_dictionary->size(); }
    bool empty() const { return size() == 0; }

    /// The value under `key`; nullopt when there is none.
    std::optional<Value> find(std::string_view key) const;

    /// The date or the text under `key`; nullopt when there is none or it is of another type. Without a copy of the
    /// value, which makes it twice as fast.
    std::optional<Date> date(std::string_view key) const;
    std::optional<std::string_view> text(std::string_view key) const;

    struct Entry {
        std::string_view key;
        Value value;
    };

    class Iterator;

    /// The entries in their order.
    Iterator begin() const;
    Iterator end() const;

    /// Whether both have the same keys with equal values, in any order.
    friend bool operator==(const DictionaryView& a, const DictionaryView& b);

private:
    friend class Value;

    explicit DictionaryView(const Dictionary* dictionary) : m_dictionary(dictionary) {}
    explicit DictionaryView(const Value::SharedRecord* record) : m_record(record) {}

    Entry entry(std::size_t index) const;

    const Dictionary* m_dictionary = nullptr; ///< of both at most one is set
    const Value::SharedRecord* m_record = nullptr;
};

class DictionaryView::Iterator {
public:
    using iterator_category = std::input_iterator_tag;
    using value_type = Entry;
    using difference_type = std::ptrdiff_t;
    using pointer = void;
    using reference = Entry;

    Iterator(const DictionaryView& view, std::size_t index) : m_view(view), m_index(index) {}

    Entry operator*() const { return m_view.entry(m_index); }
    Iterator& operator++()
    {
        ++m_index;
        return *this;
    }
    bool operator==(const Iterator& other) const { return m_index == other.m_index; }

private:
    DictionaryView m_view;
    std::size_t m_index;
};

inline DictionaryView::Iterator DictionaryView::begin() const
{
    return {*this, 0};
}

inline DictionaryView::Iterator DictionaryView::end() const
{
    return {*this, size()};
}
