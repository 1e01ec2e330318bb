// SPDX-License-Identifier: MIT
#include "notes/ListRow.h"

#include "notes/NoteQueries.h"

ListRow::ListRow(const Value& element, ListKind list)
    : m_element(&element), m_record(NoteQueries::recordOf(element)), m_list(list)
{
}

std::optional<Date> ListRow::date() const
{
    return m_record ? dateOf(*m_record, recordKeys(m_list).date) : std::nullopt;
}

std::optional<std::string_view> ListRow::text() const
{
    return m_record ? textOf(*m_record, recordKeys(m_list).text) : std::nullopt;
}

std::optional<DatedText> ListRow::datedText() const
{
    const std::optional<Date> day = date();
    const std::optional<std::string_view> words = text();
    return day && words ? std::optional(DatedText{.date = *day, .text = std::string(*words)}) : std::nullopt;
}

bool ListRow::isEmptyList() const
{
    return m_element && m_element->array() && m_element->array()->isEmpty();
}
