// SPDX-License-Identifier: MIT
#pragma once

#include "dates/Date.h"

#include <cstdint>

/// Holidays of the United States, and the days on which its clocks change, in the present year: the year in which
/// `DateEnvironment::now()` lies, whatever year a view is showing. Each call reads the clock anew.
///
/// Every date is what `DateUtilities::dateFromYear` gives for the day: its midnight, or its first instant in a zone
/// that skips that midnight. Year, months and days are counted on the current calendar, so that in a locale whose own
/// calendar is not the Gregorian one "11 November" means day 11 of that calendar's month 11.
namespace Holidays {

/// The third Monday of February, but the fourth in a year whose 1 February is a Sunday (2015, 2026): that is the
/// date that saved records carry and are found again by, so the rule stays.
Date presidentsDay();

/// Daylight-saving time by the rule of the United States since 2007, in every zone and year: the second Sunday of March
/// to the first Sunday of November.
Date dstStart();
Date dstEnd();

/// `easterSunday` of the present year, the year's low 16 bits taken as a signed number.
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

/// The sheet's days in its order, `index` 0 to `count` - 1: New Year's Day (`DateUtilities::janFirstThisYear`),
/// `presidentsDay`, `dstStart`, `easterDay`, `memorialDay`, `mothersDay`, `fathersDay`, `indepenDay`, `laborDay`,
/// `dstEnd`, `veteransDay`, `thanksGiving`, `xmasEve`, `xmas`. Any other index is the caller's error.
Date dateOfHoliday(int index);

struct MonthAndDay {
    int month = 0; ///< 3 or 4
    int day = 0;

    bool operator==(const MonthAndDay&) const = default;
};

/// The Gregorian (Western) Easter Sunday of `year`, by the method that the Astronomical Society of South Australia
/// published, valid for the years 1583 to 4099. For other years the same steps are carried out and give a day that no
/// church keeps.
MonthAndDay easterSunday(std::int16_t year);

} // namespace Holidays
