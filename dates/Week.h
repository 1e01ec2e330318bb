// SPDX-License-Identifier: MIT
#pragma once

#include "dates/DateUtilities.h"
#include "dates/MonthGrid.h"

#include <QString>

#include <array>
#include <optional>

class DateFormatter;

/// The days of the weekly view, and the week that its label names.
namespace Week {

struct Day {
    YearMonthDay number;
    Date begin;             ///< first instant of the day, the date that its notes carry
    bool isLeftOut = false; ///< by the zone; `begin` is then that of the day after it
};

/// The day `daysAhead` days after that of `date`, and the six calendar days after it.
std::array<Day, MonthGrid::DaysPerWeek> daysFrom(Date date, int daysAhead = 0);

/// The first instant of the day that `text` names, in the short date style when that style would write this very text,
/// else in the long one, in which the label is written. nullopt when neither style would. Leaves `formatter` with
/// another style.
std::optional<Date> firstDayFromText(const QString& text, DateFormatter& formatter);

} // namespace Week
