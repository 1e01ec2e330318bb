// SPDX-License-Identifier: MIT
// Easter Sundays against a table made by another program with another method (holidays_data.py).
#include "dates/Holidays.h"
#include "support/DateGuards.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <limits>

using Holidays::easterSunday;
using Holidays::MonthAndDay;

namespace {

constexpr std::int16_t FirstYear = 1583;
constexpr std::int16_t LastYear = 4099;

constexpr int EasterSundays[] = {
#include "dates/holidays_easter.inc"
};
static_assert(std::size(EasterSundays) == LastYear - FirstYear + 1);

TEST(EasterSunday, IsTheOneOfTheTableInEveryValidYear)
{
    for (std::int16_t year = FirstYear; year <= LastYear; ++year) {
        const int expected = EasterSundays[year - FirstYear];
        EXPECT_EQ(easterSunday(year), (MonthAndDay{expected / 100, expected % 100})) << year;
    }
}

TEST(EasterSunday, OfWellKnownYears)
{
    EXPECT_EQ(easterSunday(2000), (MonthAndDay{4, 23}));
    EXPECT_EQ(easterSunday(2008), (MonthAndDay{3, 23}));
    EXPECT_EQ(easterSunday(2019), (MonthAndDay{4, 21}));
    EXPECT_EQ(easterSunday(2024), (MonthAndDay{3, 31}));
}

TEST(EasterSunday, LiesBetweenThe22ndOfMarchAndThe25thOfApril)
{
    EXPECT_EQ(easterSunday(2285), (MonthAndDay{3, 22}));
    EXPECT_EQ(easterSunday(2038), (MonthAndDay{4, 25}));
    for (std::int16_t year = FirstYear; year <= LastYear; ++year) {
        const MonthAndDay easter = easterSunday(year);
        const int number = easter.month * 100 + easter.day;
        EXPECT_TRUE((number >= 322 && number <= 331) || (number >= 401 && number <= 425)) << year;
    }
}

// What the published steps give when carried out in Python's floating point, each quotient cut towards zero. In the
// centuries before the fifteenth a half is left over in the first step; after the fortieth the century's remainder is
// negative.
TEST(EasterSunday, OutsideTheValidYearsTheStepsGoOn)
{
    struct Row {
        int year;
        MonthAndDay expected;
    };
    constexpr Row rows[] = {
        {std::numeric_limits<std::int16_t>::min(), {4, 5}},
        {-25536, {3, 31}},
        {-1, {4, 17}},
        {0, {4, 9}},
        {19, {4, 7}},
        {827, {4, 25}},
        {1402, {3, 28}},
        {1403, {4, 17}},
        {1439, {4, 14}},
        {1582, {4, 18}},
        {4100, {4, 10}},
        {4101, {4, 2}},
        {4199, {3, 30}},
        {5000, {3, 28}},
        {9999, {4, 1}},
        {std::numeric_limits<std::int16_t>::max(), {4, 20}},
    };
    for (const Row& row : rows) {
        EXPECT_EQ(easterSunday(static_cast<std::int16_t>(row.year)), row.expected) << row.year;
    }
}

} // namespace
