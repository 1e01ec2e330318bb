// SPDX-License-Identifier: MIT
#pragma once

#include "dates/Date.h"

#include <cstdint>

/// Holidays of the United States, and the days on which its clocks change, in the present year: the year of
/// `DateEnvironment::now()`, whatever year a view shows. Each call reads the clock anew.
///
/// Every date is the `DateUtilities::dateFromYear` of its day: midnight, or the first instant where the zone skips
/// midnight. Years, months and days are those of the current calendar, so in a locale whose own calendar is not
/// Gregorian "11 November" means day 11 of that calendar's month 11.
namespace Holidays {

/// The third Monday of February, but the fourth when 1 February is a Sunday (2015, 2026). Saved records carry that date
/// and are found again by it, so the rule stays.
Date presidentsDay();

/// The second Sunday of March and the first Sunday of November: daylight-saving time by the rule of the United States
/// since 2007, whatever the zone and the year.
Date dstStart();
Date dstEnd();

/// `easterSunday` of the present year; only the year's low 16 bits count, taken as a signed number.
Date easterDay();

Date memorialDay();  ///< the last Monday of May
Date mothersDay();   ///< the second Sunday of May
Date fathersDay();   ///< the third Sunday of June
Date indepenDay();   ///< 4 July
Date laborDay();     ///< the first Monday of September
Date veteransDay();  ///< 11 November
Date thanksGiving(); ///< the fourth Thursday of November
Date xmasEve();      ///< 24 December
Date xmas();         ///< 25 December

/// The number of days that the holiday sheet offers.
inline constexpr int count = 14;

/// The days of the holiday sheet in its order, `index` from 0 to `count` - 1: New Year's Day
/// (`DateUtilities::janFirstThisYear`), `presidentsDay`, `dstStart`, `easterDay`, `memorialDay`, `mothersDay`,
/// `fathersDay`, `indepenDay`, `laborDay`, `dstEnd`, `veteransDay`, `thanksGiving`, `xmasEve`, `xmas`. The caller must
/// not pass another index.
Date dateOfHoliday(int index);

struct MonthAndDay {
    int month = 0; ///< 3 or 4
    int day = 0;

    bool operator==(const MonthAndDay&) const = default;
};

/// The Gregorian (Western) Easter Sunday of `year`, by the method that the Astronomical Society of South Australia
/// published, valid for the years 1583 to 4099. Other years go through the same steps and give a meaningless day.
MonthAndDay easterSunday(std::int16_t year);

} // namespace Holidays
