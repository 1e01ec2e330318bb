// SPDX-License-Identifier: MIT
#include "dates/Holidays.h"

#include "dates/DateUtilities.h"
#include "text/IntegerValue.h"

#include <QtGlobal>

#include <array>

namespace {

// Weekdays as DateUtilities::dayNumberFromName counts them.
constexpr int sunday = 0;
constexpr int monday = 1;
constexpr int thursday = 4;
constexpr int friday = 5;

int presentYear()
{
    return integerValue(DateUtilities::currentYear());
}

Date thisYear(int month, int day)
{
    return DateUtilities::dateFromYear(presentYear(), month, day);
}

int weekdayOf(Date date)
{
    return static_cast<std::int16_t>(DateUtilities::dayNumberFromName(DateUtilities::dayNameFromDate(date)));
}

/// The day `offset(weekday)` days after the anchor, which is day `day` of `month` in the present year and falls on
/// `weekday`. It is made from its own number rather than by moving the anchor: where the zone skips the anchor's
/// midnight, a moved date would come out at one o'clock.
template <typename Offset> Date fromAnchor(int month, int day, Offset offset)
{
    const int year = presentYear();
    const int weekday = weekdayOf(DateUtilities::dateFromYear(year, month, day));
    return DateUtilities::dateFromYear(year, month, day + offset(weekday));
}

/// The number of days by which the full moons of a century come earlier than the 19-year cycle alone predicts.
int centuryCorrection(int century)
{
    const int evenCentury = century - century % 2;
    int correction = 0;
    if (century >= 39) {
        ++correction;
    }
    if (century >= 27) {
        ++correction;
    }
    if (century == 21 || century == 33 || evenCentury == 24 || evenCentury == 36) {
        ++correction;
    }
    return correction;
}

/// The paschal full moon as a day of March; a number beyond 31 is a day of April.
int paschalFullMoon(int century, int yearOfMoonCycle)
{
    // This is (century - 15) / 2 + 202 - 11 * yearOfMoonCycle, of which only the sum may be rounded.
    const int sum = (century - 15 + 2 * (202 - 11 * yearOfMoonCycle)) / 2;
    const int step = (sum - centuryCorrection(century)) % 30;
    const bool oneEarlier = step == 29 || (step == 28 && yearOfMoonCycle > 10);
    return step + (oneEarlier ? 20 : 21);
}

using HolidayRule = Date (*)();

constexpr std::array<HolidayRule, Holidays::count> rules = {
    DateUtilities::janFirstThisYear,
    Holidays::presidentsDay,
    Holidays::dstStart,
    Holidays::easterDay,
    Holidays::memorialDay,
    Holidays::mothersDay,
    Holidays::fathersDay,
    Holidays::indepenDay,
    Holidays::laborDay,
    Holidays::dstEnd,
    Holidays::veteransDay,
    Holidays::thanksGiving,
    Holidays::xmasEve,
    Holidays::xmas,
};

} // namespace

Date Holidays::presidentsDay()
{
    return fromAnchor(2, 1, [](int weekday) { return weekday == monday ? 14 : 22 - weekday; });
}

Date Holidays::dstStart()
{
    return fromAnchor(3, 1, [](int weekday) { return weekday == sunday ? 7 : 14 - weekday; });
}

Date Holidays::easterDay()
{
    const int year = presentYear();
    const MonthAndDay easter = easterSunday(static_cast<std::int16_t>(year));
    return DateUtilities::dateFromYear(year, easter.month, easter.day);
}

Date Holidays::memorialDay()
{
    return fromAnchor(5, 31, [](int weekday) { return weekday == sunday ? -6 : 1 - weekday; });
}

Date Holidays::mothersDay()
{
    return fromAnchor(5, 1, [](int weekday) { return weekday == sunday ? 7 : 14 - weekday; });
}

Date Holidays::fathersDay()
{
    return fromAnchor(6, 1, [](int weekday) { return weekday == sunday ? 14 : 21 - weekday; });
}

Date Holidays::indepenDay()
{
    return thisYear(7, 4);
}

Date Holidays::laborDay()
{
    return fromAnchor(9, 1, [](int weekday) { return weekday <= monday ? 1 - weekday : 8 - weekday; });
}

Date Holidays::dstEnd()
{
    return fromAnchor(11, 1, [](int weekday) { return weekday == sunday ? 0 : 7 - weekday; });
}

Date Holidays::veteransDay()
{
    return thisYear(11, 11);
}

Date Holidays::thanksGiving()
{
    return fromAnchor(11, 1, [](int weekday) {
        if (weekday <= thursday) {
            return 25 - weekday;
        }
        return weekday == friday ? 27 : 26;
    });
}

Date Holidays::xmasEve()
{
    return thisYear(12, 24);
}

Date Holidays::xmas()
{
    return thisYear(12, 25);
}

Date Holidays::dateOfHoliday(int index)
{
    Q_ASSERT(index >= 0 && index < count);
    return rules.at(static_cast<std::size_t>(index))();
}

// First the full moon from the 19-year cycle of the moon, then the Sunday after it from the weekday shifts of the
// moon's day, the century and the year within the century.
Holidays::MonthAndDay Holidays::easterSunday(std::int16_t year)
{
    constexpr int daysInMarch = 31;
    const int century = year / 100;
    const int yearOfCentury = year % 100;

    const int fullMoon = paschalFullMoon(century, year % 19);
    const int moonShift = (fullMoon - 19) % 7;

    int centuryShift = (40 - century) % 4;
    if (centuryShift == 3) {
        centuryShift = 4;
    }
    if (centuryShift > 1) {
        ++centuryShift;
    }

    const int yearShift = (yearOfCentury + yearOfCentury / 4) % 7;
    const int daysToSunday = (20 - moonShift - centuryShift - yearShift) % 7 + 1;

    const int dayOfMarch = fullMoon + daysToSunday;
    return dayOfMarch <= daysInMarch ? MonthAndDay{3, dayOfMarch} : MonthAndDay{4, dayOfMarch - daysInMarch};
}
