// SPDX-License-Identifier: MIT
#pragma once

#include "dates/Date.h"
#include "plist/Value.h"

#include <functional>
#include <string>

/// The notes that the list was last asked for and the order in which it shows them: makes its rows, and tells whether
/// and where a later note belongs among them.
class NotesChoice {
public:
    static NotesChoice none();
    static NotesChoice all();
    static NotesChoice ofMonth(Date date); ///< sorted by date; the others keep the table's order
    static NotesChoice ofYear(int year);
    static NotesChoice matching(const std::string& search, const std::string& locale);

    /// Those of `notes` that are chosen, in the order of the list.
    Table of(const Table& notes) const;

    bool holds(const Value& note) const { return !m_chosen({note}).isEmpty(); }

    /// The index, from 0 to their count, at which `note` belongs among `rows`.
    qsizetype placeAmong(const Table& rows, const Value& note) const;

private:
    enum class Order { AsTheyStand, ByDate };
    using Chosen = std::function<Table(const Table& notes)>;

    NotesChoice(Chosen chosen, Order order);

    Chosen m_chosen;
    Order m_order;
};
