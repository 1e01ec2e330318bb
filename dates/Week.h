// SPDX-License-Identifier: MIT
#pragma once

#include "dates/DateUtilities.h"
#include "dates/MonthGrid.h"

#include <QString>

#include <array>
#include <optional>

class DateFormatter;

/// What the weekly view works out: its days, and the week that its label names.
namespace Week {

struct Day {
    YearMonthDay number;
    Date begin;             ///< its first instant, the date that its notes carry
    bool isLeftOut = false; ///< by the zone; `begin` is that of the day after it
};

/// The day of `date`, moved by `daysAhead`, and the six days after it: each day of the calendar in turn.
std::array<Day, MonthGrid::DaysPerWeek> daysFrom(Date date, int daysAhead = 0);

/// The first instant of the day that `text` names: in the short date style when that style would write this very text,
/// else in the long one, in which the label is written. Nothing when it is written in neither. The style of `formatter`
/// is another afterwards.
std::optional<Date> firstDayFromText(const QString& text, DateFormatter& formatter);

} // namespace Week
