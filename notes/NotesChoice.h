// SPDX-License-Identifier: MIT
#pragma once

#include "dates/Date.h"
#include "plist/Value.h"

#include <functional>
#include <string>

/// Which notes the list was asked for last, and in which order it shows them: what makes its rows, and what tells
/// whether a note that comes later belongs to them.
class NotesChoice {
public:
    static NotesChoice none();
    static NotesChoice all();
    static NotesChoice ofMonth(Date date); ///< by date; the others as they stand in the table
    static NotesChoice ofYear(int year);
    static NotesChoice matching(const std::string& search, const std::string& locale);

    /// The chosen ones of `notes`, in the order of the list.
    Table of(const Table& notes) const;

    bool holds(const Value& note) const { return !m_chosen({note}).isEmpty(); }

    /// Where `note` belongs among `rows`: an index from 0 to their count.
    qsizetype placeAmong(const Table& rows, const Value& note) const;

private:
    enum class Order { AsTheyStand, ByDate };
    using Chosen = std::function<Table(const Table& notes)>;

    NotesChoice(Chosen chosen, Order order);

    Chosen m_chosen;
    Order m_order;
};
