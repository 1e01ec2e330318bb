// SPDX-License-Identifier: MIT
#pragma once

#include "dates/Date.h"

#include <QList>

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <variant>
#include <vector>

class Value;
class Dictionary;

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

    Type type() const { return static_cast<Type>(m_value.index()); }

    /// Each accessor returns null when the value is of another type. The pointer is valid as long as some copy of the
    /// value exists.
    const bool* boolean() const { return std::get_if<bool>(&m_value); }
    const Integer* integer() const { return std::get_if<Integer>(&m_value); }
    const double* real() const { return std::get_if<double>(&m_value); }
    const Date* date() const { return std::get_if<Date>(&m_value); }
    const std::vector<std::byte>* data() const { return shared<std::vector<std::byte>>(); }
    const std::string* text() const { return shared<std::string>(); }
    const Array* array() const { return shared<Array>(); }
    const Dictionary* dictionary() const { return shared<Dictionary>(); }

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

    // In the order of Type.
    std::variant<bool, Integer, double, Date, std::shared_ptr<const std::vector<std::byte>>,
                 std::shared_ptr<const std::string>, std::shared_ptr<const Array>, std::shared_ptr<const Dictionary>>
        m_value;
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

    /// The value under `key`; null when there is none. Valid until the dictionary changes.
    const Value* find(std::string_view key) const;

    /// Replaces the value under `key`, or appends it.
    void set(std::string_view key, Value value);

    std::size_t size() const { return m_entries.size(); }
    bool empty() const { return m_entries.empty(); }
    auto begin() const { return m_entries.begin(); }
    auto end() const { return m_entries.end(); }
    void reserve(std::size_t entries) { m_entries.reserve(entries); }

    /// Whether both have the same keys with equal values, in any order.
    friend bool operator==(const Dictionary& a, const Dictionary& b);

private:
    std::vector<Entry> m_entries;
};
