// SPDX-License-Identifier: MIT
#include "notes/NotesChoice.h"

#include "notes/NoteQueries.h"
#include "search/TextSearch.h"
#include "store/Record.h"

#include <algorithm>
#include <utility>

NotesChoice::NotesChoice(Chosen chosen, Order order) : m_chosen(std::move(chosen)), m_order(order) {}

NotesChoice NotesChoice::none()
{
    return {[](const Table&) { return Table(); }, Order::AsTheyStand};
}

NotesChoice NotesChoice::all()
{
    return {[](const Table& notes) { return notes; }, Order::AsTheyStand};
}

NotesChoice NotesChoice::ofMonth(Date date)
{
    return {[date](const Table& notes) { return NoteQueries::copyArrayOfDatesHavingNotes(notes, date); },
            Order::ByDate};
}

NotesChoice NotesChoice::ofYear(int year)
{
    return {[year](const Table& notes) { return NoteQueries::copyCurrentYearNotes(notes, year); }, Order::AsTheyStand};
}

NotesChoice NotesChoice::matching(const std::string& search, const std::string& locale)
{
    return {
        [search, locale](const Table& notes) { return NoteQueries::filterNotes(notes, TextSearch(search, locale)); },
        Order::AsTheyStand};
}

Table NotesChoice::of(const Table& notes) const
{
    Table rows = m_chosen(notes);
    if (m_order == Order::ByDate) {
        NoteQueries::sortArrayAscending(rows, std::string(NoteDateKey));
    }
    return rows;
}

qsizetype NotesChoice::placeAmong(const Table& rows, const Value& note) const
{
    const std::optional<Date> date = dateOf(note, NoteDateKey);
    if (m_order == Order::AsTheyStand || !date) {
        return rows.size();
    }
    const auto later = std::ranges::find_if(rows, [date](const Value& row) {
        const Value* record = NoteQueries::recordOf(row);
        return record && dateOf(*record, NoteDateKey) > date;
    });
    return later - rows.begin();
}
