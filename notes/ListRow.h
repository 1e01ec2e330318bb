// SPDX-License-Identifier: MIT
#pragma once

#include "dates/Date.h"
#include "plist/Value.h"
#include "store/Record.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

/// The two lists of the window.
enum class ListKind : std::uint8_t { Notes, ImportantDates };

/// The keys of date and text in the records of a list.
struct RecordKeys {
    std::string_view date;
    std::string_view text;
};

constexpr RecordKeys recordKeys(ListKind list)
{
    return list == ListKind::Notes ? RecordKeys{NoteDateKey, NoteDataKey} : RecordKeys{EventDateKey, EventNameKey};
}

/// The element in a row of a list, and the record inside it. Where there is no such row, or no record in it, every
/// answer is empty. Valid until the table changes.
class ListRow {
public:
    ListRow() = default;
    ListRow(const Value& element, ListKind list);

    explicit operator bool() const { return m_element != nullptr; }
    const Value* element() const { return m_element; } ///< null when there is no such row
    const Value* record() const { return m_record; }
    std::optional<Date> date() const;
    std::optional<std::string_view> text() const;
    std::optional<DatedText> datedText() const; ///< nullopt unless both are there

    /// Whether it is an empty list, which a reminder whose note is gone leaves behind.
    bool isEmptyList() const;

private:
    const Value* m_element = nullptr;
    const Value* m_record = nullptr;
    ListKind m_list = ListKind::Notes;
};
