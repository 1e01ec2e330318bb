// SPDX-License-Identifier: MIT
#pragma once

#include <chrono>

/// An absolute instant in double-precision seconds since 1 January 1970, 00:00 UTC, leap seconds not counted.
/// A calendar day, month or year of a date is always read through a calendar and the process's time zone
/// (dates/DateUtilities.h); nothing does field arithmetic on the instant itself.
using Date = std::chrono::time_point<std::chrono::system_clock, std::chrono::duration<double>>;

/// The date `seconds` after 1 January 1970, 00:00 UTC.
constexpr Date dateFromUnixSeconds(double seconds)
{
    return Date(Date::duration(seconds));
}

/// Seconds from 1 January 1970, 00:00 UTC to `date`; negative before it.
constexpr double unixSeconds(Date date)
{
    return date.time_since_epoch().count();
}
