// SPDX-License-Identifier: MIT
#pragma once

#include "calendar/MonthGrid.h"
#include "dates/Date.h"

#include <QString>

#include <array>
#include <optional>

class DateFormatter;

/// What the weekly view works out: its days, and the week that its label names.
namespace Week {

/// The first instants of the day of `date`, the dates that notes carry, and of the six days after it.
std::array<Date, MonthGrid::DaysPerWeek> daysFrom(Date date);

/// The first instant of the day that `text` names: in the short date style when that style would write this very text,
/// else in the long one, in which the label is written. Nothing when it is written in neither. The style of `formatter`
/// is another afterwards.
std::optional<Date> firstDayFromText(const QString& text, DateFormatter& formatter);

} // namespace Week
